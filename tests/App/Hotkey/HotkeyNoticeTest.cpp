#include "App/Hotkey/HotkeyNotice.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

const QString pressTheButton = QStringLiteral("Press “Record Region”, not ⌘⇧2.");

TEST(HotkeyNotice, TellsThePanelFirstWhatToPressInsteadThenWhatCanBeDone)
{
    for (const auto status : {HotkeyStatus::Taken, HotkeyStatus::Unassigned, HotkeyStatus::Unavailable}) {
        const QString problem = HotkeyNotice::problem({status, {}, false});
        EXPECT_TRUE(problem.startsWith(pressTheButton + " ")) << problem.toStdString();
        EXPECT_TRUE(problem.contains("“quillbox toggle”")) << problem.toStdString();
    }
    EXPECT_EQ(HotkeyNotice::problem({HotkeyStatus::Refused, {}, false}), pressTheButton) << "why, the user knows";
}

TEST(HotkeyNotice, TellsThePanelNothingWhereTheKeysWorkOrMayWork)
{
    for (const auto status : {HotkeyStatus::NotRegistered, HotkeyStatus::Asking, HotkeyStatus::Active}) {
        EXPECT_EQ(HotkeyNotice::problem({status, {}, false}), "");
        EXPECT_EQ(HotkeyNotice::instead({status, {}, false}), "");
    }
}

TEST(HotkeyNotice, TellsThePanelTheKeysWhereTheyAreOthers)
{
    const HotkeyState state{.status = HotkeyStatus::Active, .trigger = "Meta+J", .isDesktops = true, .isOther = true};
    EXPECT_EQ(HotkeyNotice::problem(state), "The desktop has set the keys to: Meta+J. Its settings can change them.");
}

TEST(HotkeyNotice, TellsNewcomersOfTheKeysWhatIsTrue)
{
    for (const auto status : {HotkeyStatus::NotRegistered, HotkeyStatus::Asking, HotkeyStatus::Active})
        EXPECT_EQ(HotkeyNotice::introduction({status, {}, true}), "")
            << "the usual keys, which the desktop is asked for";
    EXPECT_TRUE(HotkeyNotice::introduction({HotkeyStatus::Active, "Press F9", true}).contains("Press F9"));
    EXPECT_TRUE(HotkeyNotice::introduction({HotkeyStatus::Refused, {}, true}).contains("No hotkey, as you decided."));
    for (const auto status : {HotkeyStatus::Taken, HotkeyStatus::Unassigned, HotkeyStatus::Unavailable})
        EXPECT_EQ(HotkeyNotice::instead({status, {}, false}) + " " + HotkeyNotice::introduction({status, {}, false}),
            HotkeyNotice::problem({status, {}, false}))
            << "the one below the status, the other above it";
}

TEST(HotkeyNotice, TellsTheSettingsWhichWayIsInForce)
{
    EXPECT_EQ(HotkeyNotice::explanation({HotkeyStatus::Active, {}, false}),
        "⌘ is the Super key: press Super + Shift + 2 in any program.");
    EXPECT_EQ(HotkeyNotice::explanation({HotkeyStatus::Active, "Press F9", true}),
        "The desktop has set the keys to: Press F9. Its settings can change them.");
    EXPECT_EQ(HotkeyNotice::explanation({HotkeyStatus::Active, {}, true}),
        "The desktop's settings tell the keys, and can change them.");
    EXPECT_TRUE(HotkeyNotice::explanation({HotkeyStatus::Unavailable, {}, false}).contains("“quillbox toggle”"));
    EXPECT_TRUE(HotkeyNotice::explanation({HotkeyStatus::Refused, {}, false}).contains("“quillbox doctor”"));
}

TEST(HotkeyNotice, CallsTheKeysWhatTheKeyboardCallsThem)
{
    EXPECT_EQ(HotkeyNotice::combination({}), "Super + Shift + 2");
    HotkeyState state{.status = HotkeyStatus::Active, .key = "É"};
    EXPECT_EQ(HotkeyNotice::combination(state), "Super + Shift + É");
    EXPECT_EQ(HotkeyNotice::explanation(state), "⌘ is the Super key: press Super + Shift + É in any program.");
    state.status = HotkeyStatus::Taken;
    EXPECT_TRUE(HotkeyNotice::problem(state).contains(" Another program uses Super + Shift + É. "));
}

TEST(HotkeyNotice, TakesThePercentSignInTheDesktopsWordsAsItIs)
{
    EXPECT_TRUE(HotkeyNotice::explanation({HotkeyStatus::Active, "Press %1", true}).contains("Press %1."));
}

} // namespace
} // namespace quillbox
