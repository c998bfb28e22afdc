#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <span>

namespace quillbox::LossyLZW {

/// The part of the screen that a picture overwrites.
struct Picture {
    std::int64_t width = 0;                     ///< pixels a row, positive
    std::span<const RGBColor> wanted = {};      ///< the source's colours, rows top-down; whole rows
    std::span<const RGBColor> colorTable = {};  ///< 1…256 colours
    std::span<const std::uint8_t> indices = {}; ///< the nearest of them for each pixel
    std::span<const RGBColor> shown = {};       ///< what the screen shows before; empty: every pixel has to be written
    std::span<const std::uint16_t> durations = {}; ///< how long each pixel stays, in any unit; empty: 1 for all
};

/// What errors may be made, and their price. The error of a pixel is the squared distance from its wanted colour (see
/// `RGBColor::distanceSquared`) beyond that of its nearest colour.
struct Loss {
    std::int64_t price = 0;    ///< of one unit of error for one unit of duration, in 1/65536 bit; 0…2^24
    std::int64_t maxError = 0; ///< of a pixel, 0…195075; 0 permits nothing but what looks the same
};

} // namespace quillbox::LossyLZW
