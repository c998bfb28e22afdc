#include "reference/GIFOptimizer.h"

#include "Encoding/GIFEncoder.h"
#include "reference/FPSAdaptive.h"
#include "reference/FrameDeduplicator.h"
#include "reference/FrameResampler.h"
#include "reference/GIFEncoder.h"
#include "reference/PaletteMapper.h"
#include "reference/PaletteQuantizer.h"
#include "reference/Presets.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>

namespace quillbox::reference {

namespace {

std::int64_t rateFor(double activity, std::int64_t maxFPS)
{
    if (activity < 0.005)
        return std::min<std::int64_t>(5, maxFPS);
    if (activity < 0.05)
        return std::min<std::int64_t>(10, maxFPS);
    if (activity < 0.2)
        return std::min<std::int64_t>(15, maxFPS);
    return maxFPS;
}

struct Prepared {
    std::int64_t fps = 0;
    std::vector<FrameDeduplicator::Timed> entries;
    double durationSeconds = 0;
    Histogram histogram;
};

Prepared prepare(std::span<const RGBAFrame> frames, const GIFOptimizer::Config& config)
{
    Prepared prepared;
    const PresetLimits limits = limitsOf(config.preset);
    prepared.fps = rateFor(averageActivity(frames), limits.maxFPS);
    const std::vector<RGBAFrame> reduced = resample(frames, config.sourceFPS, prepared.fps);
    const auto delay
        = std::max<std::int64_t>(1, static_cast<std::int64_t>(std::round(100.0 / static_cast<double>(prepared.fps))));
    prepared.entries = deduplicate(reduced, delay, 0.01);

    std::vector<RGBAFrame> pictures;
    std::int64_t totalDelay = 0;
    for (const auto& entry : prepared.entries) {
        pictures.push_back(entry.frame);
        totalDelay += entry.delayCentiseconds;
    }
    pictures = cappedToWidth(pictures, limits.maxWidth);
    for (std::size_t i = 0; i < pictures.size(); ++i)
        prepared.entries[i].frame = pictures[i];
    prepared.histogram = histogram(pictures);
    prepared.durationSeconds = static_cast<double>(totalDelay) / 100.0;
    return prepared;
}

OptimizedClip attemptWith(const Prepared& prepared, const GIFOptimizer::Config& config, std::int64_t colors)
{
    OptimizedClip clip;
    const std::vector<RGBColor> palette = quantize(prepared.histogram, colors);
    const bool dither = config.ditheringOverride.value_or(palette.size() * 3 < prepared.histogram.size());
    for (const auto& [frame, delay] : prepared.entries)
        clip.frames.push_back(dither ? mapDithered(frame, palette, delay) : map(frame, palette, delay));
    clip.result.data = gifEncode(clip.frames, 0);
    clip.result.byteCount = std::ssize(clip.result.data);
    clip.result.frameCount = std::ssize(clip.frames);
    clip.result.colorCount = std::ssize(palette);
    clip.result.effectiveFPS = prepared.fps;
    clip.result.usedDithering = dither;
    clip.result.durationSeconds = prepared.durationSeconds;
    return clip;
}

} // namespace

OptimizedClip optimize(std::span<const RGBAFrame> frames, const GIFOptimizer::Config& config)
{
    precondition(!frames.empty(), "there is a frame to optimize");
    for (const RGBAFrame& frame : frames) {
        if (frame.width() < 0 || frame.width() > 65535 || frame.height() < 0 || frame.height() > 65535)
            throw GIFEncodingError(GIFEncodingError::DimensionTooLarge{frame.width(), frame.height()});
    }
    const Prepared prepared = prepare(frames, config);
    const PresetLimits limits = limitsOf(config.preset);

    std::optional<OptimizedClip> best;
    std::vector<std::int64_t> attempted;
    std::set<std::int64_t> tried;
    for (std::optional<std::int64_t> colors = limits.colorLadder.front(); colors;
         colors = nextColorStep(*colors, config.preset)) {
        if (!tried.insert(*colors).second)
            continue;
        attempted.push_back(*colors);
        OptimizedClip candidate = attemptWith(prepared, config, *colors);
        candidate.result.sourceFrameCount = std::ssize(frames);
        const bool fits = candidate.result.byteCount <= limits.targetBytes;
        if (fits || !best || candidate.result.byteCount < best->result.byteCount)
            best = std::move(candidate);
        if (fits)
            break;
    }
    best->attemptedColors = attempted;
    return *best;
}

OptimizedClip attempt(std::span<const RGBAFrame> frames, const GIFOptimizer::Config& config, std::int64_t colors)
{
    OptimizedClip clip = attemptWith(prepare(frames, config), config, colors);
    clip.result.sourceFrameCount = std::ssize(frames);
    return clip;
}

} // namespace quillbox::reference
