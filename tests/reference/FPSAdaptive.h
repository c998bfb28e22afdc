#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillbox::reference {

/// The in-order sum of the changes between consecutive frames, divided once.
[[nodiscard]] double averageActivity(std::span<const RGBAFrame> frames);

/// Walks all frames and takes one whenever the summed step says so.
[[nodiscard]] std::vector<RGBAFrame> resample(
    std::span<const RGBAFrame> frames, std::int64_t sourceFPS, std::int64_t targetFPS);

} // namespace quillbox::reference
