#pragma once

#include "App/FrameSources/FrameConsumer.h"
#include "App/FrameSources/FrameRate.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <optional>

namespace quillbox {

/// Gives frames of any rate to a receiver that knows whole rates from 30 on. A slower input is put on a timeline of 30
/// pictures a second: picture i shows frame floor(i × rate ÷ 30), as long as there is one, and repeats share their
/// pixels. A faster one is passed on frame by frame, at the nearest whole rate. One thread at a time.
class ClipTimeline final : public FrameConsumer {
public:
    /// Pictures a second that a slower input is spread over.
    static constexpr std::int64_t picturesPerSecond = 30;

    /// @param rate  Of the frames, whatever the input says; none: the input's own, or else 30.
    /// @param next  Outlives this.
    ClipTimeline(std::optional<FrameRate> rate, FrameConsumer& next);

    void setRate(FrameRate rate) override;
    void take(const RGBAFrame& frame) override;

    /// Frames taken that differ from the one before.
    [[nodiscard]] std::int64_t distinctCount() const { return m_distinctCount; }
    /// The frames' own rate. @pre a frame was taken.
    [[nodiscard]] FrameRate rate() const { return m_rate.value(); }

private:
    void begin();
    /// How many pictures the next frame is shown by.
    [[nodiscard]] std::int64_t nextPictureCount();

    std::optional<FrameRate> m_rate;
    FrameConsumer& m_next;
    bool m_isSpread = false;
    std::int64_t m_shownCount = 0;      ///< pictures handed on
    std::int64_t m_wholePictures = 0;   ///< the end of the latest frame: so many pictures
    std::int64_t m_pictureFraction = 0; ///< and so many parts of one of which there are `m_rate->frames`
    std::optional<RGBAFrame> m_previous;
    std::int64_t m_distinctCount = 0;
};

} // namespace quillbox
