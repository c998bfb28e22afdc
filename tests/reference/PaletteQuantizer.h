#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <map>
#include <span>
#include <vector>

namespace quillbox::reference {

/// Occurrences of each 15-bit colour, by its key red·1024 + green·32 + blue of five bits each.
using Histogram = std::map<int, std::int64_t>;

/// Top five bits kept, low three filled with the top three, channel by channel.
[[nodiscard]] RGBColor reduceTo15Bit(RGBColor color);

/// The key of a colour in `Histogram`, 0…32767.
[[nodiscard]] int keyOf(RGBColor color);

/// The colour of the 15-bit grid that `key` stands for.
[[nodiscard]] RGBColor gridColor(int key);

/// Counts every pixel of every frame.
[[nodiscard]] Histogram histogram(std::span<const RGBAFrame> frames);

/// Median cut with plain lists and stable sorts: what `PaletteQuantizer::quantize` must equal.
[[nodiscard]] std::vector<RGBColor> quantize(const Histogram& histogram, std::int64_t maxColors);

} // namespace quillbox::reference
