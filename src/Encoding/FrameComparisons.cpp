#include "Encoding/FrameComparisons.h"

#include "Encoding/Pixels/PixelComparison.h"

#include <algorithm>

namespace quillbox {

void FrameComparisons::turnTo(const RGBAFrame& frame)
{
    if (!m_frame || !m_frame->sharesPixels(frame)) {
        m_answers.clear();
        m_verdicts.clear();
    }
    m_frame = frame;
}

double FrameComparisons::fractionChangedSince(const RGBAFrame& earlier)
{
    precondition(m_frame.has_value(), "there is a frame at hand");
    if (const auto known = knownFraction(earlier))
        return *known;
    const double fraction
        = FrameDeduplicator::fractionChanged(earlier, *m_frame, FrameDeduplicator::defaultPerPixelTolerance);
    m_answers.push_back({earlier, fraction});
    return fraction;
}

bool FrameComparisons::changesMoreThan(const RGBAFrame& earlier, double threshold)
{
    precondition(m_frame.has_value(), "there is a frame at hand");
    if (const auto fraction = knownFraction(earlier))
        return *fraction > threshold;
    const auto known = std::ranges::find_if(m_verdicts, [&earlier, threshold](const Verdict& verdict) {
        return verdict.earlier.sharesPixels(earlier) && verdict.threshold == threshold;
    });
    if (known != m_verdicts.end())
        return known->changesMore;
    const bool changesMore
        = FrameDeduplicator::changesMoreThan(earlier, *m_frame, FrameDeduplicator::defaultPerPixelTolerance, threshold);
    m_verdicts.push_back({earlier, threshold, changesMore});
    return changesMore;
}

std::optional<double> FrameComparisons::knownFraction(const RGBAFrame& earlier) const
{
    const auto known = std::ranges::find_if(
        m_answers, [&earlier](const Answer& answer) { return answer.earlier.sharesPixels(earlier); });
    return known == m_answers.end() ? std::nullopt : std::optional(known->fraction);
}

} // namespace quillbox
