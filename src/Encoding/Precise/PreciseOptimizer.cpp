#include "Encoding/Precise/PreciseOptimizer.h"

#include "Encoding/Precise/RateControl.h"
#include "Encoding/Precise/ShownError.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillbox::PreciseOptimizer {
namespace {

using Recording = DistinctFrames::Recording;

constexpr double leastScale = 0.25;
constexpr double aim = 0.98; // of the budget, for a smaller size

/// What a rate control's best file comes to.
Result resultOf(RateControl& control, const Recording& recording, const Config& config)
{
    const ClipAttempt& best = control.best();
    const double seconds = static_cast<double>(recording.frameCount) / static_cast<double>(recording.sourceFPS);
    Result result;
    result.clip = {.data = DeltaGIF::fileOf(best.screen, best.parts),
        .byteCount = best.byteCount,
        .frameCount = std::ssize(best.parts),
        .sourceFrameCount = recording.frameCount,
        .colorCount = best.colorCount,
        .effectiveFPS = std::min(recording.sourceFPS, recording.maxFPS),
        .usedDithering = false,
        .durationSeconds = static_cast<double>(std::max(std::llround(seconds * 100), 2LL)) / 100.0};
    result.qualityDecibels = ShownError::decibels(best.errorTicks, recording);
    const double unbounded = ShownError::ofTable(recording, control.table(config.maxColors));
    result.lossDecibels = std::max(ShownError::decibels(unbounded, recording) - result.qualityDecibels, 0.0);
    result.thinnedFrames = std::ssize(recording.pictures) - result.clip.frameCount;
    return result;
}

} // namespace

Config Config::of(ExportPreset preset)
{
    return {.targetBytes = preset.targetBytes(), .maxWidth = preset.maxWidth()};
}

DistinctFrames framesFor(const Config& config, std::int64_t sourceFPS, DistinctFrames::OnKept onKept)
{
    return DistinctFrames(
        {.sourceFPS = sourceFPS, .maxWidth = config.maxWidth, .maxFPS = config.maxFPS, .onKept = std::move(onKept)});
}

Result optimize(const DistinctFrames& frames, const Config& config, const GIFOptimizer::Execution& execution)
{
    const Recording recording = frames.recording();
    const RateControl::Bounds bounds{.targetBytes = config.targetBytes, .maxColors = config.maxColors};
    RateControl control(recording, bounds, execution, 0);
    const bool fits = control.run();
    Result best = resultOf(control, recording, config);
    if (fits || control.isEnough())
        return best;
    std::int64_t attempts = control.attemptCount();
    double scale = 1;
    while (best.clip.byteCount > config.targetBytes && scale > leastScale && !execution.finishNow.stop_requested()) {
        const double excess = static_cast<double>(best.clip.byteCount) / static_cast<double>(config.targetBytes);
        scale = std::max(leastScale, scale * std::clamp(std::sqrt(aim / excess), 0.4, 0.95));
        const auto width = std::llround(scale * static_cast<double>(recording.size.width));
        if (width < 1)
            break;
        const Recording smaller = recording.shrunk(width);
        RateControl again(smaller, bounds, execution, attempts);
        (void)again.giveUpMost();
        attempts = again.attemptCount();
        if (again.best().byteCount < best.clip.byteCount) {
            best = resultOf(again, smaller, config);
            best.scale = static_cast<double>(smaller.size.width) / static_cast<double>(recording.size.width);
        }
    }
    return best;
}

} // namespace quillbox::PreciseOptimizer
