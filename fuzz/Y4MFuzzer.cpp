#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/Y4M/Y4MHeader.h"
#include "App/FrameSources/Y4M/Y4MReader.h"
#include "Encoding/Precondition.h"
#include "support/MemoryByteSource.h"
#include "support/SourceClip.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <span>
#include <string>
#include <string_view>

using namespace quillbox;
using support::MemoryByteSource;
using support::SourceClip;

namespace {

/// Like a slow pipe: a few bytes at a time, and nobody knows how many follow.
class Trickle final : public ByteSource {
public:
    explicit Trickle(std::span<const std::uint8_t> bytes)
        : ByteSource("input")
        , m_bytes(bytes)
    {
    }

private:
    std::size_t readSome(std::span<std::uint8_t> into) override
    {
        const auto count = std::min({into.size(), m_bytes.size(), m_step});
        m_step = m_step % 5 + 1;
        std::copy_n(m_bytes.begin(), count, into.begin());
        m_bytes = m_bytes.subspan(count);
        return count;
    }
    std::optional<std::int64_t> remainingBelow() const override { return std::nullopt; }

    std::span<const std::uint8_t> m_bytes;
    std::size_t m_step = 1;
};

struct Outcome {
    std::optional<SourceClip> clip;
    std::string error;
};

Outcome read(ByteSource& source)
{
    try {
        SourceClip clip;
        Y4MReader::read(source, {}, clip);
        return {std::move(clip), {}};
    } catch (const FrameReadError& error) {
        return {std::nullopt, error.what()};
    }
}

/// One plane in doubles, in levels of eight bits of limited range, or of 0…255.
class PlainPlane {
public:
    PlainPlane(const std::uint8_t* bytes, PixelSize size, int bitDepth, bool isScaled)
        : m_bytes(bytes)
        , m_size(size)
        , m_bitDepth(bitDepth)
        , m_unit(isScaled ? (std::ldexp(1, bitDepth) - 1) / 255 : std::ldexp(1, bitDepth - 8))
    {
    }
    [[nodiscard]] double at(std::int64_t x, std::int64_t y) const
    {
        const auto place = std::clamp<std::int64_t>(y, 0, m_size.height - 1) * m_size.width
            + std::clamp<std::int64_t>(x, 0, m_size.width - 1);
        const int sample = m_bitDepth == 8 ? m_bytes[place] : m_bytes[place * 2] + 256 * m_bytes[place * 2 + 1];
        return std::min(sample, (1 << m_bitDepth) - 1) / m_unit;
    }
    /// Between samples, linearly.
    [[nodiscard]] double between(double x, double y) const
    {
        const auto column = static_cast<std::int64_t>(std::floor(x));
        const auto row = static_cast<std::int64_t>(std::floor(y));
        const double u = x - std::floor(x);
        const double v = y - std::floor(y);
        return (at(column, row) * (1 - u) + at(column + 1, row) * u) * (1 - v)
            + (at(column, row + 1) * (1 - u) + at(column + 1, row + 1) * u) * v;
    }

private:
    const std::uint8_t* m_bytes;
    PixelSize m_size;
    int m_bitDepth;
    double m_unit; ///< of samples, one level
};

/// One pixel of a picture by the published formulas, in doubles, and laid on white.
std::array<double, 3> plainPixel(const Y4MHeader& header, const std::uint8_t* planes, std::int64_t x, std::int64_t y)
{
    const auto [subsampling, siting, bitDepth, hasAlpha, range, matrix] = header.format;
    const bool isLimited = range == YUVRange::limited;
    const std::int64_t sampleBytes = bitDepth > 8 ? 2 : 1;
    const std::int64_t across = subsampling == ChromaSubsampling::yuv411 ? 4
        : subsampling == ChromaSubsampling::yuv444                       ? 1
                                                                         : 2;
    const std::int64_t down = subsampling == ChromaSubsampling::yuv420 ? 2 : 1;
    const double left = down == 2 && siting == ChromaSiting::center ? 0.5 : 0; // of the first sample, pixels
    const double top = down == 2 && siting != ChromaSiting::topLeft ? 0.5 : 0;
    const auto chroma = YUVConversion::chromaSize(header.size, subsampling);
    const auto lumaBytes = header.size.width * header.size.height * sampleBytes;
    const auto chromaBytes = chroma.width * chroma.height * sampleBytes;
    const PlainPlane luma(planes, header.size, bitDepth, !isLimited);
    double level = luma.at(x, y);
    double cb = 0;
    double cr = 0;
    if (subsampling != ChromaSubsampling::mono) {
        const double column = (static_cast<double>(x) - left) / static_cast<double>(across);
        const double row = (static_cast<double>(y) - top) / static_cast<double>(down);
        // In full range the neutral level is half a step of eight bits above the middle.
        const double neutral = isLimited ? 128 : std::ldexp(1, bitDepth - 1) * 255 / (std::ldexp(1, bitDepth) - 1);
        cb = PlainPlane(planes + lumaBytes, chroma, bitDepth, !isLimited).between(column, row) - neutral;
        cr = PlainPlane(planes + lumaBytes + chromaBytes, chroma, bitDepth, !isLimited).between(column, row) - neutral;
    }
    if (isLimited) {
        level = (level - 16) * 255 / 219;
        cb *= 255.0 / 224;
        cr *= 255.0 / 224;
    }
    const bool isHigh = matrix == YUVMatrix::bt709;
    const double kr = isHigh ? 0.2126 : 0.299;
    const double kb = isHigh ? 0.0722 : 0.114;
    const double red = level + 2 * (1 - kr) * cr;
    const double blue = level + 2 * (1 - kb) * cb;
    const double green = (level - kr * red - kb * blue) / (1 - kr - kb);
    std::array<double, 3> pixel{
        std::clamp(red, 0.0, 255.0), std::clamp(green, 0.0, 255.0), std::clamp(blue, 0.0, 255.0)};
    if (hasAlpha) {
        const double alpha = planes[lumaBytes + 2 * chromaBytes + y * header.size.width + x] / 255.0;
        for (double& channel : pixel)
            channel = channel * alpha + 255 * (1 - alpha);
    }
    return pixel;
}

/// Goes through the stream once more in the simplest way and compares every pixel.
void checkFrames(std::string_view stream, const SourceClip& clip)
{
    const auto headerEnd = stream.find('\n');
    const auto header = Y4MHeader::parse("input", stream.substr(0, headerEnd));
    stream.remove_prefix(headerEnd + 1);
    const auto pictureBytes = static_cast<std::size_t>(YUVConversion::byteCount(header.size, header.format));
    for (const RGBAFrame& frame : clip.frames) {
        precondition(stream.starts_with("FRAME"), "every frame has its line");
        stream.remove_prefix(stream.find('\n') + 1);
        precondition(stream.size() >= pictureBytes, "every frame is whole");
        precondition(frame.width() == header.size.width && frame.height() == header.size.height, "frames are alike");
        const auto* const planes = reinterpret_cast<const std::uint8_t*>(stream.data()); // NOLINT(*-reinterpret-cast)
        for (std::int64_t i = 0; i < frame.pixelCount(); ++i) {
            const auto expected = plainPixel(header, planes, i % frame.width(), i / frame.width());
            for (std::size_t c = 0; c < 3; ++c) {
                const auto got = frame.pixels()[static_cast<std::size_t>(i) * 4 + c];
                precondition(std::abs(got - expected[c]) <= 1.1, "colours follow the formula");
            }
        }
        stream.remove_prefix(pictureBytes);
    }
    precondition(stream.empty(), "no byte is left over");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t largestInput = 1 << 16;
    const std::span<const std::uint8_t> bytes(data, std::min(size, largestInput));
    MemoryByteSource memory("input", bytes);
    const auto outcome = read(memory);
    if (outcome.clip)
        checkFrames(
            {reinterpret_cast<const char*>(bytes.data()), bytes.size()}, *outcome.clip); // NOLINT(*-reinterpret-cast)

    // Where the length is unknown a frame's memory is taken before its end is seen: large ones are left out.
    const auto isLarge = [](const Outcome& seen) {
        return seen.error.find(" bytes; ") != std::string::npos;
    };
    if (!isLarge(outcome)) {
        Trickle pipe(bytes);
        const auto again = read(pipe);
        precondition(again.error == outcome.error, "a pipe gives the same error");
        precondition(again.clip.has_value() == outcome.clip.has_value()
                && (!again.clip || again.clip->frames == outcome.clip->frames),
            "a pipe gives the same frames");
    }
    return 0;
}
