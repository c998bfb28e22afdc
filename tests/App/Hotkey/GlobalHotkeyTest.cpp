#include "App/Hotkey/GlobalHotkey.h"

#include "App/Hotkey/HotkeyMath.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

using Wish = std::pair<std::uint32_t, std::uint32_t>;

/// What was asked of a service.
struct Log {
    std::vector<Wish> wishes;
    bool isGone = false;
};

class ScriptedService : public HotkeyService {
public:
    explicit ScriptedService(Log& log)
        : m_log(log)
    {
    }
    ~ScriptedService() override { m_log.isGone = true; }

    void grab(std::uint32_t keyCode, std::uint32_t modifiers) override
    {
        m_log.wishes.emplace_back(keyCode, modifiers);
        setState({.status = HotkeyStatus::Active});
    }

private:
    Log& m_log;
};

class GlobalHotkeyTest : public testing::Test {
protected:
    void press() { Q_EMIT m_service->pressed(); }

private:
    int m_argumentCount = 1;
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    QCoreApplication m_application{m_argumentCount, m_arguments};

protected:
    Log m_log;
    ScriptedService* m_service = new ScriptedService(m_log); // the hotkey's
    std::function<void()> m_onTrigger = [this] {
        ++m_presses;
    };
    int m_presses = 0;
    GlobalHotkey m_hotkey{[this] { m_onTrigger(); }, std::unique_ptr<HotkeyService>(m_service)};
};

TEST_F(GlobalHotkeyTest, RegistersNothingByItself)
{
    EXPECT_TRUE(m_log.wishes.empty());
    EXPECT_EQ(m_hotkey.state().status, HotkeyStatus::NotRegistered);
}

TEST_F(GlobalHotkeyTest, AsksForTheCombinationAndTellsWhatBecameOfIt)
{
    int changes = 0;
    QObject::connect(&m_hotkey, &GlobalHotkey::stateChanged, &m_hotkey, [&] { ++changes; });
    m_hotkey.registerKey(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
    EXPECT_EQ(m_log.wishes, (std::vector{Wish(19, 768)}));
    EXPECT_EQ(m_hotkey.state().status, HotkeyStatus::Active);
    EXPECT_EQ(changes, 1);
}

TEST_F(GlobalHotkeyTest, CallsBackOnceAPressAfterItsHandlerHasReturned)
{
    press();
    EXPECT_EQ(m_presses, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_presses, 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_presses, 1);
}

TEST_F(GlobalHotkeyTest, DoesNotMergePressesThatArriveTogether)
{
    press();
    press();
    press();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_presses, 3);
}

TEST_F(GlobalHotkeyTest, CallsBackAgainForAPressWhileTheCallbackRuns)
{
    int running = 0;
    int mostAtATime = 0;
    m_onTrigger = [&] {
        mostAtATime = std::max(mostAtATime, ++running);
        if (++m_presses == 1) {
            press();
            EXPECT_EQ(m_presses, 1);
            QCoreApplication::processEvents();
        }
        --running;
    };
    press();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_presses, 2);
    EXPECT_EQ(mostAtATime, 2);
}

TEST_F(GlobalHotkeyTest, LetsGoWithoutHavingRegisteredAndAsksForNothing)
{
    m_hotkey.release();
    EXPECT_TRUE(m_log.wishes.empty());
    EXPECT_TRUE(m_log.isGone);
    EXPECT_EQ(m_hotkey.state().status, HotkeyStatus::NotRegistered);
    m_hotkey.release(); // a second time is none
}

TEST_F(GlobalHotkeyTest, CallsBackNoMoreOnceItHasLetGo)
{
    press();
    m_hotkey.release();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_presses, 0);
}

} // namespace
} // namespace quillbox
