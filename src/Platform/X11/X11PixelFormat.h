#pragma once

#include <cstdint>

namespace quillbox {

/// How an X server lays out the pixels of a true-colour picture in memory.
struct X11PixelFormat {
    int bitsPerPixel = 32;    ///< 16, 24 or 32
    int scanlinePadBits = 32; ///< a row's length is a multiple of it
    bool leastSignificantByteFirst = true;
    std::uint32_t redMask = 0xFF0000;
    std::uint32_t greenMask = 0x00FF00;
    std::uint32_t blueMask = 0x0000FF;
    bool carriesAlpha = false; ///< the bits outside the masks are alpha; only in the BGRA layout

    /// Whether a pixel's bytes are blue, green, red and a fourth one, as our own picture wants them.
    [[nodiscard]] bool isBGRA() const;
    /// Whether unpack() knows the layout.
    [[nodiscard]] bool isReadable() const;
    /// Bytes from one row to the next in a picture of `width` pixels.
    [[nodiscard]] std::int64_t strideFor(std::int64_t width) const;

    /// Writes `pixels` pixels of one row as blue, green, red, 255. A channel of fewer than eight bits is stretched to
    /// 0…255, one of more loses its lowest bits.
    /// @pre isReadable().
    void unpack(const std::uint8_t* row, std::uint8_t* destination, std::int64_t pixels) const;
};

} // namespace quillbox
