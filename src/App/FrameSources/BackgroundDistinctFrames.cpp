#include "App/FrameSources/BackgroundDistinctFrames.h"

#include "Encoding/Precondition.h"

#include <utility>

namespace quillbox {
namespace {

constexpr std::size_t maxFramesUnderWay = 4;

} // namespace

BackgroundDistinctFrames::BackgroundDistinctFrames(
    const PreciseOptimizer::Config& config, DistinctFrames::OnKept onKept)
    : m_config(config)
    , m_onKept(std::move(onKept))
{
}

void BackgroundDistinctFrames::setRate(FrameRate rate)
{
    precondition(!m_thread, "a rate is known before the first frame");
    precondition(rate.seconds == 1, "a whole number of frames per second");
    m_sourceFPS = rate.frames;
}

void BackgroundDistinctFrames::take(const RGBAFrame& frame)
{
    if (!m_thread)
        m_thread.emplace(PreciseOptimizer::framesFor(m_config, m_sourceFPS, m_onKept), maxFramesUnderWay);
    m_thread->take(frame);
}

const DistinctFrames& BackgroundDistinctFrames::finished()
{
    precondition(m_thread.has_value(), "an input has a frame");
    return m_thread->finished();
}

} // namespace quillbox
