#include "Capture/LiveIntake.h"

#include "Capture/FrameTimeline.h"

namespace quillbox {

void LiveIntake::follow(const std::vector<RGBAFrame>& frames)
{
    precondition(!m_isFinished, "a recording is followed until its end");
    takeUpTo(frames);
}

const FrameIntake* LiveIntake::of(const std::vector<RGBAFrame>& frames)
{
    if (!m_isFinished)
        takeUpTo(frames);
    m_isFinished = true;
    if (!m_thread || m_thread->takenCount() != std::ssize(frames))
        return nullptr;
    return &m_thread->finished();
}

void LiveIntake::takeUpTo(const std::vector<RGBAFrame>& frames)
{
    if (!m_thread && !frames.empty())
        m_thread.emplace(FrameIntake::forAnyPreset(FrameTimeline::framesPerSecond));
    for (auto i = m_thread ? m_thread->takenCount() : 0; i < std::ssize(frames); ++i)
        m_thread->take(frames[static_cast<std::size_t>(i)]);
}

} // namespace quillbox
