#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillbox::reference {

/// The colour table size exponent for `count` colours, 1…8.
[[nodiscard]] int colorTableBits(std::int64_t count);

/// `palette` filled up with black, or cut, to 2^`colorTableBits` entries.
[[nodiscard]] std::vector<RGBColor> padPalette(std::span<const RGBColor> palette);

/// The whole file, byte after byte: what `GIFEncoder::encode` must equal for frames of valid size.
[[nodiscard]] Bytes gifEncode(std::span<const IndexedFrame> frames, std::int64_t loopCount = 0);

} // namespace quillbox::reference
