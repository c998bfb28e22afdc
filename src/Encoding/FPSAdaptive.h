#pragma once

#include "Encoding/Parallel.h"
#include "Encoding/PixelTypes.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillbox {

/// Measures how much a recording moves and lowers its frame rate. Stateless; thread: any.
namespace FPSAdaptive {

/// Mean share of changed pixels between consecutive frames, 0.0…1.0; fewer than two frames give 0.0.
/// The shares are added in frame order, so the sum doesn't depend on the number of threads.
[[nodiscard]] double averageActivity(std::span<const RGBAFrame> frames, Parallelism parallelism = {});

/// The frames at floor(0), floor(step), floor(2·step), … with step = sourceFPS ÷ targetFPS summed in doubles.
/// Rates below 1, or a target at or above the source, return all frames. Pixels are shared.
[[nodiscard]] std::vector<RGBAFrame> resample(
    std::span<const RGBAFrame> frames, std::int64_t sourceFPS, std::int64_t targetFPS);

} // namespace FPSAdaptive
} // namespace quillbox
