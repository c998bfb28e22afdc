#pragma once

#include "Capture/CaptureError.h"
#include "Platform/BackEndChoice.h"

namespace quillbox {

/// The ways to the screen.
enum class CaptureBackEnd {
    X11,
    Portal,
    None, ///< not at all
};

/// By the session that this process runs in, or as QUILLBOX_CAPTURE_BACKEND says: x11, portal or none. There is a
/// reason where it is none. Thread: any.
[[nodiscard]] BackEndChoice<CaptureBackEnd> chooseCapture();

/// Unavailable, with the reason for which there is no back end.
[[nodiscard]] CaptureError captureObstacle(const BackEndChoice<CaptureBackEnd>& choice);

} // namespace quillbox
