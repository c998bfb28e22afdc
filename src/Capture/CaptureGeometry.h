#pragma once

#include "Capture/CaptureRegion.h"
#include "Encoding/Pixels/PixelSize.h"
#include "Encoding/Pixels/PixelTypes.h"
#include "Platform/PixelRect.h"

#include <optional>

namespace quillbox {

/// Which device pixels make the frames of a region.
struct CaptureGeometry {
    PixelRect source; ///< what to grab, in the coordinates of the display's rectangle
    PixelSize output; ///< the frames' size: one pixel a point

    friend bool operator==(const CaptureGeometry&, const CaptureGeometry&) = default;
};

/// Device pixels a point, along each axis.
struct PointScale {
    double x = 1;
    double y = 1;
};

/// The scale of a display that has so many pixels and points. @pre Both at least 1 × 1.
[[nodiscard]] PointScale scaleOf(PixelSize pixels, PixelSize points);

/// The device pixels of `region`, edges rounded to the nearest, at least one; also of what lies beside the display.
[[nodiscard]] PixelRect devicePixelsOf(CaptureRegion region, PointScale scale);

/// The size of `display` in points, rounded, at least 1 × 1.
/// @param scale  Device pixels a point, above 0.
[[nodiscard]] PixelSize sizeInPoints(PixelRect display, double scale);

/// Cuts `region` to the display and finds its device pixels, edges rounded to the nearest pixel; at least one pixel.
/// @param display  The main display, in device pixels of the whole screen.
/// @param scale    Device pixels a point, above 0.
/// @return Nothing if no part of the region lies on the display.
[[nodiscard]] std::optional<CaptureGeometry> captureGeometry(CaptureRegion region, PixelRect display, double scale);

/// The same where the two axes may have scales of their own: the ratio of the display's device pixels to its points.
/// @param points  The display's size in points, at least 1 × 1.
[[nodiscard]] std::optional<CaptureGeometry> captureGeometry(CaptureRegion region, PixelRect display, PixelSize points);

/// `frame` at `size`: shrunk with a box filter, or, where a side must grow, by repeating the nearest pixel. A frame
/// that has the size already is passed on with its pixels shared.
/// @pre Both sizes at least 1 × 1.
[[nodiscard]] RGBAFrame scaledTo(const RGBAFrame& frame, PixelSize size);

} // namespace quillbox
