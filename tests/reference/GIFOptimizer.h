#pragma once

#include "Encoding/GIFOptimizer.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillbox::reference {

/// The outcome of the plain optimizer, together with the frames that its file holds.
struct OptimizedClip {
    GIFOptimizer::Result result;
    std::vector<IndexedFrame> frames;
    std::vector<std::int64_t> attemptedColors; ///< the palette sizes that were tried, in order
};

/// The whole pipeline out of the plain pieces of this folder: what `GIFOptimizer::optimize` must equal.
/// @throws GIFEncodingError  a side of a frame is outside 0…65535.
[[nodiscard]] OptimizedClip optimize(std::span<const RGBAFrame> frames, const GIFOptimizer::Config& config);

/// The attempt with a palette of `colors`, whatever size its file has.
[[nodiscard]] OptimizedClip attempt(
    std::span<const RGBAFrame> frames, const GIFOptimizer::Config& config, std::int64_t colors);

} // namespace quillbox::reference
