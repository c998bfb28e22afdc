#pragma once

#include "App/Hotkey/HotkeyService.h"
#include "Platform/BackEndChoice.h"

#include <memory>

namespace quillbox {

enum class HotkeyBackEnd { X11, Portal, None };

/// Which service is for the session that this process belongs to; alone asks what the session is: on Wayland the
/// desktop portal, else the X server. The environment variable QUILLBOX_HOTKEY_BACKEND overrides the choice: "x11",
/// "portal" or "none".
[[nodiscard]] BackEndChoice<HotkeyBackEnd> chooseHotkey();

/// The chosen service; one that is never available where there is none.
[[nodiscard]] std::unique_ptr<HotkeyService> makeHotkeyService();

} // namespace quillbox
