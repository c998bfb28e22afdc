#pragma once

#include <string>

namespace quillbox {

enum class WindowSystem {
    X11,
    Wayland,
    Other, ///< one of the toolkit's own, such as "offscreen"
    None,  ///< there is no display
};

/// That of the session this process belongs to, by what its environment says. An X server on a Wayland desktop does not
/// count: it knows the X programs' windows and keys only. Never Other. Thread: any.
[[nodiscard]] WindowSystem sessionWindowSystem();

/// What the toolkit shows windows on, or would: it may be made to use the X server of a Wayland desktop. Works with and
/// without the toolkit's application object; without, it goes by the environment. Thread: any.
[[nodiscard]] WindowSystem toolkitWindowSystem();

/// The same as the toolkit calls it, such as "xcb"; empty where there is none. Thread: any.
[[nodiscard]] std::string toolkitPlatform();

/// Whether the toolkit, once it begins, ends the process if no X server answers. Thread: any.
[[nodiscard]] bool toolkitNeedsX11();

} // namespace quillbox
