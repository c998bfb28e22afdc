// Runs on an X server that the caller starts: see CMakeLists.txt above it.
#include "App/Hotkey/KeyboardMap.h"

#include "Platform/X11/X11Display.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <vector>

namespace quillbox {
namespace {

using Bits = std::vector<std::uint16_t>;

constexpr xcb_keysym_t scrollLock = 0xFF14;
constexpr xcb_keysym_t numLock = 0xFF7F;
constexpr xcb_keysym_t altLeft = 0xFFE9;
constexpr xcb_keysym_t superRight = 0xFFEC;

/// The keyboard of the X server: its modifiers are none but those that a test sets.
class KeyboardMapTest : public testing::Test {
protected:
    void SetUp() override
    {
        const XCBPointer<xcb_get_modifier_mapping_reply_t> mapping(
            xcb_get_modifier_mapping_reply(m_connection, xcb_get_modifier_mapping(m_connection), nullptr));
        const auto* const keys = xcb_get_modifier_mapping_keycodes(mapping.get());
        m_perModifier = mapping->keycodes_per_modifier;
        m_before.assign(keys, keys + xcb_get_modifier_mapping_keycodes_length(mapping.get()));
    }
    void TearDown() override { set(m_before, m_perModifier); }

    /// A key that has `symbol`.
    xcb_keycode_t keyFor(xcb_keysym_t symbol)
    {
        const auto* const setup = xcb_get_setup(m_connection);
        const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
        const XCBPointer<xcb_get_keyboard_mapping_reply_t> map(xcb_get_keyboard_mapping_reply(
            m_connection, xcb_get_keyboard_mapping(m_connection, setup->min_keycode, count), nullptr));
        const auto* const begin = xcb_get_keyboard_mapping_keysyms(map.get());
        const auto* const end = begin + xcb_get_keyboard_mapping_keysyms_length(map.get());
        const auto* const found = std::find(begin, end, symbol);
        EXPECT_NE(found, end);
        return static_cast<xcb_keycode_t>(setup->min_keycode + (found - begin) / map->keysyms_per_keycode);
    }
    /// Makes each symbol's key a modifier: the bit's number, from 0 (Shift) to 7 (Mod5).
    void setModifiers(const std::map<xcb_keysym_t, std::size_t>& numbers)
    {
        std::vector<xcb_keycode_t> keys(8);
        for (const auto& [symbol, number] : numbers)
            keys[number] = keyFor(symbol);
        set(keys, 1);
    }

private:
    void set(const std::vector<xcb_keycode_t>& keys, std::uint8_t perModifier)
    {
        const XCBPointer<xcb_set_modifier_mapping_reply_t> done(xcb_set_modifier_mapping_reply(
            m_connection, xcb_set_modifier_mapping(m_connection, perModifier, keys.data()), nullptr));
        ASSERT_TRUE(done);
        ASSERT_EQ(done->status, XCB_MAPPING_STATUS_SUCCESS);
    }

    X11Display m_display;

protected:
    xcb_connection_t* m_connection = m_display.connection();

private:
    std::vector<xcb_keycode_t> m_before;
    std::uint8_t m_perModifier = 0;
};

TEST_F(KeyboardMapTest, KnowsTheModifiersOfAUsualKeyboard)
{
    const auto bits = KeyboardMap::modifierBits(m_connection);
    EXPECT_EQ(bits.super, XCB_MOD_MASK_4);
    EXPECT_EQ(bits.alt, XCB_MOD_MASK_1);
    EXPECT_EQ(bits.locks, (Bits{XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2}));
}

TEST_F(KeyboardMapTest, FindsModifiersThatHaveOtherBits)
{
    setModifiers({{superRight, 5}, {altLeft, 7}, {numLock, 3}, {scrollLock, 6}});
    const auto bits = KeyboardMap::modifierBits(m_connection);
    EXPECT_EQ(bits.super, XCB_MOD_MASK_3);
    EXPECT_EQ(bits.alt, XCB_MOD_MASK_5);
    EXPECT_EQ(bits.locks, (Bits{XCB_MOD_MASK_LOCK, XCB_MOD_MASK_1, XCB_MOD_MASK_4}));
}

TEST_F(KeyboardMapTest, HasNoBitForModifiersThatThereAreNot)
{
    setModifiers({});
    const auto bits = KeyboardMap::modifierBits(m_connection);
    EXPECT_EQ(bits.super, 0);
    EXPECT_EQ(bits.alt, 0);
    EXPECT_EQ(bits.locks, (Bits{XCB_MOD_MASK_LOCK}));
}

TEST(KeyboardMap, KnowsTheDigitsOfTheMainBlock)
{
    // By the evdev codes KEY_1 = 2 … KEY_0 = 11, of which X counts 8 more.
    const std::map<std::uint32_t, int> keys{
        {18, 10}, {19, 11}, {20, 12}, {21, 13}, {23, 14}, {22, 15}, {26, 16}, {28, 17}, {25, 18}, {29, 19}};
    for (std::uint32_t key = 0; key < 128; ++key) {
        const auto found = KeyboardMap::x11KeyCode(key);
        EXPECT_EQ(found ? *found : -1, keys.contains(key) ? keys.at(key) : -1) << key;
    }
    EXPECT_EQ(KeyboardMap::x11KeyCode(0xFFFF'FFFF), std::nullopt);
}

TEST(KeyboardMap, CallsAKeyByItsDigitWhereTheKeyboardHasThatOnIt)
{
    constexpr std::uint32_t eAcute = 0xE9;
    constexpr std::uint32_t eCaron = 0x1EC;
    constexpr std::uint32_t deadAcute = 0xFE51;
    using Symbols = std::vector<std::uint32_t>;
    EXPECT_EQ(KeyboardMap::labelFor(Symbols{'2', '@'}, u'2'), "2");
    EXPECT_EQ(KeyboardMap::labelFor(Symbols{eAcute, '2'}, u'2'), "2") << "a French keyboard";
    EXPECT_EQ(KeyboardMap::labelFor(Symbols{'[', '7'}, u'2'), "[");
    EXPECT_EQ(KeyboardMap::labelFor(Symbols{eCaron, '7'}, u'2'), "Ě");
    EXPECT_EQ(KeyboardMap::labelFor(Symbols{deadAcute, '7'}, u'2'), "2") << "nothing that can be printed";
    EXPECT_EQ(KeyboardMap::labelFor({}, u'2'), "2");
}

TEST_F(KeyboardMapTest, AsksTheServerWhatIsOnAKey)
{
    EXPECT_EQ(KeyboardMap::label(m_connection, 11), "2");
    EXPECT_EQ(KeyboardMap::label(m_connection, 19), "0");
}

TEST(KeyboardMap, CountsEveryUnionOnce)
{
    EXPECT_EQ(KeyboardMap::unions({}), (Bits{0}));
    EXPECT_EQ(KeyboardMap::unions({2}), (Bits{0, 2}));
    EXPECT_EQ(KeyboardMap::unions({2, 16, 128}), (Bits{0, 2, 16, 18, 128, 130, 144, 146}));
}

} // namespace
} // namespace quillbox
