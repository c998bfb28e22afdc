#include "App/FrameSources/BackgroundDistinctFrames.h"

#include "Encoding/Precondition.h"

#include <utility>

namespace quillbox {
namespace {

constexpr std::size_t maxFramesUnderWay = 4;

} // namespace

BackgroundDistinctFrames::BackgroundDistinctFrames(
    const PreciseOptimizer::Config& config, std::optional<std::int64_t> sourceFPS, DistinctFrames::OnKept onKept)
    : m_config(config)
    , m_sourceFPS(sourceFPS)
    , m_onKept(std::move(onKept))
{
}

void BackgroundDistinctFrames::setRate(std::int64_t framesPerSecond)
{
    precondition(!m_thread, "a rate is known before the first frame");
    if (!m_sourceFPS)
        m_sourceFPS = framesPerSecond;
}

void BackgroundDistinctFrames::take(const RGBAFrame& frame)
{
    if (!m_thread)
        m_thread.emplace(
            PreciseOptimizer::framesFor(m_config, m_sourceFPS.value_or(defaultFPS), m_onKept), maxFramesUnderWay);
    m_thread->take(frame);
}

const DistinctFrames& BackgroundDistinctFrames::finished()
{
    precondition(m_thread.has_value(), "an input has a frame");
    return m_thread->finished();
}

} // namespace quillbox
