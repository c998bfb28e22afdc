#pragma once

#include <cstdint>

namespace quillbox {

/// Modifier keys of a hotkey as one mask. Stateless; thread: any.
namespace HotkeyMath {

inline constexpr std::uint32_t command = 256; ///< the Super key on this platform
inline constexpr std::uint32_t shift = 512;
inline constexpr std::uint32_t option = 2048; ///< the Alt key on this platform
inline constexpr std::uint32_t control = 4096;

/// Which of the keys are held; named so that a call reads well.
struct Modifiers {
    bool command = false;
    bool shift = false;
    bool option = false;
    bool control = false;
};

/// The masks of those that are held, or-ed.
[[nodiscard]] constexpr std::uint32_t carbonModifiers(Modifiers held)
{
    return (held.command ? command : 0) | (held.shift ? shift : 0) | (held.option ? option : 0)
        | (held.control ? control : 0);
}

/// The combination of this program: the physical "2" of the main block with the Super and Shift keys.
inline constexpr std::uint32_t defaultKeyCode = 19;
inline constexpr std::uint32_t defaultModifiers = carbonModifiers({.command = true, .shift = true});

} // namespace HotkeyMath
} // namespace quillbox
