#pragma once

#include "Encoding/FrameResampler.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace quillbox::reference {

/// (maxWidth ÷ width) × height in doubles, rounded half away from zero, at least 1.
[[nodiscard]] PixelSize fittedSize(std::int64_t width, std::int64_t height, std::int64_t maxWidth);

/// Each output pixel the truncated mean of its block of source pixels, walked anew for each of them.
[[nodiscard]] RGBAFrame boxFiltered(const RGBAFrame& frame, PixelSize size);

/// Every frame shrunk to the size fitted to the first one.
[[nodiscard]] std::vector<RGBAFrame> cappedToWidth(
    std::span<const RGBAFrame> frames, std::optional<std::int64_t> maxWidth);

} // namespace quillbox::reference
