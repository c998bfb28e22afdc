#include "App/FrameSources/Y4M/YUVConversion.h"

#include "Encoding/Multiversion.h"
#include "Encoding/Precondition.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <vector>

namespace quillbox {
namespace {

static_assert(std::endian::native == std::endian::little, "as the samples are, and red in a pixel's lowest byte");

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

/// All samples are brought to this many bits first, so that the mean of sixteen 8-bit samples is exact.
constexpr int workingBits = 12;
using Sample = std::uint16_t; ///< of `workingBits`
constexpr Sample neutralChroma = 1 << (workingBits - 1);

constexpr int matrixBits = 20; ///< of the factors' fractions

/// R = (Y − black) · luma + (Cr − neutral) · crToRed and so on, in 2^20ths.
struct Matrix {
    std::int32_t black; ///< the luma of black
    std::int32_t luma;
    std::int32_t crToRed;
    std::int32_t cbToGreen;
    std::int32_t crToGreen;
    std::int32_t cbToBlue;
};

Matrix matrixFor(const YUVFormat& format)
{
    double red = 0.299;
    double blue = 0.114;
    if (format.matrix == YUVMatrix::bt709) {
        red = 0.2126;
        blue = 0.0722;
    } else if (format.matrix == YUVMatrix::bt2020) {
        red = 0.2627;
        blue = 0.0593;
    }
    const double green = 1 - red - blue;
    const bool isLimited = format.range == YUVRange::limited;
    constexpr double unit = 1 << (workingBits - 8); // a level of eight bits
    const double fullSpan = std::ldexp(std::ldexp(1, format.bitDepth) - 1, workingBits - format.bitDepth);
    const double lumaFactor = std::ldexp(255 / (isLimited ? 219 * unit : fullSpan), matrixBits);
    const double chromaFactor = std::ldexp(255 / (isLimited ? 224 * unit : fullSpan), matrixBits);
    const auto rounded = [](double factor) {
        return static_cast<std::int32_t>(std::lround(factor));
    };
    return {.black = isLimited ? rounded(16 * unit) : 0,
        .luma = rounded(lumaFactor),
        .crToRed = rounded(2 * (1 - red) * chromaFactor),
        .cbToGreen = rounded(-2 * (1 - blue) * blue / green * chromaFactor),
        .crToGreen = rounded(-2 * (1 - red) * red / green * chromaFactor),
        .cbToBlue = rounded(2 * (1 - blue) * chromaFactor)};
}

/// One row whose chroma has been spread to the width of its luma.
QUILLBOX_MULTIVERSION
void convertRow(const Sample* __restrict luma, const Sample* __restrict cb, const Sample* __restrict cr,
    std::uint8_t* __restrict pixels, std::size_t width, Matrix matrix)
{
    constexpr std::int32_t half = 1 << (matrixBits - 1);
    for (std::size_t x = 0; x < width; ++x) {
        const std::int32_t y = (luma[x] - matrix.black) * matrix.luma + half;
        const std::int32_t u = cb[x] - neutralChroma;
        const std::int32_t v = cr[x] - neutralChroma;
        const auto red = std::clamp((y + v * matrix.crToRed) >> matrixBits, 0, 255);
        const auto green = std::clamp((y + u * matrix.cbToGreen + v * matrix.crToGreen) >> matrixBits, 0, 255);
        const auto blue = std::clamp((y + u * matrix.cbToBlue) >> matrixBits, 0, 255);
        const auto pixel = 0xFF000000U | static_cast<std::uint32_t>(red | green << 8 | blue << 16);
        std::memcpy(pixels + x * 4, &pixel, sizeof pixel);
    }
}

QUILLBOX_MULTIVERSION
void widenBytes(const std::uint8_t* __restrict samples, Sample* __restrict output, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        output[i] = static_cast<Sample>(samples[i] << (workingBits - 8));
}

/// Samples of two bytes. What exceeds the depth counts as its largest value.
QUILLBOX_MULTIVERSION
void widenWords(const std::uint8_t* __restrict samples, Sample* __restrict output, std::size_t count, int bitDepth)
{
    const std::uint32_t largest = (1U << static_cast<unsigned>(bitDepth)) - 1;
    const int up = std::max(workingBits - bitDepth, 0);
    const int down = std::max(bitDepth - workingBits, 0);
    for (std::size_t i = 0; i < count; ++i) {
        std::uint16_t sample = 0;
        std::memcpy(&sample, samples + i * 2, sizeof sample);
        output[i] = static_cast<Sample>((std::min<std::uint32_t>(sample, largest) << up) >> down);
    }
}

/// (3·near + far) ÷ 4, or with equal weights the mean.
QUILLBOX_MULTIVERSION
void mix(const Sample* __restrict near, const Sample* __restrict far, Sample* __restrict output, std::size_t count,
    int nearWeight)
{
    for (std::size_t i = 0; i < count; ++i)
        output[i] = static_cast<Sample>((near[i] * nearWeight + far[i] * (4 - nearWeight) + 2) >> 2);
}

/// Spreads samples that lie in the middle of two pixels. `samples[-1]` and `samples[count]` can be read.
QUILLBOX_MULTIVERSION
void spreadFromMiddle(const Sample* __restrict samples, Sample* __restrict output, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        const int here = samples[i] * 3 + 2;
        output[2 * i] = static_cast<Sample>((here + *(samples + i - 1)) >> 2);
        output[2 * i + 1] = static_cast<Sample>((here + samples[i + 1]) >> 2);
    }
}

/// Spreads samples that lie on the leftmost of `Factor` pixels. `samples[count]` can be read.
template <int Factor>
void spreadFromLeft(const Sample* __restrict samples, Sample* __restrict output, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        for (int k = 0; k < Factor; ++k) {
            output[i * Factor + static_cast<std::size_t>(k)]
                = static_cast<Sample>((samples[i] * (Factor - k) + samples[i + 1] * k + Factor / 2) / Factor);
        }
    }
}

