#include "App/FrameSources/ClipTimeline.h"

#include "Encoding/Precondition.h"

namespace quillbox {

ClipTimeline::ClipTimeline(std::optional<FrameRate> rate, FrameConsumer& next)
    : m_rate(rate)
    , m_next(next)
{
}

void ClipTimeline::setRate(FrameRate rate)
{
    precondition(!m_previous, "a rate is known before the first frame");
    if (!m_rate)
        m_rate = rate;
}

void ClipTimeline::begin()
{
    if (!m_rate)
        m_rate = FrameRate{.frames = picturesPerSecond, .seconds = 1};
    const auto [frames, seconds] = *m_rate;
    m_isSpread = frames < picturesPerSecond * seconds;
    const std::int64_t nearest = (2 * frames + seconds) / (2 * seconds);
    m_next.setRate({.frames = m_isSpread ? picturesPerSecond : nearest, .seconds = 1});
}

std::int64_t ClipTimeline::nextPictureCount()
{
    // Frame k is the last one shown before picture 30 · (k + 1) ÷ rate, rounded up; the sum is exact.
    m_pictureFraction += picturesPerSecond * m_rate->seconds;
    m_wholePictures += m_pictureFraction / m_rate->frames;
    m_pictureFraction %= m_rate->frames;
    const std::int64_t before = m_shownCount;
    m_shownCount = m_wholePictures + (m_pictureFraction > 0 ? 1 : 0);
    return m_shownCount - before;
}

void ClipTimeline::take(const RGBAFrame& frame)
{
    if (!m_previous)
        begin();
    if (!m_previous || !(m_previous->sharesPixels(frame) || *m_previous == frame))
        ++m_distinctCount;
    m_previous = frame;
    for (std::int64_t left = m_isSpread ? nextPictureCount() : 1; left > 0; --left)
        m_next.take(frame);
}

} // namespace quillbox
