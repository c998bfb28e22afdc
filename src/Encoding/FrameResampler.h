#pragma once

#include "Encoding/ForkJoinThread.h"
#include "Encoding/Parallel.h"
#include "Encoding/Pixels/PixelSize.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace quillbox {

/// Shrinks pictures with a box filter; never enlarges. Stateless; thread: any.
namespace FrameResampler {

/// `size` shrunk to `maxWidth`, the height following as (maxWidth ÷ width) × height in doubles, rounded, at least
/// 1. Unchanged when it is narrow enough already, or when `maxWidth` or the height is below 1.
[[nodiscard]] PixelSize fittedSize(std::int64_t width, std::int64_t height, std::int64_t maxWidth);

/// Shrinks the frames of a clip to the size fitted to the first one.
class WidthCap {
public:
    /// @param maxWidth  Pixels; none, or one that the first frame does not exceed, leaves all frames as they are.
    WidthCap(const RGBAFrame& first, std::optional<std::int64_t> maxWidth);

    [[nodiscard]] bool isNone() const { return !m_target; }

    /// The size of what applied() makes of `frame`.
    [[nodiscard]] PixelSize size(const RGBAFrame& frame) const;

    /// `frame` no larger than fitted; one that is not is passed on with its pixels shared.
    /// @param side  Does half of the work, if there is one.
    [[nodiscard]] RGBAFrame applied(const RGBAFrame& frame, ForkJoinThread* side = nullptr) const;

private:
    std::optional<PixelSize> m_target;
};

/// All frames, in order, under the `WidthCap` of the first.
[[nodiscard]] std::vector<RGBAFrame> cappedToWidth(
    std::span<const RGBAFrame> frames, std::optional<std::int64_t> maxWidth, Parallelism parallelism = {});

/// Every pixel is the mean of its block of source pixels, truncated, alpha included.
/// @param side  Does half of the work, if there is one.
/// @pre 0 ≤ size.width ≤ frame.width(), 0 ≤ size.height ≤ frame.height().
[[nodiscard]] RGBAFrame boxFiltered(const RGBAFrame& frame, PixelSize size, ForkJoinThread* side = nullptr);

/// Rows `begin` ≤ y < `end` of a picture.
struct RowRange {
    std::int64_t begin = 0;
    std::int64_t end = 0;

    friend bool operator==(const RowRange&, const RowRange&) = default;
};

/// Some rows of `boxFiltered(frame, size)`. Only source rows that they are made of are looked at.
/// @param output  Takes the rows, RGBA. @pre `size` as above; `rows` lie within it and fill `output`.
void boxFilterRows(const RGBAFrame& frame, PixelSize size, RowRange rows, std::span<std::uint8_t> output);

/// The rows of the output that are made of some of the rows `source`. @pre 0 < outputHeight ≤ sourceHeight, and
/// `source` lies within the source.
[[nodiscard]] RowRange rowsMadeOf(RowRange source, std::int64_t sourceHeight, std::int64_t outputHeight);

} // namespace FrameResampler
} // namespace quillbox
