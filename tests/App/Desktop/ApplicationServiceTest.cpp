// Runs on a session bus that the caller starts: see CMakeLists.txt above it.
#include "App/Desktop/ApplicationService.h"

#include "App/Workflow/CurrentCoordinator.h"
#include "CoordinatorFixture.h"
#include "PostCapture/Clipboard/Clipboard.h"
#include "PostCapture/Clipboard/Pasting.h"
#include "support/BusyWorkers.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QUrl>

#include <memory>
#include <string>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

using Coordinator = RecordingCoordinator;
using test::ScriptedRecorder;

const QString desktopEntry = "org.freedesktop.Application";

/// Another program on the bus.
QDBusConnection other()
{
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, "another program");
}

/// The application on the bus, around a recorder and a selection that the test directs.
class ApplicationServiceTest : public testing::Test {
protected:
    void SetUp() override
    {
        qunsetenv("XDG_ACTIVATION_TOKEN");
        ASSERT_EQ(m_service.claimName(), ApplicationService::Claim::Granted);
    }
    void TearDown() override { ApplicationService::releaseName(); }

    static QDBusPendingCall call(
        const QString& method, const QVariantList& arguments = {}, const QString& interface = {})
    {
        auto message = QDBusMessage::createMethodCall(ApplicationService::busName(), ApplicationService::objectPath(),
            interface.isEmpty() ? ApplicationService::interfaceName() : interface, method);
        message.setArguments(arguments);
        return other().asyncCall(message);
    }
    static QDBusMessage answerOf(const QDBusPendingCall& call)
    {
        EXPECT_TRUE(test::eventually([&call] { return call.isFinished(); }));
        return call.reply();
    }
    static QDBusMessage ask(const QString& method, const QVariantList& arguments = {}, const QString& interface = {})
    {
        return answerOf(call(method, arguments, interface));
    }
    static QVariantMap mapIn(const QDBusMessage& answer)
    {
        EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << answer.errorMessage().toStdString();
        return qdbus_cast<QVariantMap>(answer.arguments().value(0));
    }
    static QVariantMap status() { return mapIn(ask("Status")); }
    static bool isNameOwned() { return other().interface()->isServiceRegistered(ApplicationService::busName()); }

    /// On to a recording, by the road that a user takes.
    void record()
    {
        m_coordinator.begin();
        m_fixture.selector->select(test::someRegion);
        ASSERT_TRUE(m_coordinator.get().isIn<Coordinator::Recording>());
    }

    test::CoordinatorFixture m_fixture;
    CurrentCoordinator m_coordinator{std::move(m_fixture.coordinator)};
    QStringList m_done; // what the application was asked to do
    ApplicationService m_service{m_coordinator,
        ApplicationService::Actions{
            .showPanel = [this] { m_done << "panel"; },
            .showSettings = [this] { m_done << "settings"; },
            .quit = [this] { m_done << "quit"; },
            .frameCount = [] { return 42; },
            .hotkey =
                [] {
                    return QVariantMap{{"status", "active"}};
                },
        }};
};

TEST_F(ApplicationServiceTest, LeavesTheNameToTheInstanceThatHasIt)
{
    ApplicationService::releaseName();
    ASSERT_TRUE(other().registerService(ApplicationService::busName()));
    EXPECT_EQ(m_service.claimName(), ApplicationService::Claim::Taken);
    ASSERT_TRUE(other().unregisterService(ApplicationService::busName()));
    EXPECT_FALSE(isNameOwned()) << "it did not queue for the name";
    EXPECT_EQ(m_service.claimName(), ApplicationService::Claim::Granted);
}

TEST_F(ApplicationServiceTest, TellsEveryPhase)
{
    EXPECT_EQ(status(), (QVariantMap{{"phase", "idle"}, {"clipboard", "empty"}}));
    m_coordinator.begin();
    EXPECT_EQ(status().value("phase").toString(), "selecting");
    m_fixture.selector->select(test::someRegion);
    const QVariantMap recording{
        {"phase", "recording"}, {"frameCount", 42LL}, {"elapsedSeconds", 0LL}, {"clipboard", "empty"}};
    EXPECT_EQ(status(), recording);
    ScriptedRecorder::close(m_fixture.recorder->stopGate);
    m_coordinator.stop();
    EXPECT_EQ(status().value("phase").toString(), "processing");
    m_fixture.recorder->frames.clear();
    m_fixture.recorder->stopGate->finish();
    ASSERT_TRUE(test::eventually([this] { return m_coordinator.get().isIn<Coordinator::Failed>(); }));
    EXPECT_EQ(status(), (QVariantMap{{"phase", "failed"}, {"message", "No frames captured."}, {"clipboard", "empty"}}));
}

TEST_F(ApplicationServiceTest, BeginsAFlowAndTellsThePhaseAfterwards)
{
    const QVariantMap platformData{{"activation-token", "a token"}};
    EXPECT_EQ(mapIn(ask("Begin", {platformData})).value("phase").toString(), "selecting");
    EXPECT_EQ(m_fixture.selector->presentations, 1);
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "a token");
}

