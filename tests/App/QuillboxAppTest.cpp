// Runs on a session bus that the caller starts: see CMakeLists.txt beside it.
#include "App/QuillboxApp.h"

#include "App/Desktop/ApplicationService.h"
#include "App/Hotkey/HotkeyMath.h"
#include "ScriptedUpdates.h"
#include "support/Await.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <cstdint>
#include <memory>
#include <vector>

namespace quillbox {
namespace {

/// A hotkey that a test presses.
class ScriptedHotkey : public HotkeyService {
public:
    explicit ScriptedHotkey(QStringList& log)
        : m_log(log)
    {
    }
    ~ScriptedHotkey() override { m_log << "the hotkey is let go"; }

    void grab(std::uint32_t keyCode, std::uint32_t modifiers) override
    {
        m_log << QString("key %1 with %2 is registered").arg(keyCode).arg(modifiers);
        setState({.status = HotkeyStatus::Active});
    }
    void press() { Q_EMIT pressed(); }

private:
    QStringList& m_log;
};

/// The application as it starts, in a home folder of its own, where no screen can be captured.
class QuillboxAppTest : public testing::Test {
protected:
    void SetUp() override
    {
        qputenv("HOME", m_folder.path().string().c_str());
        qputenv("XDG_DATA_HOME", (m_folder.path() / "data").string().c_str());
        qputenv("XDG_STATE_HOME", (m_folder.path() / "state").string().c_str());
        qputenv("QUILLBOX_CAPTURE_BACKEND", "none");
    }
    void TearDown() override
    {
        m_app.reset();
        qunsetenv("QUILLBOX_CAPTURE_BACKEND");
        qputenv("XDG_STATE_HOME", m_stateBefore);
        qputenv("XDG_DATA_HOME", m_dataBefore);
        qputenv("HOME", m_homeBefore);
    }

    [[nodiscard]] QString inData(const char* name) const
    {
        return QString::fromStdString((m_folder.path() / "data/Quillbox" / name).string());
    }
    [[nodiscard]] static bool isThere(const QString& path) { return QFileInfo::exists(path); }

    void launch()
    {
        m_app = std::make_unique<QuillboxApp>(SystemServices{
            .makeHotkey =
                [this] {
                    m_log << (isThere(inData("history.corrupt.json")) ? "the history is loaded" : "no history yet")
                          << "the hotkey is made";
                    auto hotkey = std::make_unique<ScriptedHotkey>(m_log);
                    m_hotkey = hotkey.get();
                    return hotkey;
                },
            .makeUpdates =
                [this] {
                    m_log << "the updater is made";
                    return std::make_unique<test::ScriptedUpdates>();
                },
        });
    }
    /// What the application tells others.
    static QVariantMap status()
    {
        const auto connection = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "another program");
        const QDBusPendingReply<QVariantMap> answer
            = connection.asyncCall(QDBusMessage::createMethodCall(ApplicationService::busName(),
                ApplicationService::objectPath(), ApplicationService::interfaceName(), "Status"));
        EXPECT_TRUE(test::eventually([&answer] { return answer.isFinished(); }));
        return answer.value();
    }

    QStringList m_log; // what happened, in this order
    std::unique_ptr<QuillboxApp> m_app;
    ScriptedHotkey* m_hotkey = nullptr; // the application's

private:
    QByteArray m_homeBefore = qgetenv("HOME");
    QByteArray m_dataBefore = qgetenv("XDG_DATA_HOME");
    QByteArray m_stateBefore = qgetenv("XDG_STATE_HOME");
    support::TemporaryFolder m_folder;
};

TEST_F(QuillboxAppTest, LoadsTheHistoryThenRegistersTheHotkeyAndLeavesTheUpdaterForLater)
{
    const auto history = inData("history.json");
    QDir().mkpath(QFileInfo(history).path());
    support::writeFile(
        history.toStdString(), std::vector<std::uint8_t>{'?'}); // what can't be read is put aside when it is loaded
    launch();
    EXPECT_EQ(m_log, QStringList({"the history is loaded", "the hotkey is made", "key 19 with 768 is registered"}));
}

TEST_F(QuillboxAppTest, MakesTheUpdaterOnceWhenAViewFirstNeedsIt)
{
    launch();
    m_log.clear();
    m_app->showSettings();
    EXPECT_EQ(m_log, QStringList());
    m_app->showPanel();
    m_app->showPanel();
    EXPECT_EQ(m_log, QStringList("the updater is made"));
}

TEST_F(QuillboxAppTest, BeginsAFlowAtAPressOfTheHotkey)
{
    launch();
    ASSERT_TRUE(m_app->claimName());
    EXPECT_EQ(status().value("phase").toString(), "idle");
    m_hotkey->press();
    EXPECT_TRUE(test::eventually([] { return status().value("phase").toString() == "failed"; }))
        << "nothing can be captured";
    EXPECT_EQ(status().value("message").toString(),
        "Couldn't start recording: Screen capture is switched off by QUILLBOX_CAPTURE_BACKEND");
}

TEST_F(QuillboxAppTest, HasOneNameForAllInstances)
{
    launch();
    ASSERT_TRUE(m_app->claimName());
    EXPECT_TRUE(QDBusConnection::sessionBus().interface()->isServiceRegistered("org.quillbox.quillbox"));
}

TEST_F(QuillboxAppTest, LetsGoOfTheHotkeyAndTheNameWhenItQuits)
{
    launch();
    ASSERT_TRUE(m_app->claimName());
    m_log.clear();
    m_app->quit();
    EXPECT_EQ(m_log, QStringList("the hotkey is let go"));
    EXPECT_FALSE(QDBusConnection::sessionBus().interface()->isServiceRegistered(ApplicationService::busName()));
}

TEST_F(QuillboxAppTest, LetsGoOfTheHotkeyAtItsEnd)
{
    launch();
    m_log.clear();
    m_app.reset();
    EXPECT_EQ(m_log, QStringList("the hotkey is let go"));
}

} // namespace
} // namespace quillbox
