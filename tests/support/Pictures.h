#pragma once

#include "Encoding/Pixels/PixelTypes.h"
#include "support/Random.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace quillbox::support {

/// A picture whose pixel at (x, y) has the colour `colorAt(x, y)`; opaque.
[[nodiscard]] RGBAFrame picture(
    std::int64_t width, std::int64_t height, const std::function<RGBColor(std::int64_t x, std::int64_t y)>& colorAt);

/// A picture one pixel high (or, with `width`, several rows) of the given colours.
[[nodiscard]] RGBAFrame row(std::span<const RGBColor> colors);
[[nodiscard]] RGBAFrame rows(std::int64_t width, std::span<const RGBColor> colors);

[[nodiscard]] RGBAFrame solid(std::int64_t width, std::int64_t height, RGBColor color);
[[nodiscard]] constexpr RGBColor gray(int level)
{
    return {static_cast<std::uint8_t>(level), static_cast<std::uint8_t>(level), static_cast<std::uint8_t>(level)};
}

/// Like lines of dark glyphs on a light page, anti-aliased, scrolled up by `scroll` pixels.
[[nodiscard]] RGBAFrame textLike(std::int64_t width, std::int64_t height, std::int64_t scroll);
/// A smooth gradient in all three channels, shifted by `phase`.
[[nodiscard]] RGBAFrame gradient(std::int64_t width, std::int64_t height, std::int64_t phase);
/// Independent random bytes, alpha too.
[[nodiscard]] RGBAFrame noise(std::int64_t width, std::int64_t height, Random& random);

/// A small random picture of a random kind: noise, few colours, gradient, solid, dark, bright or nearly equal colours.
[[nodiscard]] RGBAFrame randomPicture(std::int64_t width, std::int64_t height, Random& random);

/// What may follow `previous` in a recording: itself (shared), an equal copy, some rows or pixels changed, scrolled, a
/// slight drift within the tolerance, other alpha, or something else of the same size.
[[nodiscard]] RGBAFrame randomSuccessor(const RGBAFrame& previous, Random& random);

/// A random palette of `count` colours: anywhere, in a corner far from most pictures, on a line, or with repetitions.
[[nodiscard]] std::vector<RGBColor> randomPalette(std::int64_t count, Random& random);

/// A copy with storage of its own.
[[nodiscard]] RGBAFrame deepCopy(const RGBAFrame& frame);

/// The same pictures made of bands; each shares those that equal the one before's. What has no pixels stays as it is,
/// and what repeats the picture before goes on sharing all of it.
[[nodiscard]] std::vector<RGBAFrame> inBands(const std::vector<RGBAFrame>& frames);

} // namespace quillbox::support
