#pragma once

#include "Capture/CaptureRegion.h"
#include "Capture/Region/RegionMath.h"

#include <cstdint>
#include <optional>

namespace quillbox {

/// What a drag on the overlay asks for. Stateless; thread: any.
namespace SelectionGeometry {

/// The smallest side, in points, that is still meant as a selection rather than as a click.
inline constexpr std::int64_t minimumSide = 5;

/// The region between press and release; none when it is less than `minimumSide` wide or high after rounding.
/// @param from,to  Points of the main display, origin at its top-left corner.  @param screen  Its extent in points.
[[nodiscard]] std::optional<CaptureRegion> selected(
    RegionMath::Point from, RegionMath::Point to, RegionMath::Size screen);

} // namespace SelectionGeometry
} // namespace quillbox
