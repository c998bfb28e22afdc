#include "App/FrameSources/BackgroundFrames.h"
#include "App/FrameSources/ClipTimeline.h"
#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/FrameShaper.h"
#include "App/FrameSources/RawReader.h"
#include "App/FrameSources/ReadingThreads.h"
#include "App/FrameSources/Y4M/Y4MReader.h"
#include "Capture/Spill/FrameSpill.h"
#include "Encoding/FrameReducer.h"
#include "Encoding/GIFOptimizer.h"
#include "Encoding/Precise/DistinctFrames.h"
#include "Encoding/Precise/PreciseOptimizer.h"
#include "FuzzInput.h"
#include "Platform/FileDescriptor.h"
#include "support/GifDecoding.h"

#include <algorithm>
#include <cmath>
#include <fcntl.h>
#include <filesystem>
#include <numeric>
#include <optional>
#include <stop_token>
#include <string>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>
#include <vector>

using namespace quillbox;

namespace {

/// What the command is told.
struct Options {
    std::optional<FrameRate> rate;
    FrameShape shape;
    SourceColors colors;
    PixelSize rawSize;
    RawReader::Options raw;
    ExportPreset preset;
    PreciseOptimizer::Config precise;
    bool isPrecise = false;
    std::int64_t maxAttempts = 1; ///< of the precise optimizer
    int threads = 1;
    FrameSpill::Limits spill{};

    explicit Options(fuzz::Input& input)
        : preset(ExportPreset::allCases.at(static_cast<std::size_t>(input.below(3))))
    {
        constexpr std::int64_t bandOrTwo = 300; // bytes
        const std::uint8_t choices = input.byte();
        if (choices % 4 == 0)
            rate = {.frames = 1 + input.below(120), .seconds = 1 + input.below(12)};
        if (choices % 8 >= 6)
            shape.crop
                = {.left = input.below(3), .top = input.below(3), .size = {1 + input.below(8), 1 + input.below(8)}};
        if (choices % 16 >= 12)
            shape.maxWidth = 1 + input.below(12);
        if (choices >= 128)
            colors.background = raw.background.emplace(input.color());
        rawSize = {1 + input.below(8), 1 + input.below(8)};
        raw.format = static_cast<RawFormat>(input.below(4));
        raw.ifCut = input.byte() % 2 == 0 ? RawReader::IfCut::ReadFirst : RawReader::IfCut::RefuseAtOnce;
        isPrecise = input.byte() % 8 == 1; // few are: its search has a fuzzer of its own
        maxAttempts = input.byte() < 250 ? 1 : 2;
        threads = input.byte() >= 254 && input.isOneOf(8) ? 4 : 1; // starting them takes longer than the rest
        const std::int64_t tight = input.number16(); // few budgets are: making smaller files takes long, too
        precise = {.targetBytes = tight < 2'000 && input.isOneOf(4) ? 1 + tight : 65'536,
            .maxFPS = 1 + input.below(50),
            .maxColors = 2 + input.below(15)};
        spill = {.plainBytes = input.below(bandOrTwo), .memoryBytes = input.below(bandOrTwo), .diskSpaceToLeave = 0};
    }
};

/// The rest of the bytes as a file that can be read anywhere, or as a pipe.
FileDescriptor opened(fuzz::Input& input)
{
    constexpr std::size_t maxBytes = 400; // a pipe takes them without a reader
    const bool isPipe = input.byte() % 4 == 3;
    const Bytes bytes = input.rest(maxBytes);
    int ends[2] = {-1, -1};
    if (isPipe)
        precondition(::pipe2(ends, O_CLOEXEC) == 0, "a pipe can be made");
    else
        ends[0] = ends[1] = ::memfd_create("input", MFD_CLOEXEC);
    precondition(::write(ends[1], bytes.data(), bytes.size()) == std::ssize(bytes), "the bytes fit");
    if (isPipe)
        ::close(ends[1]);
    else
        ::lseek(ends[0], 0, SEEK_SET);
    return FileDescriptor(ends[0]);
}

/// Lets pictures of few colours pass, and hands on others with two levels a channel: the tables of nearest colours take
/// time by their number.
class FewColors final : public FrameConsumer {
public:
    explicit FewColors(FrameConsumer& next)
        : m_next(next)
    {
    }
    void setRate(FrameRate rate) override { m_next.setRate(rate); }
    void take(const RGBAFrame& frame) override
    {
        if (!m_latest || !m_latest->original.sharesPixels(frame))
            m_latest = Reduced{frame, withFewColors(frame)};
        m_next.take(m_latest->reduced);
    }

private:
    struct Reduced {
        RGBAFrame original;
        RGBAFrame reduced;
    };

