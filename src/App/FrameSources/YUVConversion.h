#pragma once

#include "Encoding/Bytes.h"
#include "Encoding/PixelSize.h"

#include <cstdint>
#include <span>

namespace quillbox {

/// How many pixels share one pair of chroma samples.
enum class ChromaSubsampling : std::uint8_t {
    yuv444, ///< one
    yuv422, ///< two side by side
    yuv420, ///< a square of four
    yuv411, ///< four side by side
    mono,   ///< no chroma at all
};

/// Which levels mean black and white.
enum class YUVRange : std::uint8_t {
    limited, ///< luma 16…235, chroma 16…240
    full,    ///< 0…255
};

/// Turns 8-bit planar YUV pictures into RGBA. Stateless; thread: any.
/// @see ITU-R BT.601, section 2.5: the matrix for luma weights 0.299, 0.587 and 0.114.
namespace YUVConversion {

/// Size of each of the two chroma planes: odd sizes are rounded up; 0×0 for `mono`.
[[nodiscard]] PixelSize chromaSize(PixelSize size, ChromaSubsampling subsampling);

/// Bytes of one picture: the luma plane, then both chroma planes, without padding.
/// @pre both sides are in 0…65535.
[[nodiscard]] std::int64_t byteCount(PixelSize size, ChromaSubsampling subsampling);

/// Converts one picture, each chroma sample standing for all the pixels that share it; alpha is 255.
/// Every channel is within one level of the exact value of the formula.
/// @param planes  Y, Cb, Cr: `byteCount` bytes.
/// @param pixels  Where the RGBA pixels go: four bytes for each pixel of `size`.
/// @pre the sizes match.
void convert(std::span<const std::uint8_t> planes, PixelSize size, ChromaSubsampling subsampling, YUVRange range,
    std::span<std::uint8_t> pixels);

} // namespace YUVConversion
} // namespace quillbox
