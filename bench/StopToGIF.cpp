// Measures how long a user waits after "Stop" for the GIF: the clock runs from the moment the last frame is in until
// the file's bytes are there. Until then frames are taken one by one as the recorder delivers them.
//
//     stop-to-gif [--all-at-once] slack|github|docs FRAMES.rgba WIDTHxHEIGHT
//     stop-to-gif --precise [--max-size BYTES] [--output CLIP.gif] slack|github|docs FRAMES.rgba WIDTHxHEIGHT
//
// With --precise the clip shows every change. With --all-at-once nothing is known of the frames at the stop. Frames
// share with the one before what has not changed, as a recorder's do. Prints one JSON object: times in milliseconds,
// "attemptCount" the number of palette sizes tried; "reducerMean" and "reducerLongest", of one frame, only where frames
// are taken one by one.

#include "Capture/IncrementalFrameBuilder.h"
#include "Clip.h"
#include "Encoding/FrameReducer.h"
#include "Encoding/GIFOptimizer.h"
#include "Encoding/Precise/PreciseOptimizer.h"
#include "Platform/ProcessMemory.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <fstream>
#include <optional>
#include <set>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace quillbox;
using Clock = std::chrono::steady_clock;

constexpr std::int64_t recordedFPS = 30;

std::vector<RGBAFrame> recorded(std::vector<RGBAFrame> frames)
{
    IncrementalFrameBuilder bands;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const RGBAFrame banded = bands.compared(frames[i]);
        frames[i] = i > 0 && banded == frames[i - 1] ? frames[i - 1] : banded;
    }
    return frames;
}

double milliseconds(Clock::duration time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

/// What taking the frames in has cost, before the stop.
struct ReducerCost {
    double mean = 0; ///< milliseconds a frame
    double longest = 0;
};

template <typename Reducer> ReducerCost takeIn(Reducer& reducer, const std::vector<RGBAFrame>& frames)
{
    Clock::duration longest{};
    Clock::duration total{};
    for (const RGBAFrame& frame : frames) {
        const auto before = Clock::now();
        reducer.append(frame);
        const auto taken = Clock::now() - before;
        longest = std::max(longest, taken);
        total += taken;
    }
    return {milliseconds(total) / static_cast<double>(frames.size()), milliseconds(longest)};
}

void measure(ExportPreset preset, const std::vector<RGBAFrame>& frames, bool allAtOnce)
{
    FrameReducer reducer = FrameReducer::forAnyPreset(recordedFPS);
    const auto cost = allAtOnce ? std::nullopt : std::optional(takeIn(reducer, frames));
    const GIFOptimizer::Config config{.preset = preset, .sourceFPS = recordedFPS, .ditheringOverride = std::nullopt};
    const auto stopped = Clock::now();
    std::optional<Clock::time_point> prepared;
    std::set<std::int64_t> colors; // an attempt that goes on later is no new one
    const auto note = [&](const GIFOptimizer::Progress& progress) {
        if (!prepared)
            prepared = Clock::now();
        colors.insert(progress.colors);
    };
    const GIFOptimizer::Execution execution{.parallelism = {}, .progress = note, .finishNow = {}};
    const GIFOptimizer::Result result = allAtOnce ? GIFOptimizer::optimize(frames, config, execution)
                                                  : GIFOptimizer::optimize(reducer, config, execution);
    const auto done = Clock::now();
    std::printf("{\"prepare\": %.1f, \"attempts\": %.1f, \"attemptCount\": %zu, ", milliseconds(*prepared - stopped),
        milliseconds(done - *prepared), colors.size());
    if (cost)
        std::printf("\"reducerMean\": %.2f, \"reducerLongest\": %.2f, ", cost->mean, cost->longest);
    std::printf("\"frames\": %lld, \"bytes\": %lld}\n", static_cast<long long>(result.frameCount),
        static_cast<long long>(result.byteCount));
}

struct PreciseOptions {
    std::optional<std::int64_t> maxBytes;
    std::string output; ///< empty for none
};

void measurePrecisely(ExportPreset preset, const PreciseOptions& options, const std::vector<RGBAFrame>& frames)
{
    auto config = PreciseOptimizer::Config::of(preset);
    config.targetBytes = options.maxBytes.value_or(config.targetBytes);
    DistinctFrames distinct = PreciseOptimizer::framesFor(config, recordedFPS);
    const ReducerCost cost = takeIn(distinct, frames);
    const auto stopped = Clock::now();
    std::int64_t attempts = 0;
    const GIFOptimizer::Execution execution{.parallelism = {},
        .progress = [&](const GIFOptimizer::Progress& progress) { attempts = progress.attempt; },
        .finishNow = {}};
    const auto result = PreciseOptimizer::optimize(distinct, config, execution);
    const auto done = Clock::now();
    std::printf("{\"milliseconds\": %.1f, \"attemptCount\": %lld, \"reducerMean\": %.2f, \"reducerLongest\": %.2f, "
                "\"frames\": %lld, \"bytes\": %lld, \"colors\": %lld, \"decibels\": %.2f, \"lossDecibels\": %.2f, "
                "\"thinned\": %lld, \"scale\": %.3f}\n",
        milliseconds(done - stopped), static_cast<long long>(attempts), cost.mean, cost.longest,
        static_cast<long long>(result.clip.frameCount), static_cast<long long>(result.clip.byteCount),
        static_cast<long long>(result.clip.colorCount), result.qualityDecibels, result.lossDecibels,
        static_cast<long long>(result.thinnedFrames), result.scale);
    if (!options.output.empty())
        std::ofstream(options.output, std::ios::binary)
            .write(reinterpret_cast<const char*>(result.clip.data.data()), std::ssize(result.clip.data));
}

} // namespace

int main(int argc, char** argv)
{
    quillbox::preferHugePages();
    std::span arguments(argv, static_cast<std::size_t>(argc));
    arguments = arguments.subspan(1);
    bool allAtOnce = false;
    bool isPrecise = false;
    PreciseOptions options;
    while (!arguments.empty() && std::string_view(arguments.front()).starts_with("--")) {
        const std::string_view option = arguments.front();
        const bool hasValue = option == "--max-size" || option == "--output";
        if (arguments.size() < (hasValue ? 2U : 1U))
            break;
        allAtOnce = allAtOnce || option == "--all-at-once";
        isPrecise = isPrecise || option == "--precise";
        if (option == "--max-size")
            options.maxBytes = std::atoll(arguments[1]);
        if (option == "--output")
            options.output = arguments[1];
        arguments = arguments.subspan(hasValue ? 2 : 1);
    }
    if (arguments.size() != 3) {
        (void)std::fputs("usage: stop-to-gif [--all-at-once] [--precise [--max-size BYTES] [--output CLIP.gif]] PRESET "
                         "FRAMES.rgba WIDTHxHEIGHT\n",
            stderr);
        return 2;
    }
    try {
        const auto preset = ExportPreset::fromRawValue(arguments[0]);
        if (!preset)
            throw std::invalid_argument("no such preset");
        const auto [width, height] = bench::pictureSize(arguments[2]);
        const auto frames = recorded(bench::rawClip(arguments[1], width, height, 0).frames);
        if (isPrecise)
            measurePrecisely(*preset, options, frames);
        else
            measure(*preset, frames, allAtOnce);
        return 0;
    } catch (const std::exception& error) {
        (void)std::fprintf(stderr, "stop-to-gif: %s\n", error.what()); // nothing is left to do if that fails
        return 1;
    }
}
