#pragma once

#include "Encoding/Precise/Colors/ColorMoments.h"

#include <vector>

namespace quillbox::support {

/// One colour as a point of a cluster.
[[nodiscard]] inline ColorMoments point(RGBColor color, std::int64_t weight)
{
    return ColorMoments(WeightedColor{color, weight});
}

/// The colours of a picture, each weighted by how many pixels have it.
[[nodiscard]] inline std::vector<WeightedColor> countedColors(const RGBAFrame& picture)
{
    const PixelView pixels = picture.pixels();
    ColorCounts counts;
    counts.add({pixels.data(), pixels.size()}, 1);
    return counts.entries();
}

} // namespace quillbox::support
