#include "Encoding/Precise/PreciseOptimizer.h"

#include "Encoding/Precise/ClipAttempt.h"
#include "Encoding/Precise/ScreenPalette.h"
#include "Encoding/Precise/Thinning.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

namespace quillbox::PreciseOptimizer {
namespace {

using Recording = DistinctFrames::Recording;

constexpr double errorTicksPerByte = 150;
constexpr std::int64_t leastPicturesPerSecond = 10;

double decibels(double errorTicks, const Recording& recording)
{
    const double samples = 3.0 * static_cast<double>(recording.size.width) * static_cast<double>(recording.size.height)
        * static_cast<double>(recording.frameCount);
    const double mean = errorTicks / samples;
    return mean <= 0 ? perfectDecibels : std::min(perfectDecibels, 10 * std::log10(255.0 * 255.0 / mean));
}

std::int64_t centiseconds(const Recording& recording)
{
    return std::max<std::int64_t>((recording.frameCount * 200 + recording.sourceFPS) / (2 * recording.sourceFPS), 2);
}

/// Tries one plan after another.
class Search {
public:
    Search(const Recording& recording, const Config& config, const GIFOptimizer::Execution& execution)
        : m_recording(recording)
        , m_config(config)
        , m_execution(execution)
        , m_thinningOrder(
              Thinning::order(recording, std::max<std::int64_t>(recording.sourceFPS / leastPicturesPerSecond, 1)))
    {
    }

    /// @return whether it fits
    bool tryPlan(std::int64_t colors, double thinnedShare)
    {
        ClipPlan plan{.table = ScreenPalette::make(m_recording.colors, colors, m_execution.parallelism),
            .leavesOut = std::vector<bool>(m_recording.pictures.size(), false),
            .errorTicksPerByte = thinnedShare > 0 || colors < m_config.maxColors ? 0 : errorTicksPerByte,
            .maxColors = colors};
        const auto thinned
            = static_cast<std::size_t>(std::llround(thinnedShare * static_cast<double>(m_thinningOrder.size())));
        for (std::size_t i = 0; i < thinned; ++i)
            plan.leavesOut[m_thinningOrder[i]] = true;
        ++m_number;
        const std::int64_t pictures = std::ssize(m_recording.pictures) - static_cast<std::int64_t>(thinned);
        const auto report = [&](std::int64_t done) {
            if (m_execution.progress)
                m_execution.progress(
                    {.attempt = m_number, .colors = colors, .framesDone = done, .frameCount = pictures});
        };
        report(0);
        const std::int64_t limit
            = m_best ? std::max(m_config.targetBytes, m_best->byteCount) : std::numeric_limits<std::int64_t>::max();
        ClipAttempt attempt
            = ClipAttempt::make(m_recording, plan, m_execution.parallelism, {.byteCount = limit, .stop = {}}, report);
        if (!m_best)
            m_unlimited = decibels(attempt.errorTicks, m_recording);
        if (attempt.isWhole && (!m_best || attempt.byteCount < m_best->byteCount)) {
            m_best = std::move(attempt);
            m_thinned = static_cast<std::int64_t>(thinned);
        }
        return m_best->byteCount <= m_config.targetBytes || m_execution.finishNow.stop_requested();
    }

    [[nodiscard]] Result result() const
    {
        const std::int64_t rate = std::min(m_recording.sourceFPS, m_recording.maxFPS);
        Result result;
        result.clip = {.data = DeltaGIF::fileOf(m_best->screen, m_best->parts),
            .byteCount = m_best->byteCount,
            .frameCount = std::ssize(m_best->parts),
            .sourceFrameCount = m_recording.frameCount,
            .colorCount = m_best->colorCount,
            .effectiveFPS = rate,
            .usedDithering = false,
            .durationSeconds = static_cast<double>(centiseconds(m_recording)) / 100.0};
        result.qualityDecibels = decibels(m_best->errorTicks, m_recording);
        result.lossDecibels = std::max(m_unlimited - result.qualityDecibels, 0.0);
        result.thinnedFrames = m_thinned;
        return result;
    }

private:
    const Recording& m_recording;
    const Config& m_config;
    const GIFOptimizer::Execution& m_execution;
    std::vector<std::size_t> m_thinningOrder;
    std::int64_t m_number = 0;
    std::optional<ClipAttempt> m_best;
    std::int64_t m_thinned = 0;
    double m_unlimited = 0; ///< decibels without a budget
};

} // namespace

Config Config::of(ExportPreset preset)
{
    return {.targetBytes = preset.targetBytes(), .maxWidth = preset.maxWidth()};
}

DistinctFrames framesFor(const Config& config, std::int64_t sourceFPS, DistinctFrames::Keeper keeper)
{
    return DistinctFrames(
        {.sourceFPS = sourceFPS, .maxWidth = config.maxWidth, .maxFPS = config.maxFPS, .keeper = std::move(keeper)});
}

Result optimize(const DistinctFrames& frames, const Config& config, const GIFOptimizer::Execution& execution)
{
    const Recording recording = frames.recording();
    Search search(recording, config, execution);
    bool fits = search.tryPlan(config.maxColors, 0);
    for (const std::int64_t colors : {128, 64}) {
        if (!fits && colors < config.maxColors)
            fits = search.tryPlan(colors, 0);
    }
    for (const double share : {0.5, 1.0}) {
        if (!fits)
            fits = search.tryPlan(std::min<std::int64_t>(64, config.maxColors), share);
    }
    return search.result();
}

} // namespace quillbox::PreciseOptimizer
