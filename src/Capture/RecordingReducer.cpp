#include "Capture/RecordingReducer.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quillbox {

RecordingReducer::RecordingReducer(FrameSpill store, std::function<void()> onTrouble)
    : m_store(std::move(store))
    , m_onTrouble(std::move(onTrouble))
{
}

void RecordingReducer::HeldFrames::set(const std::vector<FrameRange>& ranges)
{
    const std::scoped_lock lock(m_mutex);
    if (m_ranges != ranges)
        m_ranges = ranges;
}

std::vector<FrameRange> RecordingReducer::HeldFrames::ranges() const
{
    const std::scoped_lock lock(m_mutex);
    return m_ranges;
}

bool RecordingReducer::HeldFrames::contains(std::int64_t frame) const
{
    const std::scoped_lock lock(m_mutex);
    const auto next = std::ranges::upper_bound(m_ranges, frame, {}, &FrameRange::begin);
    return next != m_ranges.begin() && frame < std::prev(next)->end;
}

void RecordingReducer::FollowedFrames::append(const RGBAFrame& frame)
{
    if (held->contains(reducer.frameCount()))
        reducer.appendHeld(frame);
    else
        reducer.append(frame);
}

void RecordingReducer::follow(const std::vector<RGBAFrame>& frames, const std::vector<FrameRange>& held)
{
    m_held->set(held); // before the thread has any of those
    if (!m_thread && !frames.empty())
        m_thread.emplace(
            FollowedFrames{FrameReducer::forAnyPreset(FrameTimeline::framesPerSecond), m_held},
            FrameThread<FollowedFrames>::unlimited,
            [this](const RGBAFrame& frame) {
                count(frame);
                keep(frame);
            },
            [this] {
                m_hasFailed = true;
                if (m_onTrouble)
                    m_onTrouble();
            });
    for (auto i = m_thread ? m_thread->takenCount() : 0; i < std::ssize(frames); ++i)
        m_thread->take(frames[static_cast<std::size_t>(i)]);
}

bool RecordingReducer::isBehind(const std::vector<RGBAFrame>& frames) const
{
    if (!m_store || hasFailed()) // what nobody takes care of waits for nobody
        return false;
    const std::int64_t limit = m_store->limits().waitingBytes;
    std::int64_t waiting = 0;
    for (auto i = std::ssize(frames) - 1; i >= (m_thread ? m_thread->doneCount() : 0) && waiting <= limit; --i) {
        const RGBAFrame& frame = frames[static_cast<std::size_t>(i)];
        if (i == 0 || !frame.sharesPixels(frames[static_cast<std::size_t>(i) - 1]))
            waiting += frame.pixelCount() * RGBAFrame::bytesPerPixel;
    }
    return waiting > limit;
}

const FrameReducer& RecordingReducer::finished()
{
    const std::scoped_lock lock(m_finishing);
    precondition(m_thread.has_value(), "a recording that is finished has a frame");
    return m_thread->finished().reducer;
}

void RecordingReducer::count(const RGBAFrame& frame)
{
    if (!m_previous || !(frame == *m_previous))
        ++m_distinctCount;
    m_previous = frame;
}

void RecordingReducer::keep(const RGBAFrame& frame)
{
    if (!m_store || !fullReason().empty())
        return;
    try {
        m_store->keep(frame);
    } catch (const SpillError& error) {
        {
            const std::scoped_lock lock(m_mutex);
            m_fullReason = error.what();
        }
        if (m_onTrouble)
            m_onTrouble();
    }
}

std::string RecordingReducer::fullReason() const
{
    const std::scoped_lock lock(m_mutex);
    return m_fullReason;
}

} // namespace quillbox
