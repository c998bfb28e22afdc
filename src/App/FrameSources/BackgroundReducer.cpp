#include "App/FrameSources/BackgroundReducer.h"

#include "Encoding/Precondition.h"

#include <utility>

namespace quillbox {
namespace {

constexpr std::size_t maxQueue = 4; // frames

} // namespace

BackgroundReducer::BackgroundReducer(
    ExportPreset preset, std::optional<std::int64_t> sourceFPS, FrameReducer::OnKept onKept)
    : m_preset(preset)
    , m_sourceFPS(sourceFPS)
    , m_onKept(std::move(onKept))
{
}

void BackgroundReducer::setRate(std::int64_t framesPerSecond)
{
    precondition(!m_thread, "a rate is known before the first frame");
    if (!m_sourceFPS)
        m_sourceFPS = framesPerSecond;
}

void BackgroundReducer::take(const RGBAFrame& frame)
{
    if (!m_thread)
        m_thread.emplace(FrameReducer::sparing(m_sourceFPS.value_or(defaultFPS), m_preset, m_onKept), maxQueue);
    m_thread->take(frame);
}

const FrameReducer& BackgroundReducer::finished()
{
    precondition(m_thread.has_value(), "an input has a frame");
    return m_thread->finished();
}

} // namespace quillbox
