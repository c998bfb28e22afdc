// Runs on an X server that the caller starts: see CMakeLists.txt above it.
#include "App/Hotkey/X11Hotkey.h"

#include "App/Hotkey/HotkeyMath.h"
#include "App/Hotkey/KeyboardMap.h"
#include "Platform/X11/X11Display.h"
#include "support/Await.h"
#include "support/Subprocess.h"

#include <gtest/gtest.h>

#include <QObject>
#include <QStringList>

#include <cstdint>
#include <string>
#include <vector>

namespace quillbox {
namespace {

/// Has another program do something with the keyboard, while this one looks at nothing.
void type(std::vector<std::string> what)
{
    what.insert(what.begin(), "xdotool");
    ASSERT_EQ(support::runProcess(what).exitStatus, 0);
}

class X11HotkeyTest : public testing::Test {
protected:
    X11HotkeyTest()
    {
        QObject::connect(&m_hotkey, &HotkeyService::pressed, &m_hotkey, [this] { ++m_presses; });
    }

    X11Hotkey m_hotkey;
    int m_presses = 0;
};

TEST_F(X11HotkeyTest, HoldsNothingUntilItIsAsked)
{
    EXPECT_EQ(m_hotkey.state().status, HotkeyStatus::NotRegistered);
    EXPECT_EQ(X11Hotkey::tryOut(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers).status, HotkeyStatus::Active);
}

TEST_F(X11HotkeyTest, ReportsEachPressOnce)
{
    m_hotkey.grab(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
    ASSERT_EQ(m_hotkey.state().status, HotkeyStatus::Active);
    for (int press = 1; press <= 3; ++press) {
        type({"key", "super+shift+2"});
        EXPECT_TRUE(test::eventually([&] { return m_presses == press; }));
    }
}

TEST_F(X11HotkeyTest, ReportsEachOfThePressesThatArriveTogether)
{
    m_hotkey.grab(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
    type({"key", "super+shift+2", "key", "super+shift+2", "key", "super+shift+2"});
    EXPECT_TRUE(test::eventually([&] { return m_presses >= 3; }));
    EXPECT_EQ(m_presses, 3);
}

TEST_F(X11HotkeyTest, DoesNotMindLocks)
{
    m_hotkey.grab(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
    type({"key", "Num_Lock", "key", "Caps_Lock", "key", "super+shift+2", "key", "Caps_Lock", "key", "Num_Lock"});
    EXPECT_TRUE(test::eventually([&] { return m_presses == 1; }));
}

TEST_F(X11HotkeyTest, LeavesOtherCombinationsAlone)
{
    m_hotkey.grab(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
    type({"key", "shift+2", "key", "super+2", "key", "super+shift+3", "key", "ctrl+super+shift+2", "key",
        "super+shift+2"}); // the last one tells that the others have been looked at
    EXPECT_TRUE(test::eventually([&] { return m_presses > 0; }));
    EXPECT_EQ(m_presses, 1);
}

TEST_F(X11HotkeyTest, IsTakenWhereAnotherProgramHasTheCombination)
{
    X11Hotkey other; // another connection is another program to the server
    other.grab(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
    m_hotkey.grab(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
    EXPECT_EQ(m_hotkey.state().status, HotkeyStatus::Taken);
    m_hotkey.grab(HotkeyMath::defaultKeyCode, HotkeyMath::command | HotkeyMath::control);
    EXPECT_EQ(m_hotkey.state().status, HotkeyStatus::Active);
}

TEST_F(X11HotkeyTest, GetsTheCombinationWhenItIsAskedForOnceTheOtherProgramHasLetGo)
{
    {
        X11Hotkey other;
        other.grab(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
        m_hotkey.grab(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
        m_hotkey.retry();
        EXPECT_EQ(m_hotkey.state().status, HotkeyStatus::Taken);
    }
    EXPECT_TRUE(test::eventually([&] {
        m_hotkey.retry();
        return m_hotkey.state().status == HotkeyStatus::Active;
    })) << "the server notices a closed connection a moment later";
    type({"key", "super+shift+2"});
    EXPECT_TRUE(test::eventually([&] { return m_presses == 1; }));
}

TEST_F(X11HotkeyTest, HoldsNothingOfACombinationThatIsPartlyTaken)
{
    const X11Display other;
    constexpr std::uint8_t keyOfTwo = 11;
    const auto held
        = static_cast<std::uint16_t>(KeyboardMap::modifierBits(other.connection()).super | XCB_MOD_MASK_SHIFT);
    const auto withCapsLock = static_cast<std::uint16_t>(held | XCB_MOD_MASK_LOCK);
    const auto grab = [&](std::uint16_t modifiers) {
        const auto cookie = xcb_grab_key_checked(
            other.connection(), 0, other.root(), modifiers, keyOfTwo, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        return XCBPointer<xcb_generic_error_t>(xcb_request_check(other.connection(), cookie)) == nullptr;
    };
    ASSERT_TRUE(grab(withCapsLock));
    m_hotkey.grab(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
    EXPECT_EQ(m_hotkey.state().status, HotkeyStatus::Taken);
    EXPECT_TRUE(test::eventually([&] { return grab(held); })) << "the other program can have the rest";
}

TEST_F(X11HotkeyTest, NamesTheKeyAsTheKeyboardDoes)
{
    m_hotkey.grab(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
    EXPECT_EQ(m_hotkey.state().key, "2");
    EXPECT_EQ(X11Hotkey::tryOut(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers).key, "2");
    ASSERT_EQ(support::runProcess({"xmodmap", "-e", "keycode 11 = bracketleft 7"}).exitStatus, 0);
    EXPECT_TRUE(test::eventually([&] { return m_hotkey.state().key == "["; })) << "a changed keyboard is noticed";
    ASSERT_EQ(support::runProcess({"xmodmap", "-e", "keycode 11 = 2 at"}).exitStatus, 0);
    EXPECT_TRUE(test::eventually([&] { return m_hotkey.state().key == "2"; }));
}

TEST_F(X11HotkeyTest, LetsGoAtItsEnd)
{
    {
        X11Hotkey other;
        other.grab(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
    }
    EXPECT_TRUE(test::eventually([] {
        return X11Hotkey::tryOut(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers).status
            == HotkeyStatus::Active;
    })) << "the server notices a closed connection a moment later";
}

TEST_F(X11HotkeyTest, IsUnavailableForAKeyThatHasNoCounterpart)
{
    m_hotkey.grab(0, HotkeyMath::defaultModifiers);
    EXPECT_EQ(m_hotkey.state().status, HotkeyStatus::Unavailable);
}

} // namespace
} // namespace quillbox
