#pragma once

#include "Encoding/Bytes.h"
#include "Encoding/Pixels/PixelSize.h"

#include <cstdint>
#include <span>

namespace quillbox {

/// How many pixels share one pair of chroma samples.
enum class ChromaSubsampling : std::uint8_t {
    yuv444, ///< one
    yuv422, ///< two side by side; the sample lies on the left one
    yuv420, ///< a square of four; `ChromaSiting` says where the sample lies
    yuv411, ///< four side by side; the sample lies on the leftmost one
    mono,   ///< no chroma at all
};

/// Where in its square of four pixels a chroma sample of 4:2:0 lies.
enum class ChromaSiting : std::uint8_t {
    center,  ///< in the middle, as in JPEG and MPEG-1
    left,    ///< between the two pixels on the left, as in MPEG-2 and what followed
    topLeft, ///< on the upper left pixel
};

/// Which levels mean black and white; of eight bits, and in proportion of more.
enum class YUVRange : std::uint8_t {
    limited, ///< luma 16…235, chroma 16…240
    full,    ///< 0…255
};

/// By which weights red, green and blue make up luma.
enum class YUVMatrix : std::uint8_t {
    bt601,  ///< standard definition: 0.299, 0.587, 0.114
    bt709,  ///< high definition: 0.2126, 0.7152, 0.0722
    bt2020, ///< ultra high definition, non-constant luminance: 0.2627, 0.678, 0.0593
};

/// How the pictures of a stream are stored: the planes Y, Cb, Cr and perhaps alpha one after another, without padding.
struct YUVFormat {
    ChromaSubsampling subsampling = ChromaSubsampling::yuv420;
    ChromaSiting siting = ChromaSiting::center;
    int bitDepth = 8;      ///< 8…16; samples of more than 8 bits are two bytes, the low one first
    bool hasAlpha = false; ///< a plane of luma's size, always of full range
    YUVRange range = YUVRange::limited;
    YUVMatrix matrix = YUVMatrix::bt601;

    friend bool operator==(const YUVFormat&, const YUVFormat&) = default;
};

/// Turns planar YUV pictures into RGBA. Stateless; thread: any.
/// @see ITU-R BT.601, BT.709 and BT.2020; ITU-T H.273, section 8.3, for all three matrices and both ranges.
namespace YUVConversion {

/// Size of each of the two chroma planes: odd sizes are rounded up; 0×0 for `mono`.
[[nodiscard]] PixelSize chromaSize(PixelSize size, ChromaSubsampling subsampling);

/// Bytes of one picture. @pre both sides are in 0…65535.
[[nodiscard]] std::int64_t byteCount(PixelSize size, const YUVFormat& format);

/// Converts one picture. Chroma is interpolated linearly between the samples nearest to each pixel, and continues
/// beyond the outermost ones. Every channel is within one level of the exact value of the formula. Without a plane of
/// its own alpha is 255; colours are not mixed with it.
/// @param planes  `byteCount` bytes.
/// @param pixels  Where the RGBA pixels go: four bytes for each pixel of `size`.
/// @pre the sizes match.
void convert(
    std::span<const std::uint8_t> planes, PixelSize size, const YUVFormat& format, std::span<std::uint8_t> pixels);

} // namespace YUVConversion
} // namespace quillbox
