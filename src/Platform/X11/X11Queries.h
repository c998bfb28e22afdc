#pragma once

#include <string_view>

namespace quillbox {

/// What the rest of the program asks an X server beside capturing it, without knowing its protocol. Thread: main.
namespace X11Queries {

/// Makes sure that a display answers where DISPLAY says it is.
/// @throws DisplayError  NoDisplay
void checkDisplay();

/// Whether a program owns the selection of that name on the toolkit's display; false on another window system.
/// @see Inter-Client Communication Conventions Manual, "Manager Selections"
[[nodiscard]] bool isSelectionOwned(std::string_view name);

/// The same for the display that DISPLAY names, without the toolkit; may wait for the server. Thread: any.
/// @throws DisplayError  NoDisplay
[[nodiscard]] bool isSelectionOwnedOnDisplay(std::string_view name);

/// Returns once the server has carried out all that the toolkit has asked of it; at once on another window system.
void finishRequests();

} // namespace X11Queries
} // namespace quillbox
