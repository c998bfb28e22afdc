#pragma once

#include <cstddef>
#include <cstdint>

namespace quillbox {

/// Where a pixel's channels are; x means nothing, A is alpha. Bytes are in the order of memory, lowest address first.
/// Channels of ten bits, with two bits of x or alpha, are in the order of a little-endian word, highest bit first.
enum class PixelFormat {
    BGRx,
    RGBx,
    BGRA,
    RGBA,
    xRGB,
    xBGR,
    ARGB,
    ABGR,
    RGB,
    BGR,
    xRGB2101010,
    xBGR2101010,
    RGBx1010102,
    BGRx1010102,
    ARGB2101010,
    ABGR2101010,
    RGBA1010102,
    BGRA1010102
};

[[nodiscard]] constexpr std::int64_t bytesPerPixel(PixelFormat order)
{
    return order == PixelFormat::RGB || order == PixelFormat::BGR ? 3 : 4;
}

/// Writes `pixels` pixels as red, green, blue and alpha: the one they carry, else 255. Of ten bits the upper eight are
/// taken; two bits of alpha are spread over 0…255.
/// @param source  The first pixel.
/// @param step    Bytes from one pixel to the next, negative where they are taken backwards.
void unpack(
    PixelFormat order, const std::uint8_t* source, std::ptrdiff_t step, std::uint8_t* destination, std::int64_t pixels);

} // namespace quillbox
