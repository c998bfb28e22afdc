#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/Y4MHeader.h"
#include "App/FrameSources/Y4MReader.h"
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
        Y4MReader::read(source, clip);
        return {std::move(clip), {}};
    } catch (const FrameReadError& error) {
        return {std::nullopt, error.what()};
    }
}

int channel(double value)
{
    return static_cast<int>(std::lround(std::clamp(value, 0.0, 255.0)));
}

/// One pixel of a picture by the published formula, in doubles.
std::array<int, 3> plainPixel(const Y4MHeader& header, const std::uint8_t* planes, std::int64_t x, std::int64_t y)
{
    const auto chroma = YUVConversion::chromaSize(header.size, header.subsampling);
    const std::int64_t across = header.subsampling == ChromaSubsampling::yuv411 ? 4
        : header.subsampling == ChromaSubsampling::yuv444                       ? 1
                                                                                : 2;
    const std::int64_t down = header.subsampling == ChromaSubsampling::yuv420 ? 2 : 1;
    const bool limited = header.range == YUVRange::limited;
    const double stretch = limited ? 255.0 / 224 : 1;
    const double luma = (planes[y * header.size.width + x] - (limited ? 16 : 0)) * (limited ? 255.0 / 219 : 1);
    double cb = 0;
    double cr = 0;
    if (header.subsampling != ChromaSubsampling::mono) {
        const auto* const samples
            = planes + header.size.width * header.size.height + y / down * chroma.width + x / across;
        cb = (samples[0] - 128) * stretch;
        cr = (samples[chroma.width * chroma.height] - 128) * stretch;
    }
    return {channel(luma + 1.402 * cr), channel(luma - 0.344136 * cb - 0.714136 * cr), channel(luma + 1.772 * cb)};
}

/// Goes through the stream once more in the simplest way and compares every pixel.
void checkFrames(std::string_view stream, const SourceClip& clip)
{
    const auto headerEnd = stream.find('\n');
    const auto header = Y4MHeader::parse("input", stream.substr(0, headerEnd));
    stream.remove_prefix(headerEnd + 1);
    const auto pictureBytes = static_cast<std::size_t>(YUVConversion::byteCount(header.size, header.subsampling));
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
                precondition(std::abs(got - expected[c]) <= 1, "colours follow the formula");
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
