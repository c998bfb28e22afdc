#pragma once

#include "Platform/CaptureError.h"

namespace quillbox {

/// The ways to the screen.
enum class CaptureBackend {
    X11,
    Portal,
    None,    ///< switched off
    Unknown, ///< asked for by a name that there is none of
};

/// The way that fits the session this process runs in; alone decides that. The environment variable
/// QUILLBOX_CAPTURE_BACKEND overrides the choice: "x11", "portal" or "none".
[[nodiscard]] CaptureBackend captureBackend();

/// Why `None` or `Unknown` shows no screen. @pre `backend` is one of the two.
[[nodiscard]] CaptureError captureObstacle(CaptureBackend backend);

} // namespace quillbox
