#pragma once

#include "Encoding/FrameResampler.h"

#include <QPoint>

#include <optional>
#include <span>

namespace quillbox {

/// What the compositor tells of one of its outputs.
struct OutputFacts {
    std::optional<QPoint> position;             ///< of its top left corner, points
    std::optional<FrameResampler::Size> points; ///< what it shows, points
    FrameResampler::Size mode;                  ///< device pixels, before it is turned; 0 × 0: not told
};

/// What a portal tells of the output that it casts.
struct CastFacts {
    std::optional<QPoint> position;           ///< points; some portals always say (0, 0)
    std::optional<FrameResampler::Size> size; ///< points; some portals say pixels
};

/// The size in points of the output that is cast, as far as that can be known. Where a portal tells pixels and several
/// outputs have as many at different scales, it may be taken for the wrong one of those.
[[nodiscard]] std::optional<FrameResampler::Size> pointsOfCast(
    const CastFacts& cast, std::span<const OutputFacts> outputs);

} // namespace quillbox
