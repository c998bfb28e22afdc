#pragma once

#include "Capture/CaptureRegion.h"

#include <QRect>

namespace quillbox {

/// Where a region of the main screen lies on the desktop, points. Thread: main.
[[nodiscard]] QRect placeOf(const CaptureRegion& region);

} // namespace quillbox