/// One plane of a picture, whose rows come out in `workingBits`.
struct Plane {
    const std::uint8_t* bytes;
    std::size_t width;
    std::size_t height;
    int bitDepth;

    void row(std::size_t y, Sample* output) const
    {
        if (bitDepth == 8)
            widenBytes(bytes + y * width, output, width);
        else
            widenWords(bytes + y * width * 2, output, width, bitDepth);
    }
};

/// Chroma at every pixel of a row.
class ChromaRows {
public:
    ChromaRows(Plane plane, const YUVFormat& format)
        : m_plane(plane)
        , m_format(format)
        , m_factors(factorsOf(format.subsampling))
        , m_near(plane.width + 2)
        , m_far(plane.width)
        , m_spread((plane.width + 1) * static_cast<std::size_t>(m_factors.horizontal))
    {
    }

    /// Of pixel row `y`; valid until the next call.
    const Sample* row(std::size_t y)
    {
        Sample* const samples = m_near.data() + 1; // with room for a neighbour at either end
        readRow(y, samples);
        samples[-1] = samples[0]; // NOLINT(clang-analyzer-*): one place in
        samples[m_plane.width] = samples[m_plane.width - 1];
        if (m_factors.horizontal == 1)
            return samples;
        if (m_factors.horizontal == 4)
            spreadFromLeft<4>(samples, m_spread.data(), m_plane.width);
        else if (m_format.subsampling == ChromaSubsampling::yuv420 && m_format.siting == ChromaSiting::center)
            spreadFromMiddle(samples, m_spread.data(), m_plane.width);
        else
            spreadFromLeft<2>(samples, m_spread.data(), m_plane.width);
        return m_spread.data();
    }

private:
    /// The samples at the height of pixel row `y`.
    void readRow(std::size_t y, Sample* output)
    {
        if (m_factors.vertical == 1)
            return m_plane.row(y, output);
        const bool isTop = m_format.siting == ChromaSiting::topLeft;
        const std::size_t near = y / 2;
        const bool isUpper = y % 2 == 0;
        const std::size_t last = m_plane.height - 1;
        const std::size_t far = isUpper ? near - std::min<std::size_t>(near, 1) : std::min(near + 1, last);
        if (near == far || (isTop && isUpper))
            return m_plane.row(near, output);
        m_nearRow.resize(m_plane.width);
        m_plane.row(near, m_nearRow.data());
        m_plane.row(far, m_far.data());
        mix(m_nearRow.data(), m_far.data(), output, m_plane.width, isTop ? 2 : 3);
    }

