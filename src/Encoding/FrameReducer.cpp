#include "Encoding/FrameReducer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace quillbox {
namespace {

constexpr double duplicateThreshold = 0.01; // share of pixels

/// A frame rate for recordings whose activity is below a limit.
struct RateBand {
    double activityBelow; ///< share of pixels that change from frame to frame
    std::int64_t fps;     ///< frames per second, before the preset's cap
};
constexpr std::array rateBands{RateBand{0.005, 5}, RateBand{0.05, 10}, RateBand{0.2, 15}};

std::int64_t cappedFPS(std::int64_t fps, ExportPreset preset)
{
    return std::min(fps, preset.maxFPS());
}

std::int64_t chosenFPS(double activity, ExportPreset preset)
{
    const auto band = std::ranges::find_if(
        rateBands, [activity](const RateBand& limits) { return activity < limits.activityBelow; });
    return band == rateBands.end() ? preset.maxFPS() : cappedFPS(band->fps, preset);
}

std::int64_t delayForFPS(std::int64_t fps)
{
    return std::max<std::int64_t>(std::llround(100.0 / static_cast<double>(fps)), 1);
}

/// All rates that `chosenFPS` may give for one of the presets, each once.
std::vector<std::int64_t> possibleRates(std::span<const ExportPreset> presets)
{
    std::vector<std::int64_t> rates;
    for (const ExportPreset preset : presets) {
        for (const RateBand& band : rateBands)
            rates.push_back(cappedFPS(band.fps, preset));
        rates.push_back(preset.maxFPS());
    }
    std::ranges::sort(rates);
    rates.erase(std::unique(rates.begin(), rates.end()), rates.end());
    return rates;
}

} // namespace

FrameReducer::FrameReducer(std::int64_t sourceFPS, std::span<const ExportPreset> presets)
    : m_sourceFPS(sourceFPS)
{
    precondition(!presets.empty(), "a recording is made for at least one preset");
    for (const std::int64_t fps : possibleRates(presets)) {
        m_candidates.push_back({fps, FPSAdaptive::Resampler(sourceFPS, fps),
            FrameDeduplicator::Deduplicator(delayForFPS(fps), duplicateThreshold), {}});
    }
}

FrameReducer FrameReducer::forAnyPreset(std::int64_t sourceFPS)
{
    const std::vector<ExportPreset> all(ExportPreset::allCases.begin(), ExportPreset::allCases.end());
    return FrameReducer(sourceFPS, all);
}

FrameReducer FrameReducer::sparing(std::int64_t sourceFPS, ExportPreset preset, OnKept onKept, Parallelism parallelism)
{
    FrameReducer reducer(sourceFPS, std::span(&preset, 1));
    reducer.m_onKept = std::move(onKept);
    reducer.m_parallelism = parallelism;
    reducer.m_isSparing = true;
    reducer.m_maxWidth = preset.maxWidth();
    return reducer;
}

void FrameReducer::take(const RGBAFrame& frame, Activity activity)
{
    ++m_frameCount;
    if (m_tooLarge)
        return; // nothing can come of this recording any more
    try {
        GIFEncoder::checkSize(frame.width(), frame.height());
    } catch (const GIFEncodingError& error) {
        m_tooLarge = error.dimensionTooLarge();
        return;
    }
    if (!m_cap)
        m_cap.emplace(frame, m_maxWidth);
    m_comparisons.turnTo(frame);
    if (activity == Activity::Counted)
        m_activity.append(frame, m_comparisons);
    else
        m_activity.appendUncounted(frame);
    for (Candidate& candidate : m_candidates) {
        if (candidate.resampler.keepsNext() && candidate.deduplicator.append(frame, m_comparisons) && m_isSparing) {
            candidate.pinned = frame.isBacked() ? frame.pinned() : std::vector<PixelView>();
            candidate.deduplicator.replaceLast(substituteFor(frame));
        }
    }
}

RGBAFrame FrameReducer::shrunk(const RGBAFrame& frame)
{
    if (!m_side && !m_cap->isNone() && ForkJoinThread::isWorthIt(m_parallelism))
        m_side = std::make_unique<ForkJoinThread>();
    return m_cap->applied(frame, m_side.get());
}

const RGBAFrame& FrameReducer::substituteFor(const RGBAFrame& frame)
{
    if (m_lastKept && m_lastKept->original.sharesPixels(frame))
        return m_lastKept->substitute;
    RGBAFrame substitute = frame;
    if (frame.isBacked()) {
        frame.evict();
    } else {
        substitute = shrunk(frame);
        if (m_onKept) {
            substitute = substitute.inBands(m_lastKept ? std::optional(m_lastKept->substitute) : std::nullopt);
            m_onKept(substitute);
        }
    }
    m_lastKept = {frame, std::move(substitute)};
    return m_lastKept->substitute;
}

FrameReducer::Selection FrameReducer::selection(ExportPreset preset) const
{
    precondition(m_frameCount > 0, "there is a frame to optimise");
    if (m_tooLarge)
        throw GIFEncodingError(*m_tooLarge);
    const std::int64_t fps = chosenFPS(m_activity.average(), preset);
    const auto candidate = std::ranges::find(m_candidates, fps, &Candidate::fps);
    precondition(candidate != m_candidates.end(), "the preset is one of those the frames were taken for");
    return {fps, candidate->deduplicator.kept()};
}

} // namespace quillbox
