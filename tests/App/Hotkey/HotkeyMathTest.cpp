#include "App/Hotkey/HotkeyMath.h"
#include "App/Hotkey/KeyboardMap.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

TEST(HotkeyMath, OrsTheMasksOfTheHeldKeys)
{
    EXPECT_EQ(HotkeyMath::carbonModifiers({.command = true, .shift = true}), 768U);
    EXPECT_EQ(HotkeyMath::carbonModifiers({.command = true, .shift = true, .option = true, .control = true}), 6912U);
    EXPECT_EQ(HotkeyMath::carbonModifiers({}), 0U);
}

TEST(HotkeyMath, GivesEachKeyItsOwnMask)
{
    EXPECT_EQ(HotkeyMath::carbonModifiers({.command = true}), 256U);
    EXPECT_EQ(HotkeyMath::carbonModifiers({.shift = true}), 512U);
    EXPECT_EQ(HotkeyMath::carbonModifiers({.option = true}), 2048U);
    EXPECT_EQ(HotkeyMath::carbonModifiers({.control = true}), 4096U);
}

TEST(KeyboardMap, KnowsThePhysicalDigits)
{
    EXPECT_EQ(KeyboardMap::x11KeyCode(19), 11); // "2"
    EXPECT_EQ(KeyboardMap::x11KeyCode(18), 10); // "1"
    EXPECT_EQ(KeyboardMap::x11KeyCode(23), 14); // "5"
    EXPECT_EQ(KeyboardMap::x11KeyCode(29), 19); // "0"
    EXPECT_EQ(KeyboardMap::x11KeyCode(0), std::nullopt);
}

TEST(KeyboardMap, UnitesLocksInEveryWay)
{
    EXPECT_EQ(KeyboardMap::unions({}), (std::vector<std::uint16_t>{0}));
    EXPECT_EQ(KeyboardMap::unions({2, 16}), (std::vector<std::uint16_t>{0, 2, 16, 18}));
}

} // namespace
} // namespace quillbox
