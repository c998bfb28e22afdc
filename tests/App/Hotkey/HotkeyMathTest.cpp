#include "App/Hotkey/HotkeyMath.h"

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

} // namespace
} // namespace quillbox
