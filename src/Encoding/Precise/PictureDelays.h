#pragma once

#include <cstdint>
#include <span>
#include <vector>

/// How long each picture of a clip is shown. Stateless; thread: any.
namespace quillbox::PictureDelays {

/// Browsers show a picture of 0 or 1 hundredths of a second for ten.
inline constexpr std::int64_t minCentiseconds = 2;

/// One delay a picture, 1/100 s: the difference of the rounded times at which its display ends and begins, so that the
/// sum is the recording's length, rounded. At least `minCentiseconds` each: what that lends to a picture is taken from
/// later ones, as far as they can give it.
/// @param ticks       Numbers of the frames at which the pictures begin, strictly ascending from 0.
/// @param frameCount  Of the recording; above the last of `ticks`.
/// @param fps         Frames per second, positive.
[[nodiscard]] std::vector<std::int64_t> of(
    std::span<const std::int64_t> ticks, std::int64_t frameCount, std::int64_t fps);

} // namespace quillbox::PictureDelays
