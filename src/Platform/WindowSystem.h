#pragma once

namespace quillbox {

enum class WindowSystem { X11, Wayland };

/// That of the session this process belongs to, by what its environment says; X11 where it says nothing. An X server on
/// a Wayland desktop does not count: it knows the X programs' windows and keys only. Thread: any.
[[nodiscard]] WindowSystem windowSystem();

} // namespace quillbox
