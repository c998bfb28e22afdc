#pragma once

#include "Capture/CaptureRegion.h"

namespace quillbox {

/// The geometry that turns a drag of the mouse into a region. Stateless; thread: any.
namespace RegionMath {

/// A position in points, origin at the top-left corner, y growing downward.
struct Point {
    double x = 0;
    double y = 0;
};

/// The extent of the screen in points.
struct Size {
    double width = 0;
    double height = 0;
};

/// The rectangle between two corners, whichever way they were dragged: cut to 0…`bounds`, each of x, y, width and
/// height rounded to the nearest integer (halves away from zero; the extents after the subtraction), width and
/// height at least 1.
/// A corner may be infinitely far away: the cut takes it to the edge.
/// @pre No argument is NaN, and every value to be rounded is finite and fits std::int64_t; a violation ends the
/// process.
[[nodiscard]] CaptureRegion rect(Point from, Point to, Size bounds);

} // namespace RegionMath
} // namespace quillbox
