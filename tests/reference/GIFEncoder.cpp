#include "reference/GIFEncoder.h"

#include "reference/LZW.h"

#include <algorithm>
#include <string_view>

namespace quillbox::reference {

namespace {

void append(Bytes& output, std::int64_t byte)
{
    output.push_back(static_cast<std::uint8_t>(byte));
}

void append(Bytes& output, std::string_view text)
{
    for (const char letter : text)
        append(output, std::int64_t{letter});
}

void append16(Bytes& output, std::int64_t value)
{
    append(output, value % 256);
    append(output, value / 256);
}

void appendFrame(Bytes& output, const IndexedFrame& frame)
{
    const int bits = colorTableBits(std::ssize(frame.palette));
    append(output, 0x21); // graphic control extension
    append(output, 0xF9);
    append(output, 4);
    append(output, 0x04); // leave the picture in place, no transparent colour
    append16(output, std::clamp<std::int64_t>(frame.delayCentiseconds, 1, 65535));
    append(output, 0);
    append(output, 0);

    append(output, 0x2C); // image descriptor
    append16(output, 0);
    append16(output, 0);
    append16(output, frame.width);
    append16(output, frame.height);
    append(output, 0x80 + bits - 1); // local colour table of 2^bits entries
    for (const RGBColor color : padPalette(frame.palette)) {
        append(output, std::int64_t{color.r});
        append(output, std::int64_t{color.g});
        append(output, std::int64_t{color.b});
    }

    const int minCodeSize = std::max(bits, 2);
    append(output, minCodeSize);
    const Bytes codes = lzwEncode(frame.indices, minCodeSize);
    for (std::size_t start = 0; start < codes.size(); start += 255) {
        const std::size_t length = std::min<std::size_t>(255, codes.size() - start);
        append(output, static_cast<std::int64_t>(length));
        for (std::size_t offset = 0; offset < length; ++offset)
            output.push_back(codes[start + offset]);
    }
    append(output, 0);
}

} // namespace

int colorTableBits(std::int64_t count)
{
    int bits = 1;
    while (bits < 8 && (std::int64_t{1} << bits) < count)
        ++bits;
    return bits;
}

std::vector<RGBColor> padPalette(std::span<const RGBColor> palette)
{
    std::vector<RGBColor> table(palette.begin(), palette.end());
    table.resize(std::size_t{1} << static_cast<unsigned>(colorTableBits(std::ssize(palette))), RGBColor(0, 0, 0));
    return table;
}

Bytes gifEncode(std::span<const IndexedFrame> frames, std::int64_t loopCount)
{
    Bytes output;
    if (frames.empty())
        return output;
    append(output, "GIF89a");
    append16(output, frames[0].width);
    append16(output, frames[0].height);
    append(output, 0x70); // no global colour table, 8 bits a primary
    append(output, 0);
    append(output, 0);
    append(output, 0x21); // looping extension
    append(output, 0xFF);
    append(output, 11);
    append(output, "NETSCAPE2.0");
    append(output, 3);
    append(output, 1);
    append16(output, std::max<std::int64_t>(loopCount, 0));
    append(output, 0);
    for (const IndexedFrame& frame : frames)
        appendFrame(output, frame);
    append(output, 0x3B);
    return output;
}

} // namespace quillbox::reference
