// Runs on a desktop without a portal that the caller starts, and brings its own: see CMakeLists.txt above it.
#include "App/Hotkey/PortalHotkey.h"

#include "App/Hotkey/HotkeyMath.h"
#include "App/Hotkey/HotkeyRefusal.h"
#include "support/Await.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QFile>
#include <QProcess>

#include <memory>

namespace quillbox {
namespace {

const QString anInterface = "org.freedesktop.impl.portal.GlobalShortcuts;";

/// shortcuts_portal.py, for as long as the object lives.
class Portal {
public:
    Portal()
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start("/usr/bin/python3", {"-B", QUILLBOX_SHORTCUTS_PORTAL});
        while (!m_process.canReadLine() && m_process.waitForReadyRead()) { }
        EXPECT_EQ(m_process.readLine(), "ready\n");
    }
    ~Portal()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    Portal(const Portal&) = delete;
    Portal& operator=(const Portal&) = delete;

    QVariant tell(const QString& what, const QVariantList& arguments = {})
    {
        auto call = QDBusMessage::createMethodCall(
            "org.quillbox.test.Shortcuts", "/org/quillbox/test/Shortcuts", "org.quillbox.test.Shortcuts", what);
        call.setArguments(arguments);
        const auto answer = QDBusConnection::sessionBus().call(call);
        EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << answer.errorMessage().toStdString();
        return answer.arguments().value(0);
    }
    uint questions() { return tell("Questions").toUInt(); }

private:
    QProcess m_process;
};

class PortalHotkeyTest : public testing::Test {
protected:
    struct Hotkey {
        PortalHotkey service;
        int presses = 0;

        Hotkey()
        {
            QObject::connect(&service, &HotkeyService::pressed, &service, [this] { ++presses; });
            service.grab(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
        }
        [[nodiscard]] bool becomes(HotkeyStatus wanted)
        {
            return test::eventually([&] { return service.state().status == wanted; });
        }
    };

    void SetUp() override { QFile::remove(HotkeyRefusal::path()); }

