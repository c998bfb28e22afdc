#pragma once

#include <QChar>
#include <QString>

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

struct xcb_connection_t;

namespace quillbox {

/// What the X server's keyboard calls its keys. Stateless; thread: the connection's.
namespace KeyboardMap {

/// Modifier bits of the core protocol (Shift 1, Lock 2, Control 4, Mod1 8 … Mod5 128).
struct ModifierBits {
    std::uint16_t super = 0; ///< 0 where no modifier is a Super key
    std::uint16_t alt = 0;
    std::vector<std::uint16_t> locks; ///< those that only lock something; Caps Lock first
};

/// Asks the server; without an answer, the bits that every usual keyboard has.
[[nodiscard]] ModifierBits modifierBits(xcb_connection_t* connection);

/// The X key code of the physical key that is number `keyCode` where ours are counted; none for a key that has no
/// counterpart here. Only the digits of the main block are known.
/// @see The evdev key codes of the Linux kernel (input-event-codes.h); an X key code is 8 more.
[[nodiscard]] std::optional<std::uint8_t> x11KeyCode(std::uint32_t keyCode);

/// What is printed on a key of the main block's digits, as far as the server's first layout tells: see `labelFor`. Asks
/// the server; without an answer, the digit.
[[nodiscard]] QString label(xcb_connection_t* connection, std::uint8_t x11Key);

/// The digit, where the key gives it with or without Shift; otherwise what it gives without Shift, as a capital letter;
/// the digit as well where that is nothing that can be printed.
/// @param symbols  What the key gives without Shift and with Shift: key symbols of the X protocol, appendix A.
[[nodiscard]] QString labelFor(std::span<const std::uint32_t> symbols, QChar digit);

/// Every union of some of `bits`, the empty one first.
[[nodiscard]] std::vector<std::uint16_t> unions(const std::vector<std::uint16_t>& bits);

} // namespace KeyboardMap
} // namespace quillbox
