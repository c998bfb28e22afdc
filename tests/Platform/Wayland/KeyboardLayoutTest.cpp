#include "Platform/Wayland/KeyboardLayout.h"

#include <gtest/gtest.h>

#include <string>

namespace quillbox {
namespace {

using KeyboardLayout::shiftedSymbolIn;
using KeyboardLayout::textOf;

/// A keymap whose key 11 has these symbols in its layouts.
std::string keymapWith(const std::string& symbols)
{
    return "xkb_keymap {\n"
           "xkb_keycodes \"k\" { minimum = 8; maximum = 255; <AE02> = 11; <AE03> = 12; };\n"
           "xkb_types \"t\" {\n"
           "  type \"ONE_LEVEL\" { modifiers = none; level_name[Level1] = \"Any\"; };\n"
           "  type \"TWO_LEVEL\" { modifiers = Shift; map[Shift] = Level2; level_name[Level1] = \"Base\"; };\n"
           "};\n"
           "xkb_compatibility \"c\" { };\n"
           "xkb_symbols \"s\" { key <AE02> { "
        + symbols + " }; };\n};\n";
}

TEST(KeyboardLayout, TellsWhatAKeyGivesWithShift)
{
    EXPECT_EQ(shiftedSymbolIn(keymapWith("[ 2, at ]"), 11), "at");
    EXPECT_EQ(shiftedSymbolIn(keymapWith("[ 2, quotedbl ]"), 11), "quotedbl");
    EXPECT_EQ(shiftedSymbolIn(keymapWith("[ eacute, 2 ]"), 11), "2");
}

TEST(KeyboardLayout, TellsItOfTheFirstLayout)
{
    EXPECT_EQ(shiftedSymbolIn(keymapWith("symbols[Group1] = [ eacute, 2 ], symbols[Group2] = [ 2, at ]"), 11), "2");
}

TEST(KeyboardLayout, KnowsNoneForAKeyWithoutSymbols)
{
    EXPECT_EQ(shiftedSymbolIn(keymapWith("[ 2 ]"), 11), std::nullopt);
    EXPECT_EQ(shiftedSymbolIn(keymapWith("[ 2, at ]"), 12), std::nullopt);
    EXPECT_EQ(shiftedSymbolIn(keymapWith("[ 2, at ]"), 400), std::nullopt);
}

TEST(KeyboardLayout, KnowsNoneInATextThatIsNoKeymap)
{
    EXPECT_EQ(shiftedSymbolIn("", 11), std::nullopt);
    EXPECT_EQ(shiftedSymbolIn("xkb_keymap {", 11), std::nullopt);
}

TEST(KeyboardLayout, TellsWhatASymbolsNameStandsFor)
{
    EXPECT_EQ(textOf("at"), "@");
    EXPECT_EQ(textOf("Eacute"), "É");
    EXPECT_EQ(textOf("2"), "2");
    EXPECT_EQ(textOf("Shift_L"), "");
    EXPECT_EQ(textOf("none such"), "");
}

} // namespace
} // namespace quillbox
