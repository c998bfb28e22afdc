#pragma once

#include <cstdint>
#include <optional>
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

/// Every union of some of `bits`, the empty one first.
[[nodiscard]] std::vector<std::uint16_t> unions(const std::vector<std::uint16_t>& bits);

} // namespace KeyboardMap
} // namespace quillbox