TEST_F(ApplicationServiceTest, BeginsNoSecondFlow)
{
    record();
    EXPECT_EQ(mapIn(ask("Begin", {QVariantMap()})).value("phase").toString(), "recording");
    EXPECT_EQ(m_fixture.selector->presentations, 1);
}

TEST_F(ApplicationServiceTest, AnswersAStopOnceTheClipIsThere)
{
    record();
    ScriptedRecorder::close(m_fixture.recorder->stopGate);
    const auto stopping = call("Stop");
    ASSERT_TRUE(test::eventually([this] { return m_coordinator.get().isIn<Coordinator::Processing>(); }));
    EXPECT_EQ(status().value("phase").toString(), "processing") << "others are answered meanwhile";
    EXPECT_FALSE(stopping.isFinished());
    m_fixture.recorder->stopGate->finish();
    const auto answer = mapIn(answerOf(stopping));
    const auto& done = std::get<Coordinator::Done>(m_coordinator.get().phase());
    EXPECT_EQ(answer.value("phase").toString(), "done");
    EXPECT_EQ(answer.value("path").toString(), done.path);
    EXPECT_EQ(answer.value("byteCount").toLongLong(), done.byteCount);
}

TEST_F(ApplicationServiceTest, AnswersAStopOnceTheClipHasFailed)
{
    record();
    m_fixture.recorder->frames.clear();
    const auto answer = mapIn(ask("Stop"));
    EXPECT_EQ(answer.value("phase").toString(), "failed");
    EXPECT_EQ(answer.value("message").toString(), "No frames captured.");
}

TEST_F(ApplicationServiceTest, RefusesToStopWhatDoesNotRecord)
{
    const auto idle = ask("Stop");
    EXPECT_EQ(idle.errorName(), "org.quillbox.quillbox.Error.NotRecording");
    EXPECT_EQ(idle.errorMessage(), "Nothing is being recorded");
    record();
    ScriptedRecorder::close(m_fixture.recorder->stopGate);
    const auto first = call("Stop");
    EXPECT_EQ(ask("Stop").errorName(), "org.quillbox.quillbox.Error.NotRecording") << "it is being stopped already";
    m_fixture.recorder->stopGate->finish();
    EXPECT_EQ(mapIn(answerOf(first)).value("phase").toString(), "done");
    EXPECT_EQ(m_fixture.recorder->stops, 1);
}

TEST_F(ApplicationServiceTest, KeepsEveryChangeOfOneClipWhenAskedTo)
{
    EXPECT_EQ(mapIn(ask("Begin", {QVariantMap{{"precise", true}}})).value("phase").toString(), "selecting");
    m_fixture.selector->select(test::someRegion);
    (void)mapIn(ask("Stop"));
    ASSERT_NE(m_coordinator.finishedClip(), nullptr);
    EXPECT_TRUE(m_coordinator.finishedClip()->request.isPrecise);
    EXPECT_FALSE(m_coordinator.keepsEveryChange());
}

TEST_F(ApplicationServiceTest, MakesAnotherClipAndAnswersOnceItIsThere)
{
    record();
    const auto first = mapIn(ask("Stop"));
    const auto second = mapIn(ask("Again", {QVariantMap{{"precise", true}, {"preset", "docs"}}}));
    EXPECT_EQ(second.value("phase").toString(), "done");
    EXPECT_NE(second.value("path"), first.value("path"));
    EXPECT_EQ(second, status());
    EXPECT_EQ(m_coordinator.finishedClip()->request, (ClipRequest{.preset = ExportPreset::docs, .isPrecise = true}));
    (void)mapIn(ask("Again", {QVariantMap()}));
    EXPECT_EQ(m_coordinator.finishedClip()->request, (ClipRequest{.preset = ExportPreset::docs, .isPrecise = true}))
        << "as the one before";
    EXPECT_EQ(m_fixture.history->entries().size(), 3U);
}

TEST_F(ApplicationServiceTest, TriesAgainWhatCouldNotBeSaved)
{
    m_fixture.blockClips();
    record();
    EXPECT_EQ(mapIn(ask("Stop")).value("phase").toString(), "failed");
    EXPECT_EQ(mapIn(ask("Again", {QVariantMap()})).value("phase").toString(), "failed");
    m_fixture.unblockClips();
    EXPECT_EQ(mapIn(ask("Again", {QVariantMap()})).value("phase").toString(), "done");
}

