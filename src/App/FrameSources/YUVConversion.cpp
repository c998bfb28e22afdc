#include "App/FrameSources/YUVConversion.h"

#include "Encoding/Multiversion.h"
#include "Encoding/Precondition.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>

namespace quillbox {
namespace {

struct Subsampling {
    int horizontal; ///< pixels that share a chroma sample, side by side
    int vertical;   ///< and one above the other
};

Subsampling factorsOf(ChromaSubsampling subsampling)
{
    switch (subsampling) {
    case ChromaSubsampling::yuv422:
        return {2, 1};
    case ChromaSubsampling::yuv420:
        return {2, 2};
    case ChromaSubsampling::yuv411:
        return {4, 1};
    case ChromaSubsampling::yuv444:
    case ChromaSubsampling::mono:
        break;
    }
    return {1, 1};
}

/// The matrix of BT.601 in 65536ths. For full range R = Y + 2(1 − 0.299)·Cr and so on; limited range stretches luma by
/// 255/219 and chroma by 255/224.
struct Matrix {
    std::int32_t black; ///< the luma of black
    std::int32_t luma;
    std::int32_t crToRed;
    std::int32_t cbToGreen;
    std::int32_t crToGreen;
    std::int32_t cbToBlue;
};
constexpr Matrix fullRange{0, 65536, 91881, -22554, -46802, 116130};
constexpr Matrix limitedRange{16, 76309, 104597, -25675, -53279, 132201};

constexpr std::int32_t half = 1 << 15;

/// One row whose chroma has been spread to the width of its luma.
QUILLBOX_MULTIVERSION
void convertRow(const std::uint8_t* __restrict luma, const std::uint8_t* __restrict cb,
    const std::uint8_t* __restrict cr, std::uint8_t* __restrict pixels, std::size_t width, Matrix matrix)
{
    static_assert(std::endian::native == std::endian::little, "a pixel's word has red in its lowest byte");
    for (std::size_t x = 0; x < width; ++x) {
        const std::int32_t y = (luma[x] - matrix.black) * matrix.luma + half;
        const std::int32_t u = cb[x] - 128;
        const std::int32_t v = cr[x] - 128;
        const auto red = std::clamp((y + v * matrix.crToRed) >> 16, 0, 255);
        const auto green = std::clamp((y + u * matrix.cbToGreen + v * matrix.crToGreen) >> 16, 0, 255);
        const auto blue = std::clamp((y + u * matrix.cbToBlue) >> 16, 0, 255);
        const auto pixel = 0xFF000000U | static_cast<std::uint32_t>(red | green << 8 | blue << 16);
        std::memcpy(pixels + x * 4, &pixel, sizeof pixel);
    }
}

/// Repeats each sample `Factor` times, up to `width` of them.
template <std::size_t Factor>
void spread(const std::uint8_t* __restrict samples, std::uint8_t* __restrict output, std::size_t width)
{
    const std::size_t whole = width / Factor;
    for (std::size_t i = 0; i < whole; ++i)
        for (std::size_t k = 0; k < Factor; ++k)
            output[i * Factor + k] = samples[i];
    for (std::size_t x = whole * Factor; x < width; ++x)
        output[x] = samples[whole];
}

} // namespace

PixelSize YUVConversion::chromaSize(PixelSize size, ChromaSubsampling subsampling)
{
    if (subsampling == ChromaSubsampling::mono)
        return {0, 0};
    const auto factors = factorsOf(subsampling);
    return {(size.width + factors.horizontal - 1) / factors.horizontal,
        (size.height + factors.vertical - 1) / factors.vertical};
}

std::int64_t YUVConversion::byteCount(PixelSize size, ChromaSubsampling subsampling)
{
    const auto chroma = chromaSize(size, subsampling);
    return checkedAdd(checkedMul(size.width, size.height), checkedMul(checkedMul(chroma.width, chroma.height), 2));
}

void YUVConversion::convert(std::span<const std::uint8_t> planes, PixelSize size, ChromaSubsampling subsampling,
    YUVRange range, std::span<std::uint8_t> pixels)
{
    precondition(std::ssize(planes) == byteCount(size, subsampling), "a picture has all of its planes");
    precondition(std::ssize(pixels) == checkedMul(checkedMul(size.width, size.height), 4), "four bytes per pixel");

    const auto width = static_cast<std::size_t>(size.width);
    const auto height = static_cast<std::size_t>(size.height);
    const auto chroma = chromaSize(size, subsampling);
    const auto chromaWidth = static_cast<std::size_t>(chroma.width);
    const std::uint8_t* const cbPlane = planes.data() + width * height;
    const std::uint8_t* const crPlane = cbPlane + chromaWidth * static_cast<std::size_t>(chroma.height);
    const auto factors = factorsOf(subsampling);

    Bytes spreadRows(width * 2, 128); // grey, unless there is chroma
    std::uint8_t* const cbRow = spreadRows.data();
    std::uint8_t* const crRow = cbRow + width;
    for (std::size_t row = 0; row < height; ++row) {
        const auto chromaStart = row / static_cast<std::size_t>(factors.vertical) * chromaWidth;
        const std::uint8_t* cb = cbRow;
        const std::uint8_t* cr = crRow;
        switch (subsampling) {
        case ChromaSubsampling::yuv444:
            cb = cbPlane + chromaStart;
            cr = crPlane + chromaStart;
            break;
        case ChromaSubsampling::yuv422:
        case ChromaSubsampling::yuv420:
            spread<2>(cbPlane + chromaStart, cbRow, width);
            spread<2>(crPlane + chromaStart, crRow, width);
            break;
        case ChromaSubsampling::yuv411:
            spread<4>(cbPlane + chromaStart, cbRow, width);
            spread<4>(crPlane + chromaStart, crRow, width);
            break;
        case ChromaSubsampling::mono:
            break;
        }
        convertRow(planes.data() + row * width, cb, cr, pixels.data() + row * width * 4, width,
            range == YUVRange::full ? fullRange : limitedRange);
    }
}

} // namespace quillbox
