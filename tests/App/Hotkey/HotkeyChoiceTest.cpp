#include "App/Hotkey/HotkeyChoice.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QtGlobal>

namespace quillbox {
namespace {

using BackEnd = HotkeyBackEnd;

BackEndChoice<BackEnd> choiceFor(const char* wanted, const char* waylandDisplay, const char* sessionType)
{
    qputenv("QUILLBOX_HOTKEY_BACKEND", wanted);
    qputenv("WAYLAND_DISPLAY", waylandDisplay);
    qputenv("XDG_SESSION_TYPE", sessionType);
    return chooseHotkey();
}

TEST(HotkeyChoice, IsTheSessions)
{
    EXPECT_EQ(choiceFor("", "", "x11").backEnd, BackEnd::X11);
    EXPECT_EQ(choiceFor("", "", "").backEnd, BackEnd::X11);
    EXPECT_EQ(choiceFor("", "wayland-1", "").backEnd, BackEnd::Portal);
    EXPECT_EQ(choiceFor("", "", "wayland").backEnd, BackEnd::Portal);
}

TEST(HotkeyChoice, CanBeMadeByName)
{
    EXPECT_EQ(choiceFor("portal", "", "x11").backEnd, BackEnd::Portal);
    EXPECT_EQ(choiceFor("x11", "wayland-1", "wayland").backEnd, BackEnd::X11);
    const auto none = choiceFor("none", "", "x11");
    EXPECT_EQ(none.backEnd, BackEnd::None);
    EXPECT_EQ(none.reason, "The hotkey is switched off by QUILLBOX_HOTKEY_BACKEND");
}

TEST(HotkeyChoice, SaysWhichNamesThereAre)
{
    const auto unknown = choiceFor("gesture", "", "x11");
    EXPECT_EQ(unknown.backEnd, BackEnd::None);
    EXPECT_EQ(unknown.reason, "QUILLBOX_HOTKEY_BACKEND is \"gesture\", which is none of x11, portal, none");
}

TEST(HotkeyChoice, GivesAServiceThatIsNeverAvailableWhereThereIsNone)
{
    (void)choiceFor("none", "", "x11");
    const auto service = makeHotkeyService();
    EXPECT_EQ(service->state().status, HotkeyStatus::NotRegistered);
    service->grab(19, 768);
    EXPECT_EQ(service->state().status, HotkeyStatus::Unavailable);
}

} // namespace
} // namespace quillbox