TEST_F(ApplicationServiceTest, MakesNoOtherClipOfNothingOrMeanwhileOrOfAnUnknownKind)
{
    EXPECT_EQ(ask("Again", {QVariantMap()}).errorName(), "org.quillbox.quillbox.Error.NothingRecorded");
    record();
    EXPECT_EQ(ask("Again", {QVariantMap()}).errorName(), "org.quillbox.quillbox.Error.Busy");
    (void)mapIn(ask("Stop"));
    const auto unknown = ask("Again", {QVariantMap{{"preset", "disk"}}});
    EXPECT_EQ(unknown.errorName(), "org.freedesktop.DBus.Error.InvalidArgs");
    EXPECT_EQ(unknown.errorMessage(), QString("There is no preset “disk”"));
    auto workers = std::make_unique<support::BusyWorkers>();
    const auto making = call("Again", {QVariantMap()});
    EXPECT_EQ(ask("Again", {QVariantMap()}).errorName(), "org.quillbox.quillbox.Error.Busy");
    workers.reset();
    EXPECT_EQ(mapIn(answerOf(making)).value("phase").toString(), "done");
}

TEST_F(ApplicationServiceTest, ShowsThePanel)
{
    (void)mapIn(ask("Show", {QVariantMap{{"activation-token", "another token"}}}));
    EXPECT_EQ(m_done, QStringList({"panel"}));
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "another token");
    (void)mapIn(ask("Show", {QVariantMap()}));
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "another token") << "none was given";
}

TEST_F(ApplicationServiceTest, CopiesASavedClip)
{
    const auto path = m_fixture.home() + "/a clip.gif";
    support::writeFile(path.toStdString(), std::vector<std::uint8_t>{'G', 'I', 'F', '8', '9', 'a'});
    EXPECT_EQ(ask("Copy", {path}).arguments(), QVariantList{true});
    EXPECT_EQ(status().value("clipboard").toString(), "accepted");
    EXPECT_EQ(test::pasted("text/uri-list"), QUrl::fromLocalFile(path).toEncoded() + "\r\n");
    EXPECT_EQ(test::pasted("image/gif"), "GIF89a");
    Clipboard::general().clear();
}

TEST_F(ApplicationServiceTest, SaysSoWhereAClipCannotBeRead)
{
    EXPECT_EQ(ask("Copy", {m_fixture.home() + "/none.gif"}).arguments(), QVariantList{false});
    EXPECT_EQ(ask("Copy", {m_fixture.home()}).arguments(), QVariantList{false}) << "a folder";
    const auto pipe = m_fixture.home() + "/pipe.gif";
    ASSERT_EQ(::mkfifo(pipe.toStdString().c_str(), 0600), 0);
    EXPECT_EQ(ask("Copy", {pipe}).arguments(), QVariantList{false}) << "a pipe that nobody writes to";
    EXPECT_EQ(ask("Copy", {"/dev/zero"}).arguments(), QVariantList{false}) << "without an end";
    const auto text = m_fixture.home() + "/secret.txt";
    support::writeFile(text.toStdString(), std::vector<std::uint8_t>{'G', 'I', 'F', '8', '8', 'a'});
    EXPECT_EQ(ask("Copy", {text}).arguments(), QVariantList{false}) << "no GIF";
    EXPECT_EQ(status().value("clipboard").toString(), "empty");
}

TEST_F(ApplicationServiceTest, HasMadeRoomForAnotherInstanceWhenItAnswersAQuit)
{
    EXPECT_EQ(ask("Quit").type(), QDBusMessage::ReplyMessage);
    EXPECT_FALSE(isNameOwned());
    EXPECT_TRUE(test::eventually([this] { return m_done == QStringList({"quit"}); }));
}

TEST_F(ApplicationServiceTest, TellsWhatBecameOfTheHotkey)
{
    const auto answer = ask("Get", {ApplicationService::interfaceName(), "Hotkey"}, "org.freedesktop.DBus.Properties");
    const auto value = answer.arguments().value(0).value<QDBusVariant>().variant();
    EXPECT_EQ(qdbus_cast<QVariantMap>(value), (QVariantMap{{"status", "active"}}));
}

TEST_F(ApplicationServiceTest, ShowsThePanelWhenADesktopStartsItAgain)
{
    (void)mapIn(ask("Activate", {QVariantMap{{"activation-token", "the desktop's"}}}, desktopEntry));
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "the desktop's");
    (void)mapIn(ask("Open", {QStringList{"file:///tmp/a.gif"}, QVariantMap()}, desktopEntry));
    EXPECT_EQ(m_done, QStringList({"panel", "panel"}));
}

TEST_F(ApplicationServiceTest, DoesTheActionsOfItsDesktopEntry)
{
    const auto act = [](const QString& name) {
        return ask("ActivateAction", {name, QVariantList(), QVariantMap()}, desktopEntry).type();
    };
    EXPECT_EQ(act("settings"), QDBusMessage::ReplyMessage);
    EXPECT_EQ(m_done, QStringList({"settings"}));
    EXPECT_EQ(act("record-region"), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(m_coordinator.get().isIn<Coordinator::SelectingRegion>());
    EXPECT_EQ(act("something-else"), QDBusMessage::ReplyMessage);
    EXPECT_EQ(m_done, QStringList({"settings"}));
}

} // namespace
} // namespace quillbox
