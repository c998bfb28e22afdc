#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <chrono>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

namespace quillbox {

/// Frames `begin` up to, but not including, `end`; neither is negative.
struct FrameRange {
    std::int64_t begin = 0;
    std::int64_t end = 0;

    friend bool operator==(const FrameRange&, const FrameRange&) = default;
};

/// Turns pictures that arrive whenever the screen changes into a steady list of 30 frames a second. Time zero is the
/// first picture's moment. Frame k shows the latest picture delivered before (k + 1) ÷ 30 s; where nothing new arrived
/// it repeats the frame before it and shares its pixels. Gaps are filled in by the next delivery or by finish(), so
/// that a still screen costs nothing. Not for use from two threads at once.
class FrameTimeline {
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    static constexpr std::int64_t framesPerSecond = 30;
    static constexpr std::int64_t unlimited = std::numeric_limits<std::int64_t>::max();

    /// @param maxFrames  The list never gets longer.
    explicit FrameTimeline(std::int64_t maxFrames = unlimited)
        : m_maxFrames(maxFrames)
    {
    }

    /// Adds a picture that was on the screen at `time`. A time before the latest one counts as the latest one. After
    /// finish() the picture is appended as one frame of its own.
    void deliver(RGBAFrame frame, TimePoint time);

    /// From now on the list repeats a picture though the screen may show something else; until resume(), which is
    /// called before the next delivery. The frame that `time` falls into is no such repetition.
    void hold(TimePoint time);
    void resume(TimePoint time);
    /// The frames, of those there are, that repeat a picture because of hold(), oldest first. Of a hold that goes on,
    /// none.
    [[nodiscard]] const std::vector<FrameRange>& held() const { return m_held; }
    /// The first frame that a hold which goes on repeats, or will; none without one, or without a picture.
    [[nodiscard]] std::optional<std::int64_t> heldFrom() const;
    /// The frame that `time` falls into. @pre there is a picture.
    [[nodiscard]] std::int64_t frameAt(TimePoint time) const;

    /// Ends the list at `time`, or at the last delivery if that was later: it then holds round(30 × duration in
    /// seconds) frames, halves away from zero, and at least one if there was any picture; all within its limit. A
    /// second call does nothing.
    void finish(TimePoint time);

    [[nodiscard]] bool isFinished() const { return m_finished; }
    /// Whether there was any picture.
    [[nodiscard]] bool hasPicture() const { return m_latest || !m_frames.empty(); }

    /// How many frames finish(time) would leave; once finished, how many there are.
    [[nodiscard]] std::int64_t frameCount(TimePoint time) const;

    /// The frames so far, oldest first. Until finish() the latest picture and its repetitions may be missing.
    [[nodiscard]] const std::vector<RGBAFrame>& frames() const { return m_frames; }

private:
    void fillUpTo(std::int64_t count);
    void noteHeld(std::int64_t end);

    std::vector<RGBAFrame> m_frames;   // complete ticks only
    std::optional<RGBAFrame> m_latest; // not yet in m_frames as a tick of its own
    TimePoint m_zero;
    TimePoint m_lastDelivery;
    std::optional<TimePoint> m_holdSince;
    std::vector<FrameRange> m_held;
    std::int64_t m_maxFrames;
    bool m_finished = false;
};

} // namespace quillbox
