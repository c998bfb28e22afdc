// Measures how long a user waits after "Stop": frames are taken one by one as the recorder delivers them, and the clock
// runs from the moment the last one is in until the file's bytes are there.
//
//     stop-to-copied [--all-at-once] slack|github|docs FRAMES.rgba WIDTHxHEIGHT
//
// With --all-at-once nothing is known of the frames at the stop. Frames equal to the one before share its storage, as a
// recorder's do. Prints one JSON object; times are in milliseconds.

#include "Clip.h"
#include "Encoding/FrameIntake.h"
#include "Encoding/GIFOptimizer.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <exception>
#include <optional>
#include <span>
#include <stdexcept>
#include <vector>

namespace {

using namespace quillbox;
using Clock = std::chrono::steady_clock;

constexpr std::int64_t recordedFPS = 30;

std::vector<RGBAFrame> recorded(std::vector<RGBAFrame> frames)
{
    for (std::size_t i = 1; i < frames.size(); ++i) {
        if (frames[i] == frames[i - 1])
            frames[i] = frames[i - 1];
    }
    return frames;
}

double milliseconds(Clock::duration time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

void measure(ExportPreset preset, const std::vector<RGBAFrame>& frames, bool allAtOnce)
{
    FrameIntake intake = FrameIntake::forAnyPreset(recordedFPS);
    Clock::duration longest{};
    Clock::duration total{};
    for (const RGBAFrame& frame : frames) {
        const auto before = Clock::now();
        intake.append(frame);
        const auto taken = Clock::now() - before;
        longest = std::max(longest, taken);
        total += taken;
    }
    const GIFOptimizer::Config config{.preset = preset, .sourceFPS = recordedFPS, .ditheringOverride = std::nullopt};
    const auto stopped = Clock::now();
    std::optional<Clock::time_point> prepared;
    std::int64_t attempts = 0;
    const auto note = [&](const GIFOptimizer::Progress& progress) {
        if (!prepared)
            prepared = Clock::now();
        attempts = std::max(attempts, progress.attempt);
    };
    const GIFOptimizer::Execution execution{.parallelism = {}, .progress = note, .finishNow = {}};
    const GIFOptimizer::Result result = allAtOnce ? GIFOptimizer::optimize(frames, config, execution)
                                                  : GIFOptimizer::optimize(intake, config, execution);
    const auto done = Clock::now();
    std::printf("{\"prepare\": %.1f, \"attempts\": %.1f, \"attemptCount\": %lld, \"intakeMean\": %.2f, "
                "\"intakeLongest\": %.2f, \"frames\": %lld, \"bytes\": %lld}\n",
        milliseconds(*prepared - stopped), milliseconds(done - *prepared), static_cast<long long>(attempts),
        milliseconds(total) / static_cast<double>(frames.size()), milliseconds(longest),
        static_cast<long long>(result.frameCount), static_cast<long long>(result.byteCount));
}

} // namespace

int main(int argc, char** argv)
{
    std::span arguments(argv, static_cast<std::size_t>(argc));
    arguments = arguments.subspan(1);
    const bool allAtOnce = !arguments.empty() && std::strcmp(arguments.front(), "--all-at-once") == 0;
    if (allAtOnce)
        arguments = arguments.subspan(1);
    if (arguments.size() != 3) {
        (void)std::fputs("usage: stop-to-copied [--all-at-once] PRESET FRAMES.rgba WIDTHxHEIGHT\n", stderr);
        return 2;
    }
    try {
        const auto preset = ExportPreset::fromRawValue(arguments[0]);
        if (!preset)
            throw std::invalid_argument("no such preset");
        const auto [width, height] = bench::pictureSize(arguments[2]);
        measure(*preset, recorded(bench::rawClip(arguments[1], width, height, 0).frames), allAtOnce);
        return 0;
    } catch (const std::exception& error) {
        (void)std::fprintf(stderr, "stop-to-copied: %s\n", error.what()); // nothing is left to do if that fails
        return 1;
    }
}
