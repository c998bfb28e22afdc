#pragma once

#include "Capture/CaptureRegion.h"

#include <QRect>

class QScreen;

namespace quillbox {

/// Where a region of the main screen lies on the desktop, points. Thread: main.
[[nodiscard]] QRect placeOf(const CaptureRegion& region);

/// Where a region of `screen` lies on a Wayland desktop, in the compositor's points, which are not the toolkit's where
/// that has a scale of its own. May ask the compositor, and wait for it.
[[nodiscard]] QRect placeOn(const QScreen& screen, const CaptureRegion& region);

} // namespace quillbox
