#include "Capture/FrameTimeline.h"

#include <algorithm>
#include <utility>

namespace quillbox {

namespace {

constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;

std::int64_t frameNanoseconds(FrameTimeline::TimePoint from, FrameTimeline::TimePoint to)
{
    const auto elapsed = std::chrono::duration_cast<std::chrono::nanoseconds>(to - from).count();
    return checkedMul<std::int64_t>(elapsed, FrameTimeline::framesPerSecond);
}

/// The tick that `time` falls into. A thirtieth of a second is no whole number of nanoseconds: a time that is less
/// than one nanosecond short of a tick's beginning is that beginning, rounded down.
std::int64_t tickAt(FrameTimeline::TimePoint zero, FrameTimeline::TimePoint time)
{
    constexpr std::int64_t oneNanosecond = FrameTimeline::framesPerSecond;
    return (frameNanoseconds(zero, time) + oneNanosecond - 1) / nanosecondsPerSecond;
}

std::int64_t roundedTicks(FrameTimeline::TimePoint zero, FrameTimeline::TimePoint time)
{
    return (frameNanoseconds(zero, time) + nanosecondsPerSecond / 2) / nanosecondsPerSecond;
}

} // namespace

void FrameTimeline::deliver(RGBAFrame frame, TimePoint time)
{
    if (m_finished) {
        m_latest = std::move(frame);
        fillUpTo(std::ssize(m_frames) + 1);
        return;
    }
    if (!m_latest) {
        m_zero = time;
        m_lastDelivery = time;
    }
    m_lastDelivery = std::max(m_lastDelivery, time);
    fillUpTo(tickAt(m_zero, m_lastDelivery));
    m_latest = std::move(frame);
}

void FrameTimeline::hold(TimePoint time)
{
    if (!m_finished && !m_holdSince)
        m_holdSince = time;
}

void FrameTimeline::resume(TimePoint time)
{
    if (!m_finished && m_latest)
        noteHeld(frameAt(time));
    m_holdSince.reset();
}

void FrameTimeline::noteHeld(std::int64_t end)
{
    const auto begin = heldFrom();
    const FrameRange range{begin.value_or(0), std::min(end, m_maxFrames)};
    if (begin && range.begin < range.end)
        m_held.push_back(range);
}

std::optional<std::int64_t> FrameTimeline::heldFrom() const
{
    if (!m_holdSince || !m_latest)
        return std::nullopt;
    return tickAt(m_zero, std::max(*m_holdSince, m_zero)) + 1; // that one shows the screen
}

std::int64_t FrameTimeline::frameAt(TimePoint time) const
{
    return tickAt(m_zero, std::max(time, m_lastDelivery));
}

void FrameTimeline::finish(TimePoint time)
{
    if (m_finished)
        return;
    const std::int64_t count = frameCount(time);
    noteHeld(count);
    fillUpTo(count);
    m_finished = true;
}

std::int64_t FrameTimeline::frameCount(TimePoint time) const
{
    const std::int64_t complete = std::ssize(m_frames);
    if (m_finished || !m_latest)
        return complete;
    return std::min(
        m_maxFrames, std::max({complete, roundedTicks(m_zero, std::max(time, m_lastDelivery)), std::int64_t{1}}));
}

void FrameTimeline::fillUpTo(std::int64_t count)
{
    while (std::ssize(m_frames) < std::min(count, m_maxFrames))
        m_frames.push_back(*m_latest);
}

} // namespace quillbox
