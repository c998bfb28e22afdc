#pragma once

#include "Platform/BackEndChoice.h"

namespace quillbox {

/// How clips get onto the clipboard of this desktop.
enum class ClipboardBackEnd {
    X11,            ///< the CLIPBOARD selection of an X server
    DataControl,    ///< a Wayland compositor that lets any program set the clipboard
    Toolkit,        ///< what the toolkit has
    FocusedToolkit, ///< the same, while one of our windows has the keyboard
    None,           ///< not at all
};

/// Chooses by what the session offers, or as QUILLBOX_CLIPBOARD_BACKEND says: x11, data-control, toolkit or none. There
/// is always a reason. Works with and without the toolkit's application object; without, it goes by the environment.
/// May ask the compositor, for at most two seconds. Thread: any.
[[nodiscard]] BackEndChoice<ClipboardBackEnd> chooseClipboard();

} // namespace quillbox
