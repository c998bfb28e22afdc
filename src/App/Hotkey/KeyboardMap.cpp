#include "App/Hotkey/KeyboardMap.h"

#include "Platform/X11/KeySymbols.h"
#include "Platform/X11/X11Display.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <utility>

namespace quillbox {
namespace {

// Key symbols of the X protocol, appendix A.
constexpr xcb_keysym_t scrollLock = 0xFF14;
constexpr xcb_keysym_t numLock = 0xFF7F;
constexpr xcb_keysym_t altLeft = 0xFFE9;
constexpr xcb_keysym_t altRight = 0xFFEA;
constexpr xcb_keysym_t superLeft = 0xFFEB;
constexpr xcb_keysym_t superRight = 0xFFEC;

constexpr std::size_t modifierCount = 8; // Shift, Lock, Control, Mod1 … Mod5

/// All symbols of all keys.
class Symbols {
public:
    explicit Symbols(xcb_connection_t* connection)
    {
        const auto* const setup = xcb_get_setup(connection);
        m_first = setup->min_keycode;
        const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
        m_reply.reset(xcb_get_keyboard_mapping_reply(
            connection, xcb_get_keyboard_mapping(connection, setup->min_keycode, count), nullptr));
    }

    [[nodiscard]] explicit operator bool() const { return m_reply != nullptr; }

    [[nodiscard]] bool has(xcb_keycode_t key, xcb_keysym_t first, xcb_keysym_t second) const
    {
        const auto columns = std::size_t{m_reply->keysyms_per_keycode};
        const std::span all(xcb_get_keyboard_mapping_keysyms(m_reply.get()),
            static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(m_reply.get())));
        if (key < m_first || (key - m_first + std::size_t{1}) * columns > all.size())
            return false;
        const auto ofKey = all.subspan((key - m_first) * columns, columns);
        return std::ranges::any_of(ofKey, [&](xcb_keysym_t symbol) { return symbol == first || symbol == second; });
    }

private:
    XCBPointer<xcb_get_keyboard_mapping_reply_t> m_reply;
    std::size_t m_first = 0;
};

} // namespace

KeyboardMap::ModifierBits KeyboardMap::modifierBits(xcb_connection_t* connection)
{
    const XCBPointer<xcb_get_modifier_mapping_reply_t> mapping(
        xcb_get_modifier_mapping_reply(connection, xcb_get_modifier_mapping(connection), nullptr));
    const Symbols symbols(connection);
    ModifierBits bits;
    bits.locks.push_back(XCB_MOD_MASK_LOCK);
    if (!mapping || !symbols) {
        bits.super = XCB_MOD_MASK_4;
        bits.alt = XCB_MOD_MASK_1;
        bits.locks.push_back(XCB_MOD_MASK_2);
        return bits;
    }
    const auto perModifier = std::size_t{mapping->keycodes_per_modifier};
    const std::span keys(xcb_get_modifier_mapping_keycodes(mapping.get()), modifierCount * perModifier);
    for (std::size_t modifier = 3; modifier < modifierCount; ++modifier) { // Mod1 … Mod5; the others have fixed bits
        const auto bit = static_cast<std::uint16_t>(1U << modifier);
        const auto holds = [&](xcb_keysym_t first, xcb_keysym_t second) {
            return std::ranges::any_of(keys.subspan(modifier * perModifier, perModifier),
                [&](xcb_keycode_t key) { return key != 0 && symbols.has(key, first, second); });
        };
        if (bits.super == 0 && holds(superLeft, superRight))
            bits.super = bit;
        else if (bits.alt == 0 && holds(altLeft, altRight))
            bits.alt = bit;
        else if (holds(numLock, scrollLock))
            bits.locks.push_back(bit);
    }
    return bits;
}

std::optional<std::uint8_t> KeyboardMap::x11KeyCode(std::uint32_t keyCode)
{
    // Our numbers of the keys 1 2 3 4 5 6 7 8 9 0; the kernel counts them from 2 in this order.
    constexpr std::array<std::uint32_t, 10> digits{18, 19, 20, 21, 23, 22, 26, 28, 25, 29};
    const auto* const found = std::ranges::find(digits, keyCode);
    if (found == digits.end())
        return std::nullopt;
    return static_cast<std::uint8_t>(found - digits.begin() + 2 + 8);
}

QString KeyboardMap::label(xcb_connection_t* connection, std::uint8_t x11Key)
{
    constexpr int keyOfOne = 10; // the keys of 1 2 3 4 5 6 7 8 9 0 follow one another
    constexpr std::size_t levels = 2;
    const auto digit = QChar(u'0' + (x11Key - keyOfOne + 1) % 10);
    const XCBPointer<xcb_get_keyboard_mapping_reply_t> reply(
        xcb_get_keyboard_mapping_reply(connection, xcb_get_keyboard_mapping(connection, x11Key, 1), nullptr));
    if (!reply)
        return digit;
    const std::span all(xcb_get_keyboard_mapping_keysyms(reply.get()),
        static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(reply.get())));
    return labelFor(all.first(std::min(levels, all.size())), digit);
}

QString KeyboardMap::labelFor(std::span<const std::uint32_t> symbols, QChar digit)
{
    const auto gives = [digit](std::uint32_t symbol) {
        return KeySymbols::character(symbol) == digit.unicode();
    };
    if (symbols.empty() || std::ranges::any_of(symbols, gives))
        return digit;
    const char32_t printed = KeySymbols::character(symbols.front());
    return printed == 0 || QChar::isSpace(printed) ? QString(digit) : QString::fromUcs4(&printed, 1).toUpper();
}

std::vector<std::uint16_t> KeyboardMap::unions(const std::vector<std::uint16_t>& bits)
{
    std::vector<std::uint16_t> result{0};
    for (const std::uint16_t bit : bits) {
        const auto count = result.size();
        for (std::size_t i = 0; i < count; ++i)
            result.push_back(static_cast<std::uint16_t>(result[i] | bit));
    }
    return result;
}

} // namespace quillbox
