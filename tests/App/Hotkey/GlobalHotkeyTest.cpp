#include "App/Hotkey/GlobalHotkey.h"

#include "App/Hotkey/HotkeyMath.h"
#include "support/Await.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

using Wish = std::pair<std::uint32_t, std::uint32_t>;

/// What was asked of a service.
struct Log {
    std::vector<Wish> wishes;
    HotkeyStatus answer = HotkeyStatus::Active; // to the next wish
    int retries = 0;
    int reconnections = 0;
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
        setState({.status = m_log.answer});
    }
    void retry() override
    {
        ++m_log.retries;
        setState({.status = m_log.answer});
    }
    void reconnect() override { ++m_log.reconnections; }

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
    GlobalHotkey m_hotkey{
        [this] { m_onTrigger(); }, std::unique_ptr<HotkeyService>(m_service), nullptr, std::chrono::milliseconds(1)};
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

TEST_F(GlobalHotkeyTest, AsksAgainUntilTheOtherProgramHasLetGo)
{
    m_log.answer = HotkeyStatus::Taken;
    m_hotkey.registerKey(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
    EXPECT_TRUE(test::eventually([&] { return m_log.retries == 3; }));
    EXPECT_EQ(m_hotkey.state().status, HotkeyStatus::Taken);
    m_log.answer = HotkeyStatus::Active;
    EXPECT_TRUE(test::eventually([&] { return m_hotkey.state().status == HotkeyStatus::Active; }));
    const int retries = m_log.retries;
    m_hotkey.retry();
    EXPECT_EQ(m_log.retries, retries + 1) << "whoever opens the panel asks at once";
    EXPECT_FALSE(test::eventually([&] { return m_log.retries > retries + 1; }, std::chrono::seconds(0)));
}

TEST_F(GlobalHotkeyTest, DoesNotAskAgainForWhatItHas)
{
    m_hotkey.registerKey(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
    const QDeadlineTimer twentyPauses(20);
    test::eventually([&] { return twentyPauses.hasExpired(); });
    EXPECT_EQ(m_log.retries, 0);
}

TEST_F(GlobalHotkeyTest, PassesOnThatTheBusWasRestarted)
{
    m_hotkey.reconnect();
    EXPECT_EQ(m_log.reconnections, 1);
    m_hotkey.release();
    m_hotkey.reconnect(); // there is nobody to ask
    m_hotkey.retry();
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
