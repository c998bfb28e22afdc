#include "Encoding/Precise/PreciseOptimizer.h"
#include "FuzzInput.h"
#include "support/GifDecoding.h"

#include <algorithm>
#include <stop_token>
#include <vector>

using namespace quillbox;

namespace {

/// All pictures composed, as giflib decodes them.
std::vector<std::vector<RGBColor>> shown(const support::DecodedGif& gif)
{
    std::vector<std::vector<RGBColor>> pictures;
    std::vector<RGBColor> screen(static_cast<std::size_t>(gif.width * gif.height));
    for (const support::DecodedFrame& frame : gif.frames) {
        const auto& colors = frame.localColorTable.empty() ? gif.globalColorTable : frame.localColorTable;
        for (std::int64_t i = 0; i < frame.width * frame.height; ++i) {
            const std::uint8_t index = frame.indices.at(static_cast<std::size_t>(i));
            if (frame.transparentIndex != index)
                screen.at(
                    static_cast<std::size_t>((frame.top + i / frame.width) * gif.width + frame.left + i % frame.width))
                    = colors.at(index);
        }
        pictures.push_back(screen);
    }
    return pictures;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const std::int64_t fps = 1 + input.below(70);
    const PreciseOptimizer::Config config{.targetBytes = 65536 - input.number16(),
        .maxWidth = input.byte() < 200 ? std::nullopt : std::optional<std::int64_t>(1 + input.below(10)),
        .maxFPS = 1 + input.below(50),
        .maxColors = 2 + input.below(input.byte() < 240 ? 15 : 255)};
    const std::int64_t maxAttempts = input.byte() < 200 ? 1 : 2; // each takes its time
    const bool isThreaded = input.byte() >= 240 && input.isOneOf(16);
    input.setPatternColors(4);
    const std::vector<RGBAFrame> frames = input.recording(3, 6);
    if (frames.front().pixelCount() == 0)
        return 0;

    DistinctFrames distinct = PreciseOptimizer::framesFor(config, fps);
    for (const RGBAFrame& frame : frames)
        distinct.append(frame);
    const auto optimized = [&](int threads) {
        std::stop_source stop;
        const auto onProgress = [&](const GIFOptimizer::Progress& progress) {
            if (progress.attempt >= maxAttempts)
                stop.request_stop();
        };
        return PreciseOptimizer::optimize(
            distinct, config, {.parallelism = {threads}, .progress = onProgress, .finishNow = stop.get_token()});
    };
    const auto result = optimized(1);
    if (isThreaded)
        precondition(result == optimized(3), "threads change nothing");

    const support::DecodedGif gif = support::decodeWithGiflib(result.clip.data);
    precondition(std::ssize(gif.frames) == result.clip.frameCount, "giflib finds every picture");
    std::int64_t centiseconds = 0;
    for (const support::DecodedFrame& frame : gif.frames)
        centiseconds += frame.delayCentiseconds;
    const std::int64_t length = (std::ssize(frames) * 200 + fps) / (2 * fps);
    precondition(centiseconds >= length - 1 && centiseconds <= std::max(length + 1, 2 * result.clip.frameCount),
        "the clip takes as long as the recording");
    const bool isOfFullSize = !config.maxWidth && result.scale == 1;
    if (isOfFullSize && result.qualityDecibels == PreciseOptimizer::perfectDecibels) {
        std::vector<RGBColor> last;
        const auto pictures = shown(gif);
        if (frames.size() == 1) {
            frames.front().forEachColor([&](RGBColor color) { last.push_back(color); });
            precondition(pictures.back() == last, "what is said to be perfect is");
        }
    }
    return 0;
}
