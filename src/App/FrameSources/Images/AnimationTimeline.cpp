#include "App/FrameSources/Images/AnimationTimeline.h"

#include "Encoding/Precondition.h"

#include <algorithm>
#include <cstddef>

namespace quillbox {
namespace {

std::int64_t shownFor(const AnimationTimeline::TimedFrame& timed)
{
    return timed.milliseconds < 1 ? AnimationTimeline::unknownMilliseconds : timed.milliseconds;
}

} // namespace

std::int64_t AnimationTimeline::duration(std::span<const TimedFrame> frames)
{
    std::int64_t sum = 0;
    for (const TimedFrame& timed : frames)
        sum = checkedAdd(sum, shownFor(timed));
    return sum;
}

void AnimationTimeline::steady(std::span<const TimedFrame> frames, FrameConsumer& receiver)
{
    precondition(!frames.empty(), "an animation has a frame");
    const auto total = duration(frames);
    precondition(total <= maximumMilliseconds, "an animation is short enough to be spread over a clip");

    const auto first = shownFor(frames.front());
    const bool uniform
        = std::all_of(frames.begin(), frames.end(), [&](const TimedFrame& timed) { return shownFor(timed) == first; });
    if (uniform) {
        receiver.setRate({.frames = 1000, .seconds = first});
        for (const TimedFrame& timed : frames)
            receiver.take(timed.frame);
        return;
    }

    receiver.setRate({.frames = steadyFPS, .seconds = 1});
    const auto count = std::max<std::int64_t>(1, (total * steadyFPS + 500) / 1000);
    std::size_t current = 0;
    std::int64_t currentEnd = first; // milliseconds since the start
    for (std::int64_t tick = 0; tick < count; ++tick) {
        while (current + 1 < frames.size() && tick * 1000 >= currentEnd * steadyFPS)
            currentEnd += shownFor(frames[++current]);
        receiver.take(frames[current].frame);
    }
}

} // namespace quillbox
