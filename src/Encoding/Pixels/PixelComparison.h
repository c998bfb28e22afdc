#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>

namespace quillbox {

/// How much two pictures differ. Stateless; thread: any.
namespace FrameDeduplicator {

/// The tolerance that all of Quillbox uses: a squared RGB distance, so 4 in one channel is a change.
inline constexpr std::int64_t defaultPerPixelTolerance = 12;

/// Pixels of `a` whose squared RGB distance to the same pixel of `b` exceeds `perPixelTolerance`.
/// Frames that share their pixels cost nothing.  @pre same size.
[[nodiscard]] std::int64_t changedPixels(const RGBAFrame& a, const RGBAFrame& b, std::int64_t perPixelTolerance);

/// `changedPixels` as a share of all pixels, 0.0…1.0. Frames of different size, or without pixels, give 1.0.
[[nodiscard]] double fractionChanged(const RGBAFrame& a, const RGBAFrame& b, std::int64_t perPixelTolerance);

/// Whether `fractionChanged` exceeds `threshold` (a share, 0…1). Looks no further than that takes.
[[nodiscard]] bool changesMoreThan(
    const RGBAFrame& a, const RGBAFrame& b, std::int64_t perPixelTolerance, double threshold);

} // namespace FrameDeduplicator
} // namespace quillbox
