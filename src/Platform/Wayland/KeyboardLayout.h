#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quillbox {

/// What the keys give on the keyboard of a Wayland compositor, in the first of the user's layouts. Stateless.
namespace KeyboardLayout {

/// What a key gives together with Shift, as xkbcommon names it: "at" for the "2" of a US keyboard, "quotedbl" for that
/// of a German one. None without a compositor or a keyboard, and for a key that gives nothing. Thread: any; it waits
/// for the compositor, no longer than WaylandDisplay does.
/// @param keyCode  As keymaps count: 8 more than in the kernel's input-event-codes.h.
[[nodiscard]] std::optional<std::string> shiftedSymbol(std::uint32_t keyCode);

/// The same for a keymap in the text format of xkbcommon, version 1. Thread: any.
[[nodiscard]] std::optional<std::string> shiftedSymbolIn(const std::string& keymap, std::uint32_t keyCode);

/// What xkbcommon's name of a key's symbol stands for, UTF-8: "@" for "at"; empty where that is no text. Thread: any.
[[nodiscard]] std::string textOf(const std::string& symbol);

} // namespace KeyboardLayout
} // namespace quillbox
