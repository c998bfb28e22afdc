#include "App/Hotkey/ShortcutsPortal.h"

#include "App/Hotkey/HotkeyMath.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

using HotkeyMath::carbonModifiers;

TEST(ShortcutsPortal, NamesACombinationAsThePortalWantsIt)
{
    EXPECT_EQ(ShortcutsPortal::triggerFor(19, carbonModifiers({.command = true, .shift = true})), "LOGO+SHIFT+2");
    EXPECT_EQ(ShortcutsPortal::triggerFor(29, carbonModifiers({.option = true, .control = true})), "CTRL+ALT+0");
    EXPECT_EQ(ShortcutsPortal::triggerFor(18, 0), "1");
}

TEST(ShortcutsPortal, NamesACombinationByWhatItsKeyGivesWithShift)
{
    EXPECT_EQ(ShortcutsPortal::triggerForSymbol("at", carbonModifiers({.command = true, .shift = true})), "LOGO+at");
    EXPECT_EQ(ShortcutsPortal::triggerForSymbol("2", carbonModifiers({.shift = true, .control = true})), "CTRL+2");
}

TEST(ShortcutsPortal, HasNoNameForAKeyThatIsNoDigit)
{
    EXPECT_EQ(ShortcutsPortal::triggerFor(0, HotkeyMath::command), std::nullopt);
}

TEST(ShortcutsPortal, MakesTheModifiersInADescriptionReadable)
{
    EXPECT_EQ(ShortcutsPortal::readable("Press <super><shift>2"), "Press Super+Shift+2");
    EXPECT_EQ(ShortcutsPortal::readable("Press <ctrl>a or <Alt>F9"), "Press Ctrl+a or Alt+F9");
    EXPECT_EQ(ShortcutsPortal::readable("Meta+<"), "Meta+<");
    EXPECT_EQ(ShortcutsPortal::readable(""), "");
}

TEST(ShortcutsPortal, KnowsTheUsualKeysByTheNamesThatDesktopsHaveForThem)
{
    for (const char* const words : {"Press Super+Shift+2", "Meta+@", "Shift+Super+2", "Meta+J, Meta+@"})
        EXPECT_TRUE(ShortcutsPortal::isUsual(words, "@")) << words;
    EXPECT_TRUE(ShortcutsPortal::isUsual("Meta+2", "2")) << "of a French keyboard";
    for (const char* const words : {"Meta+J", "Press F9", "Meta+2", "Shift+2", "Ctrl+Meta+@", ""})
        EXPECT_FALSE(ShortcutsPortal::isUsual(words, "@")) << words;
}

TEST(ShortcutsPortal, TakesWhatIsNoListOfShortcutsForNone)
{
    EXPECT_TRUE(ShortcutsPortal::shortcutsIn(QVariant()).isEmpty());
    EXPECT_TRUE(ShortcutsPortal::shortcutsIn(QVariant("record-region")).isEmpty());
}

} // namespace
} // namespace quillbox
