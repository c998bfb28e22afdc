#pragma once

#include "App/FrameSources/FrameConsumer.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillbox {

/// Gives the frames of an animation, each with its own display time, one steady rate. Stateless; thread: any.
namespace AnimationTimeline {

struct TimedFrame {
    RGBAFrame frame;
    std::int64_t milliseconds = 0; ///< display time; below 1 counts as `unknownMilliseconds`
};

/// How long a frame is shown that doesn't say: what browsers do.
inline constexpr std::int64_t unknownMilliseconds = 100;
/// The rate of a clip whose frames are not equally long.
inline constexpr std::int64_t steadyFPS = 30;
/// The longest animation that `steady` spreads over such a clip: a day.
inline constexpr std::int64_t maximumMilliseconds = std::int64_t{24} * 60 * 60 * 1000;

/// The sum of all display times, milliseconds.
[[nodiscard]] std::int64_t duration(std::span<const TimedFrame> frames);

/// Hands over the frames with their rate. Equally long frames give one frame each at their own rate. Otherwise the clip
/// has 30 frames a second: each instant shows the frame that the animation shows then, repeats share their pixels, and
/// the playing time is kept to within a frame.
/// @pre `frames` is not empty, and `duration` at most `maximumMilliseconds`.
void steady(std::span<const TimedFrame> frames, FrameConsumer& receiver);

} // namespace AnimationTimeline
} // namespace quillbox
