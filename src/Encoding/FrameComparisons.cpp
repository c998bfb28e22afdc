#include "Encoding/FrameComparisons.h"

#include "Encoding/FrameDeduplicator.h"

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
    const auto known = std::ranges::find_if(
        m_answers, [&earlier](const Answer& answer) { return answer.earlier.sharesPixels(earlier); });
    if (known != m_answers.end())
        return known->fraction;
    const double fraction
        = FrameDeduplicator::fractionChanged(earlier, *m_frame, FrameDeduplicator::defaultPerPixelTolerance);
    m_answers.push_back({earlier, fraction});
    return fraction;
}

bool FrameComparisons::changesMoreThan(const RGBAFrame& earlier, double threshold)
{
    precondition(m_frame.has_value(), "there is a frame at hand");
    const auto fraction = std::ranges::find_if(
        m_answers, [&earlier](const Answer& answer) { return answer.earlier.sharesPixels(earlier); });
    if (fraction != m_answers.end())
        return fraction->fraction > threshold;
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

} // namespace quillbox
