#include "App/FrameSources/BackgroundDistinctFrames.h"

#include "Encoding/Precondition.h"

#include <utility>

namespace quillbox {
namespace {

constexpr std::size_t maxFramesUnderWay = 4;

} // namespace

BackgroundDistinctFrames::BackgroundDistinctFrames(
    const PreciseOptimizer::Config& config, DistinctFrames::OnKept onKept, Parallelism parallelism)
    : m_config(config)
    , m_onKept(std::move(onKept))
    , m_parallelism(parallelism)
{
}

void BackgroundDistinctFrames::setRate(FrameRate rate)
{
    precondition(!m_thread && !m_distinct, "a rate is known before the first frame");
    precondition(rate.seconds == 1, "a whole number of frames per second");
    m_sourceFPS = rate.frames;
}

void BackgroundDistinctFrames::take(const RGBAFrame& frame)
{
    if (!m_thread && !m_distinct) {
        DistinctFrames distinct = PreciseOptimizer::framesFor(m_config, m_sourceFPS, m_onKept);
        if (m_parallelism.threads == 1)
            m_distinct.emplace(std::move(distinct));
        else
            m_thread.emplace(std::move(distinct), maxFramesUnderWay);
    }
    if (m_distinct)
        m_distinct->append(frame);
    else
        m_thread->take(frame);
}

const DistinctFrames& BackgroundDistinctFrames::finished()
{
    precondition(m_thread || m_distinct, "an input has a frame");
    return m_distinct ? *m_distinct : m_thread->finished();
}

} // namespace quillbox
