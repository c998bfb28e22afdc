#pragma once

#include "Encoding/FrameComparisons.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace quillbox {

/// Measures how much a recording moves and lowers its frame rate. Thread: any; an object, one at a time.
namespace FPSAdaptive {

/// Mean share of changed pixels between consecutive frames, taken one frame after another.
class ActivityMeter {
public:
    /// @pre `comparisons` has turned to `frame`.
    void append(const RGBAFrame& frame, FrameComparisons& comparisons);

    /// The same, but what has changed since the frame before does not count.
    void appendUncounted(const RGBAFrame& frame) { m_previous = frame; }

    /// 0.0…1.0; fewer than two frames give 0.0. A sum in frame order, divided once.
    [[nodiscard]] double average() const;

private:
    std::optional<RGBAFrame> m_previous;
    double m_sum = 0;
    std::int64_t m_pairs = 0;
};

/// Tells for one frame after another whether a lower rate keeps it: the frames at floor(0), floor(step),
/// floor(2·step), … are kept, with step = sourceFPS ÷ targetFPS summed in doubles.
class Resampler {
public:
    /// Rates in frames per second. Rates below 1, or a target at or above the source, keep all frames.
    Resampler(std::int64_t sourceFPS, std::int64_t targetFPS);

    /// Whether the next frame, beginning with the first, is kept.
    [[nodiscard]] bool keepsNext();

private:
    double m_step = 1;        ///< source frames a kept frame
    double m_position = 0;    ///< of the next kept frame
    std::int64_t m_index = 0; ///< of the next frame
};

/// `ActivityMeter` over all frames.
[[nodiscard]] double averageActivity(std::span<const RGBAFrame> frames);

/// The frames that `Resampler` keeps. Pixels are shared.
[[nodiscard]] std::vector<RGBAFrame> resample(
    std::span<const RGBAFrame> frames, std::int64_t sourceFPS, std::int64_t targetFPS);

} // namespace FPSAdaptive
} // namespace quillbox
