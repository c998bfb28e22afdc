#include "Encoding/FPSAdaptive.h"

#include <algorithm>
#include <cmath>

namespace quillbox::FPSAdaptive {

void ActivityMeter::append(const RGBAFrame& frame, FrameComparisons& comparisons)
{
    if (m_previous) {
        m_sum += comparisons.fractionChangedSince(*m_previous);
        ++m_pairs;
    }
    m_previous = frame;
}

double ActivityMeter::average() const
{
    return m_pairs == 0 ? 0.0 : m_sum / static_cast<double>(m_pairs);
}

Resampler::Resampler(std::int64_t sourceFPS, std::int64_t targetFPS)
{
    if (sourceFPS >= 1 && targetFPS >= 1 && sourceFPS > targetFPS)
        m_step = static_cast<double>(sourceFPS) / static_cast<double>(targetFPS);
}

bool Resampler::keepsNext()
{
    const bool keeps = static_cast<double>(m_index) == std::floor(m_position);
    if (keeps)
        m_position += m_step; // summed rather than multiplied: the rounding of the sum decides which frame is kept
    ++m_index;
    return keeps;
}

double averageActivity(std::span<const RGBAFrame> frames)
{
    ActivityMeter meter;
    FrameComparisons comparisons;
    for (const RGBAFrame& frame : frames) {
        comparisons.turnTo(frame);
        meter.append(frame, comparisons);
    }
    return meter.average();
}

std::vector<RGBAFrame> resample(std::span<const RGBAFrame> frames, std::int64_t sourceFPS, std::int64_t targetFPS)
{
    Resampler resampler(sourceFPS, targetFPS);
    std::vector<RGBAFrame> kept;
    std::ranges::copy_if(
        frames, std::back_inserter(kept), [&resampler](const RGBAFrame& /*frame*/) { return resampler.keepsNext(); });
    return kept;
}

} // namespace quillbox::FPSAdaptive
