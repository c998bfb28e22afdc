#pragma once

#include <cstddef>
#include <cstdint>

namespace quillbox {

/// The order of a pixel's bytes in memory, lowest address first; x means nothing, A is alpha.
enum class PixelOrder { BGRx, RGBx, BGRA, RGBA, xRGB, xBGR, ARGB, ABGR, RGB, BGR };

[[nodiscard]] constexpr std::int64_t bytesPerPixel(PixelOrder order)
{
    return order == PixelOrder::RGB || order == PixelOrder::BGR ? 3 : 4;
}

/// Writes `pixels` pixels as red, green, blue and alpha: the one they carry, else 255.
/// @param source  The first pixel.
/// @param step    Bytes from one pixel to the next, negative where they are taken backwards.
void unpack(
    PixelOrder order, const std::uint8_t* source, std::ptrdiff_t step, std::uint8_t* destination, std::int64_t pixels);

} // namespace quillbox
