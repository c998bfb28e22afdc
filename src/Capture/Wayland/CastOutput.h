#pragma once

#include "Encoding/Pixels/PixelSize.h"

#include <QPoint>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace quillbox {

/// What the compositor tells of one of its outputs.
struct OutputFacts {
    std::optional<QPoint> position;  ///< of its top left corner, points
    std::optional<PixelSize> points; ///< what it shows, points
    PixelSize mode;                  ///< device pixels, before it is turned; 0 × 0: not told
};

/// What a portal tells of the output that it casts.
struct CastFacts {
    std::optional<QPoint> position; ///< points; some portals always say (0, 0)
    std::optional<PixelSize> size;  ///< points; some portals say pixels
};

/// Whether `points` may be the size in points of what `picture` shows: they have one shape, as far as sizes in whole
/// points can tell.
[[nodiscard]] bool isOfOneShape(PixelSize points, PixelSize picture);

/// The size in points of an output whose size is `said` to be that. Mutter says the pixels where it arranges outputs by
/// those, as GNOME does unless fractional scales are switched on; windows nevertheless have points.
/// @param pixels  Of the output, before or after it is turned.
/// @param scale   Pixels a point that the compositor asks windows for, at least 1.
[[nodiscard]] PixelSize pointsOfOutput(PixelSize said, PixelSize pixels, std::int64_t scale);

/// The size in points of the output that is cast, as far as that can be known: where several outputs fit alike that
/// differ in it, it is not.
/// @param picture  The size of the cast's upright picture, pixels; positive.
[[nodiscard]] std::optional<PixelSize> pointsOfCast(
    const CastFacts& cast, PixelSize picture, std::span<const OutputFacts> outputs);

/// Which of the outputs may be the one that is cast: several where they fit alike.
/// @param picture  As for pointsOfCast().
[[nodiscard]] std::vector<std::size_t> outputsOfCast(
    const CastFacts& cast, PixelSize picture, std::span<const OutputFacts> outputs);

} // namespace quillbox