    RGBAFrame withFewColors(const RGBAFrame& frame)
    {
        constexpr std::size_t few = 6;
        frame.forEachColor([this](RGBColor color) {
            if (m_colors.size() <= few && std::ranges::find(m_colors, color) == m_colors.end())
                m_colors.push_back(color);
        });
        if (m_colors.size() <= few)
            return frame;
        Bytes pixels(frame.pixels());
        for (std::uint8_t& level : pixels)
            level = level < 128 ? 0 : 255;
        return {frame.width(), frame.height(), std::move(pixels)};
    }

    FrameConsumer& m_next;
    std::vector<RGBColor> m_colors; ///< that pictures have had
    std::optional<Reduced> m_latest;
};

/// Counts what the timeline hands on.
class Counted final : public FrameConsumer {
public:
    explicit Counted(FrameConsumer& next)
        : m_next(next)
    {
    }
    void setRate(FrameRate rate) override { m_next.setRate(rate); }
    void take(const RGBAFrame& frame) override
    {
        constexpr std::int64_t enough = 12; // a single frame may last for minutes
        if (count++ < enough)
            m_next.take(frame);
    }
    std::int64_t count = 0;

private:
    FrameConsumer& m_next;
};

/// @return pictures that were handed on; 0 where nothing could be read.
std::int64_t read(ByteSource& source, const Options& options, FrameConsumer& consumer)
{
    FewColors fewColors(consumer);
    Counted counted(fewColors);
    ClipTimeline timeline(options.rate, counted);
    FrameShaper shaper("input", options.shape, timeline);
    const Parallelism parallelism = ReadingThreads::of(options.threads).reader;
    try {
        if (Y4MReader::recognizes(source))
            Y4MReader::read(source, options.colors, shaper, parallelism);
        else
            RawReader::read(source, options.rawSize, shaper, options.raw);
    } catch (const FrameReadError& error) {
        precondition(*error.what() != '\0', "an error is said");
    }
    return counted.count;
}

void check(const GIFOptimizer::Result& result)
{
    const support::DecodedGif gif = support::decodeWithGiflib(result.data);
    precondition(std::ssize(gif.frames) == result.frameCount, "giflib finds every picture");
    const auto centiseconds = std::accumulate(gif.frames.begin(), gif.frames.end(), std::int64_t{0},
        [](std::int64_t sum, const support::DecodedFrame& frame) { return sum + frame.delayCentiseconds; });
    precondition(std::llround(result.durationSeconds * 100) == centiseconds || result.frameCount > 1,
        "a picture is shown as long as is said");
    for (const support::DecodedFrame& frame : gif.frames) {
        precondition(frame.left + frame.width <= gif.width && frame.top + frame.height <= gif.height,
            "a picture lies on the screen");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::filesystem::path memory = "/dev/shm";
    static const auto folder = std::filesystem::exists(memory) ? memory : std::filesystem::temp_directory_path();
    fuzz::Input input(data, size);
    const Options options(input);
    const FileDescriptor file = opened(input);
    FileByteSource source("input", file.number());
    FrameSpill spill(options.spill, folder);
    const auto onKept = [&spill](const RGBAFrame& picture) {
        spill.keep(picture);
    };
    const auto threads = ReadingThreads::of(options.threads);
    std::stop_source hurry;
    const auto onProgress = [&](const GIFOptimizer::Progress& progress) {
        if (progress.attempt >= options.maxAttempts)
            hurry.request_stop();
    };
    const GIFOptimizer::Execution execution{
        .parallelism = {options.threads}, .progress = onProgress, .finishNow = hurry.get_token()};
    if (options.isPrecise) {
        BackgroundFrames<DistinctFrames> frames(
            [&](std::int64_t fps) { return PreciseOptimizer::framesFor(options.precise, fps, onKept); },
            threads.intake);
        if (read(source, options, frames) > 0)
            check(PreciseOptimizer::optimize(frames.finished(), options.precise, execution).clip);
    } else {
        BackgroundFrames<FrameReducer> reducer(
            [&](std::int64_t fps) { return FrameReducer::sparing(fps, options.preset, onKept, threads.measuring); },
            threads.intake);
        if (read(source, options, reducer) > 0) {
            const FrameReducer& frames = reducer.finished();
            check(GIFOptimizer::optimize(frames,
                {.preset = options.preset, .sourceFPS = frames.sourceFPS(), .ditheringOverride = {}}, execution));
        }
    }
    return 0;
}
