#include "Platform/X11/X11PixelFormat.h"

#include "Encoding/Precondition.h"

#include <bit>

namespace quillbox {

namespace {

struct Channel {
    explicit Channel(std::uint32_t channelMask)
        : mask(channelMask)
        , shift(std::countr_zero(channelMask))
        , bits(std::popcount(channelMask))
        , maximum(channelMask >> shift)
    {
    }

    [[nodiscard]] std::uint8_t valueIn(std::uint32_t pixel) const
    {
        const std::uint32_t value = (pixel & mask) >> shift;
        if (bits >= 8)
            return static_cast<std::uint8_t>(value >> (bits - 8));
        return static_cast<std::uint8_t>((value * 255 + maximum / 2) / maximum);
    }

    std::uint32_t mask;
    int shift;
    int bits;
    std::uint32_t maximum;
};

bool isContiguous(std::uint32_t mask)
{
    return mask != 0 && std::has_single_bit((std::uint64_t{mask} >> std::countr_zero(mask)) + 1);
}

} // namespace

bool X11PixelFormat::isBGRA() const
{
    return bitsPerPixel == 32 && leastSignificantByteFirst && redMask == 0xFF0000 && greenMask == 0x00FF00
        && blueMask == 0x0000FF;
}

bool X11PixelFormat::isReadable() const
{
    return (bitsPerPixel == 16 || bitsPerPixel == 24 || bitsPerPixel == 32) && scanlinePadBits >= 8
        && scanlinePadBits % 8 == 0 && isContiguous(redMask) && isContiguous(greenMask) && isContiguous(blueMask);
}

std::int64_t X11PixelFormat::strideFor(std::int64_t width) const
{
    const std::int64_t bits = checkedMul<std::int64_t>(width, bitsPerPixel);
    return (bits + scanlinePadBits - 1) / scanlinePadBits * scanlinePadBits / 8;
}

void X11PixelFormat::unpack(const std::uint8_t* row, std::uint8_t* destination, std::int64_t pixels) const
{
    precondition(isReadable(), "a pixel layout is readable");
    const Channel red(redMask);
    const Channel green(greenMask);
    const Channel blue(blueMask);
    const int bytes = bitsPerPixel / 8;
    for (std::int64_t i = 0; i < pixels; ++i) {
        std::uint32_t pixel = 0;
        for (int byte = 0; byte < bytes; ++byte) {
            const int place = leastSignificantByteFirst ? byte : bytes - 1 - byte;
            pixel |= std::uint32_t{row[i * bytes + byte]} << (8 * place);
        }
        destination[i * 4] = blue.valueIn(pixel);
        destination[i * 4 + 1] = green.valueIn(pixel);
        destination[i * 4 + 2] = red.valueIn(pixel);
        destination[i * 4 + 3] = 255;
    }
}

} // namespace quillbox
