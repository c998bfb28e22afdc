#include "App/FrameSources/BackgroundReducer.h"

#include "Encoding/Precondition.h"

#include <utility>

namespace quillbox {
namespace {

constexpr std::size_t maxQueue = 4; // frames

} // namespace

BackgroundReducer::BackgroundReducer(ExportPreset preset, FrameReducer::OnKept onKept)
    : m_preset(preset)
    , m_onKept(std::move(onKept))
{
}

void BackgroundReducer::setRate(FrameRate rate)
{
    precondition(!m_thread, "a rate is known before the first frame");
    precondition(rate.seconds == 1, "a whole number of frames per second");
    m_sourceFPS = rate.frames;
}

void BackgroundReducer::take(const RGBAFrame& frame)
{
    if (!m_thread)
        m_thread.emplace(FrameReducer::sparing(m_sourceFPS, m_preset, m_onKept), maxQueue);
    m_thread->take(frame);
}

const FrameReducer& BackgroundReducer::finished()
{
    precondition(m_thread.has_value(), "an input has a frame");
    return m_thread->finished();
}

} // namespace quillbox
