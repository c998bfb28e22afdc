#pragma once

#include <string>
#include <string_view>

namespace quillbox {

/// How clips get onto the clipboard of this desktop, and why in this way.
struct ClipboardChoice {
    enum class BackEnd {
        X11,         ///< the CLIPBOARD selection of an X server
        DataControl, ///< a Wayland compositor that lets any program set the clipboard
        Toolkit,     ///< what the toolkit has
        None,        ///< not at all
    };

    BackEnd backEnd = BackEnd::None;
    std::string reason;      ///< a sentence for the user, without a full stop
    bool needsFocus = false; ///< whether one of our windows must have the keyboard while a clip is set
};

/// Chooses by what the session offers, or as QUILLBOX_CLIPBOARD_BACKEND says: x11, data-control, toolkit or none.
/// Works with and without the toolkit's application object; without, it goes by the environment. May ask the
/// compositor, for at most two seconds. Thread: any.
[[nodiscard]] ClipboardChoice chooseClipboard();

/// What QUILLBOX_CLIPBOARD_BACKEND calls it.
[[nodiscard]] std::string_view nameOf(ClipboardChoice::BackEnd backEnd);

} // namespace quillbox
