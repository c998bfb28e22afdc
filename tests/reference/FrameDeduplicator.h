#pragma once

#include "Encoding/FrameDeduplicator.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillbox::reference {

/// The share of pixels whose squared distance exceeds `tolerance`, looked at one by one.
[[nodiscard]] double fractionChanged(const RGBAFrame& a, const RGBAFrame& b, std::int64_t tolerance);

/// Compares every frame with the last one kept: what `FrameDeduplicator::deduplicate` must equal.
[[nodiscard]] std::vector<FrameDeduplicator::Timed> deduplicate(
    std::span<const RGBAFrame> frames, std::int64_t perFrameDelayCentiseconds, double changeThreshold);

} // namespace quillbox::reference