    Portal m_portal;
};

TEST_F(PortalHotkeyTest, AsksOnceForWhatItWantsAndTellsTheKeysThatItGot)
{
    Hotkey hotkey;
    ASSERT_TRUE(hotkey.becomes(HotkeyStatus::Active));
    EXPECT_EQ(hotkey.service.state().trigger, "Press Super+@");
    EXPECT_TRUE(hotkey.service.state().isDesktops);
    EXPECT_EQ(m_portal.questions(), 1U);
    EXPECT_EQ(m_portal.tell("Wish").toString(), "record-region: Record a region of the screen, LOGO+SHIFT+2");
}

TEST_F(PortalHotkeyTest, ReportsEachPressOfItsOwnSession)
{
    Hotkey hotkey;
    ASSERT_TRUE(hotkey.becomes(HotkeyStatus::Active));
    m_portal.tell("PressElsewhere");
    m_portal.tell("Press");
    m_portal.tell("Press");
    EXPECT_TRUE(test::eventually([&] { return hotkey.presses >= 2; }));
    EXPECT_EQ(hotkey.presses, 2);
}

TEST_F(PortalHotkeyTest, IsNotAskedForWhatCameWithTheSession)
{
    m_portal.tell("Answer", {"with session"});
    Hotkey hotkey;
    ASSERT_TRUE(hotkey.becomes(HotkeyStatus::Active));
    EXPECT_EQ(hotkey.service.state().trigger, "Press Super+@");
    EXPECT_EQ(m_portal.questions(), 0U);
    EXPECT_EQ(m_portal.tell("Wish").toString(), "record-region: Record a region of the screen, LOGO+SHIFT+2");
}

TEST_F(PortalHotkeyTest, NamesItsSessionAlikeAtEachStart)
{
    for (int start = 0; start < 2; ++start) {
        Hotkey hotkey;
        ASSERT_TRUE(hotkey.becomes(HotkeyStatus::Active));
        EXPECT_TRUE(m_portal.tell("Session").toString().endsWith("/quillbox_shortcuts"));
    }
}

TEST_F(PortalHotkeyTest, ProposesOnKDEWhatTheKeyGivesWithShift)
{
    const auto desktop = qgetenv("XDG_CURRENT_DESKTOP");
    qputenv("XDG_CURRENT_DESKTOP", "Test:KDE");
    Hotkey hotkey;
    EXPECT_TRUE(hotkey.becomes(HotkeyStatus::Active));
    EXPECT_EQ(m_portal.tell("Wish").toString(), "record-region: Record a region of the screen, LOGO+at");
    qputenv("XDG_CURRENT_DESKTOP", desktop);
}

TEST_F(PortalHotkeyTest, FollowsTheKeysThatTheUserSets)
{
    Hotkey hotkey;
    ASSERT_TRUE(hotkey.becomes(HotkeyStatus::Active));
    m_portal.tell("Change", {"Press F9"});
    EXPECT_TRUE(test::eventually([&] { return hotkey.service.state().trigger == "Press F9"; }));
}

TEST_F(PortalHotkeyTest, AsksForTheListThatPlasmasAnswerLacks)
{
    m_portal.tell("Answer", {"like Plasma"});
    Hotkey hotkey;
    ASSERT_TRUE(hotkey.becomes(HotkeyStatus::Active));
    EXPECT_EQ(hotkey.service.state().trigger, "Press Super+@");
    EXPECT_EQ(m_portal.questions(), 1U);
}

TEST_F(PortalHotkeyTest, BelievesKDEsOwnServiceMoreThanItsPortal)
{
    constexpr int metaJ = 0x1000004A;
    const QList<int> keys{metaJ};
    m_portal.tell("HaveKeys", {"org.quillbox.quillbox", QVariant::fromValue(keys)});
    m_portal.tell("Answer", {"like Plasma"});
    Hotkey hotkey;
    ASSERT_TRUE(hotkey.becomes(HotkeyStatus::Active));
    EXPECT_EQ(hotkey.service.state().trigger, "Meta+J");
    EXPECT_TRUE(hotkey.service.state().isOther);
}

TEST_F(PortalHotkeyTest, ReadsTheWordsOfGNOMEAndWhetherTheyAreForOtherKeys)
{
    m_portal.tell("Answer", {"like GNOME"});
    Hotkey hotkey;
    ASSERT_TRUE(hotkey.becomes(HotkeyStatus::Active));
    EXPECT_EQ(hotkey.service.state().trigger, "Press Super+Shift+2");
    EXPECT_FALSE(hotkey.service.state().isOther);
    m_portal.tell("Change", {"Press <super>j"});
    EXPECT_TRUE(test::eventually([&] { return hotkey.service.state().trigger == "Press Super+j"; }));
    EXPECT_TRUE(hotkey.service.state().isOther);
}

TEST_F(PortalHotkeyTest, SaysWhoItIsToAPortalThatOtherwiseBeginsNothing)
{
    m_portal.tell("StopPortal");
    m_portal.tell("StartNewPortal");
    Hotkey hotkey;
    ASSERT_TRUE(hotkey.becomes(HotkeyStatus::Active));
    EXPECT_EQ(hotkey.service.state().trigger, "Press F9");
}

TEST_F(PortalHotkeyTest, DoesNotAskAgainAfterARefusal)
{
    m_portal.tell("Answer", {"refuse"});
    EXPECT_TRUE(Hotkey().becomes(HotkeyStatus::Refused));
    EXPECT_TRUE(Hotkey().becomes(HotkeyStatus::Refused));
    EXPECT_EQ(m_portal.questions(), 1U);
}

TEST_F(PortalHotkeyTest, AsksAgainOnceTheRefusalIsForgotten)
{
    m_portal.tell("Answer", {"refuse"});
    EXPECT_TRUE(Hotkey().becomes(HotkeyStatus::Refused));
    ASSERT_TRUE(QFile::remove(HotkeyRefusal::path()));
    m_portal.tell("Answer", {"bind"});
    EXPECT_TRUE(Hotkey().becomes(HotkeyStatus::Active));
}

TEST_F(PortalHotkeyTest, TakesAnEmptyListForNoHotkeyUntilTheUserSetsOne)
{
    m_portal.tell("Answer", {"nothing"});
    Hotkey hotkey;
    EXPECT_TRUE(hotkey.becomes(HotkeyStatus::Unassigned));
    EXPECT_FALSE(HotkeyRefusal::isRemembered());
    m_portal.tell("Change", {"Press F9"});
    EXPECT_TRUE(hotkey.becomes(HotkeyStatus::Active));
}

TEST_F(PortalHotkeyTest, IsUnavailableWhereThePortalFails)
{
    m_portal.tell("Answer", {"fail"});
    EXPECT_TRUE(Hotkey().becomes(HotkeyStatus::Unavailable));
    EXPECT_FALSE(HotkeyRefusal::isRemembered());
}

TEST_F(PortalHotkeyTest, IsUnavailableWithoutTheInterface)
{
    m_portal.tell("StopPortal");
    m_portal.tell("StartPortal", {""});
    EXPECT_TRUE(Hotkey().becomes(HotkeyStatus::Unavailable));
    EXPECT_EQ(m_portal.questions(), 0U);
}

TEST_F(PortalHotkeyTest, ReturnsWithThePortal)
{
    Hotkey hotkey;
    ASSERT_TRUE(hotkey.becomes(HotkeyStatus::Active));
    m_portal.tell("StopPortal");
    ASSERT_TRUE(hotkey.becomes(HotkeyStatus::Unavailable));
    m_portal.tell("StartPortal", {anInterface});
    ASSERT_TRUE(hotkey.becomes(HotkeyStatus::Active));
    m_portal.tell("Press");
    EXPECT_TRUE(test::eventually([&] { return hotkey.presses == 1; }));
}

TEST_F(PortalHotkeyTest, WaitsForAPortalThatComesLater)
{
    m_portal.tell("StopPortal");
    Hotkey hotkey;
    ASSERT_TRUE(hotkey.becomes(HotkeyStatus::Unavailable));
    m_portal.tell("StartPortal", {anInterface});
    EXPECT_TRUE(hotkey.becomes(HotkeyStatus::Active));
}

TEST_F(PortalHotkeyTest, MayGoWhileItAsks)
{
    for (int turns = 0; turns < 12; ++turns) {
        const Hotkey hotkey;
        for (int turn = 0; turn < turns; ++turn)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
    }
    // The last one's session has the same name, and may be about to end.
    EXPECT_TRUE(test::eventually([] {
        Hotkey hotkey;
        EXPECT_TRUE(test::eventually([&] {
            const auto status = hotkey.service.state().status;
            return status == HotkeyStatus::Active || status == HotkeyStatus::Unavailable;
        }));
        return hotkey.service.state().status == HotkeyStatus::Active;
    })) << "and nothing is wrong after that";
}

} // namespace
} // namespace quillbox

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