    Plane m_plane;
    YUVFormat m_format;
    Subsampling m_factors;
    std::vector<Sample> m_near;
    std::vector<Sample> m_nearRow;
    std::vector<Sample> m_far;
    std::vector<Sample> m_spread;
};

void putAlpha(const Plane& plane, std::size_t y, std::uint8_t* pixels)
{
    const auto largest = (std::uint32_t{1} << static_cast<unsigned>(plane.bitDepth)) - 1;
    for (std::size_t x = 0; x < plane.width; ++x) {
        std::uint32_t alpha = 0;
        if (plane.bitDepth == 8)
            alpha = plane.bytes[y * plane.width + x];
        else
            std::memcpy(&alpha, plane.bytes + (y * plane.width + x) * 2, 2);
        pixels[x * 4 + 3] = static_cast<std::uint8_t>((std::min(alpha, largest) * 255 + largest / 2) / largest);
    }
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

std::int64_t YUVConversion::byteCount(PixelSize size, const YUVFormat& format)
{
    const auto chroma = chromaSize(size, format.subsampling);
    const std::int64_t pixels = checkedMul(size.width, size.height);
    const std::int64_t samples = checkedAdd(
        checkedMul(pixels, format.hasAlpha ? 2 : 1), checkedMul(checkedMul(chroma.width, chroma.height), 2));
    return checkedMul(samples, format.bitDepth > 8 ? 2 : 1);
}

void YUVConversion::convert(
    std::span<const std::uint8_t> planes, PixelSize size, const YUVFormat& format, std::span<std::uint8_t> pixels)
{
    precondition(format.bitDepth >= 8 && format.bitDepth <= 16, "a sample has 8 to 16 bits");
    precondition(std::ssize(planes) == byteCount(size, format), "a picture has all of its planes");
    precondition(std::ssize(pixels) == checkedMul(checkedMul(size.width, size.height), 4), "four bytes per pixel");

    const auto width = static_cast<std::size_t>(size.width);
    const auto height = static_cast<std::size_t>(size.height);
    const auto chroma = chromaSize(size, format.subsampling);
    const auto chromaWidth = static_cast<std::size_t>(chroma.width);
    const auto chromaHeight = static_cast<std::size_t>(chroma.height);
    const std::size_t sampleBytes = format.bitDepth > 8 ? 2 : 1;
    const Plane luma{planes.data(), width, height, format.bitDepth};
    const Plane cb{luma.bytes + width * height * sampleBytes, chromaWidth, chromaHeight, format.bitDepth};
    const Plane cr{cb.bytes + chromaWidth * chromaHeight * sampleBytes, chromaWidth, chromaHeight, format.bitDepth};
    const Plane alpha{cr.bytes + chromaWidth * chromaHeight * sampleBytes, width, height, format.bitDepth};

    const bool hasChroma = format.subsampling != ChromaSubsampling::mono;
    const std::vector<Sample> gray(hasChroma ? 0 : width, neutralChroma);
    ChromaRows cbRows(cb, format);
    ChromaRows crRows(cr, format);
    const Matrix matrix = matrixFor(format);
    std::vector<Sample> lumaRow(width);
    for (std::size_t y = 0; y < height; ++y) {
        luma.row(y, lumaRow.data());
        const Sample* const cbRow = hasChroma ? cbRows.row(y) : gray.data();
        const Sample* const crRow = hasChroma ? crRows.row(y) : gray.data();
        std::uint8_t* const row = pixels.data() + y * width * 4;
        convertRow(lumaRow.data(), cbRow, crRow, row, width, matrix);
        if (format.hasAlpha)
            putAlpha(alpha, y, row);
    }
}

} // namespace quillbox
