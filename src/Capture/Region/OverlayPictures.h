#pragma once

#include "Capture/CaptureGeometry.h"
#include "Capture/OverlayRemains.h"

#include <QPixmap>

namespace quillbox {

/// What a selection's overlay covers, and what it makes of that. Thread: main, of a program with a display.
namespace OverlayPictures {

/// Tells the overlay in pictures of a region that was dragged out on it.
/// @param backdrop  What the screen showed before, all of it, in its own pixels.
/// @param geometry  Of the region; its source lies within `backdrop`.
[[nodiscard]] OverlayRemains remainsOf(const RGBAFrame& backdrop, const CaptureGeometry& geometry);

/// The pixels of a picture that the toolkit has taken; its scale is left out.
[[nodiscard]] RGBAFrame frameOf(const QPixmap& picture);

} // namespace OverlayPictures
} // namespace quillbox
