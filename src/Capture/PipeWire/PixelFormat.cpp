#include "Capture/PipeWire/PixelFormat.h"

#include "Encoding/Multiversion.h"

namespace quillbox {

namespace {

constexpr int opaque = -1;

/// Where a pixel's channels are, in bytes from its beginning.
struct Places {
    int red;
    int green;
    int blue;
    int alpha; // or opaque
};

template <Places places>
inline void unpackEach(const std::uint8_t* source, std::ptrdiff_t step, std::uint8_t* destination, std::int64_t pixels)
{
    for (std::int64_t i = 0; i < pixels; ++i) {
        const std::uint8_t* const pixel = source + i * step;
        destination[i * 4] = pixel[places.red];
        destination[i * 4 + 1] = pixel[places.green];
        destination[i * 4 + 2] = pixel[places.blue];
        if constexpr (places.alpha == opaque)
            destination[i * 4 + 3] = 255;
        else
            destination[i * 4 + 3] = pixel[places.alpha];
    }
}

/// How far the upper eight bits of a word's channels of ten bits, and both bits of its alpha, are from its lowest bit.
struct Shifts {
    int red;
    int green;
    int blue;
    int alpha; // or opaque
};

template <Shifts shifts>
inline void unpackEach(const std::uint8_t* source, std::ptrdiff_t step, std::uint8_t* destination, std::int64_t pixels)
{
    for (std::int64_t i = 0; i < pixels; ++i) {
        const std::uint8_t* const pixel = source + i * step;
        const std::uint32_t word = pixel[0] | static_cast<std::uint32_t>(pixel[1]) << 8
            | static_cast<std::uint32_t>(pixel[2]) << 16 | static_cast<std::uint32_t>(pixel[3]) << 24;
        destination[i * 4] = static_cast<std::uint8_t>(word >> shifts.red);
        destination[i * 4 + 1] = static_cast<std::uint8_t>(word >> shifts.green);
        destination[i * 4 + 2] = static_cast<std::uint8_t>(word >> shifts.blue);
        if constexpr (shifts.alpha == opaque)
            destination[i * 4 + 3] = 255;
        else
            destination[i * 4 + 3] = static_cast<std::uint8_t>((word >> shifts.alpha & 3) * 85); // 3 × 85 = 255
    }
}

/// Rows are read pixel by pixel nearly always: with the step known, the compiler vectorises the loop.
template <auto places>
inline void unpackAll(const std::uint8_t* source, std::ptrdiff_t step, std::uint8_t* destination, std::int64_t pixels)
{
    constexpr std::ptrdiff_t next = 4;
    if (step == next)
        unpackEach<places>(source, next, destination, pixels);
    else
        unpackEach<places>(source, step, destination, pixels);
}

} // namespace

QUILLBOX_MULTIVERSION
void unpack(
    PixelFormat order, const std::uint8_t* source, std::ptrdiff_t step, std::uint8_t* destination, std::int64_t pixels)
{
    switch (order) {
    case PixelFormat::BGRx:
        return unpackAll<Places{2, 1, 0, opaque}>(source, step, destination, pixels);
    case PixelFormat::RGBx:
        return unpackAll<Places{0, 1, 2, opaque}>(source, step, destination, pixels);
    case PixelFormat::BGRA:
        return unpackAll<Places{2, 1, 0, 3}>(source, step, destination, pixels);
    case PixelFormat::RGBA:
        return unpackAll<Places{0, 1, 2, 3}>(source, step, destination, pixels);
    case PixelFormat::xRGB:
        return unpackAll<Places{1, 2, 3, opaque}>(source, step, destination, pixels);
    case PixelFormat::xBGR:
        return unpackAll<Places{3, 2, 1, opaque}>(source, step, destination, pixels);
    case PixelFormat::ARGB:
        return unpackAll<Places{1, 2, 3, 0}>(source, step, destination, pixels);
    case PixelFormat::ABGR:
        return unpackAll<Places{3, 2, 1, 0}>(source, step, destination, pixels);
    case PixelFormat::RGB:
        return unpackAll<Places{0, 1, 2, opaque}>(source, step, destination, pixels);
    case PixelFormat::BGR:
        return unpackAll<Places{2, 1, 0, opaque}>(source, step, destination, pixels);
    case PixelFormat::xRGB2101010:
        return unpackAll<Shifts{22, 12, 2, opaque}>(source, step, destination, pixels);
    case PixelFormat::xBGR2101010:
        return unpackAll<Shifts{2, 12, 22, opaque}>(source, step, destination, pixels);
    case PixelFormat::RGBx1010102:
        return unpackAll<Shifts{24, 14, 4, opaque}>(source, step, destination, pixels);
    case PixelFormat::BGRx1010102:
        return unpackAll<Shifts{4, 14, 24, opaque}>(source, step, destination, pixels);
    case PixelFormat::ARGB2101010:
        return unpackAll<Shifts{22, 12, 2, 30}>(source, step, destination, pixels);
    case PixelFormat::ABGR2101010:
        return unpackAll<Shifts{2, 12, 22, 30}>(source, step, destination, pixels);
    case PixelFormat::RGBA1010102:
        return unpackAll<Shifts{24, 14, 4, 0}>(source, step, destination, pixels);
    case PixelFormat::BGRA1010102:
        return unpackAll<Shifts{4, 14, 24, 0}>(source, step, destination, pixels);
    }
}

} // namespace quillbox
