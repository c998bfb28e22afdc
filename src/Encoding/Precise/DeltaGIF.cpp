#include "Encoding/Precise/DeltaGIF.h"

#include "Encoding/Precondition.h"

#include <algorithm>
#include <initializer_list>

namespace quillbox::DeltaGIF {
namespace {

using GIFEncoder::appendUInt16LE;

constexpr std::uint8_t trailer = 0x3B;

void append(Bytes& output, std::initializer_list<std::uint8_t> bytes)
{
    for (const std::uint8_t byte : bytes)
        output.push_back(byte);
}

void appendField(Bytes& output, std::int64_t value)
{
    precondition(value >= 0 && value <= GIFEncoder::maximumFieldValue, "a field of the format holds 16 bits");
    appendUInt16LE(output, static_cast<std::uint16_t>(value));
}

/// GIF89a, sections 19 and 21: padded to a power of two.
void appendColorTable(Bytes& output, std::span<const RGBColor> colors)
{
    for (const RGBColor color : GIFEncoder::padPalette(colors))
        append(output, {color.r, color.g, color.b});
}

/// The packed fields' part that announces a colour table: that there is one, and its size exponent less one.
std::uint8_t colorTableFlags(std::span<const RGBColor> colors)
{
    if (colors.empty())
        return 0;
    precondition(colors.size() <= 256, "a colour table has at most 256 colours");
    return static_cast<std::uint8_t>(0x80 | (GIFEncoder::colorTableBits(std::ssize(colors)) - 1));
}

/// GIF89a, sections 20 to 22.
void appendImage(Bytes& output, const Picture& picture)
{
    append(output, {','});
    for (const std::int64_t value : {picture.left, picture.top, picture.width, picture.height})
        appendField(output, value);
    append(output, {colorTableFlags(picture.localColorTable)});
    if (!picture.localColorTable.empty())
        appendColorTable(output, picture.localColorTable);
    append(output, {static_cast<std::uint8_t>(picture.codes.minCodeSize)});
    GIFEncoder::appendAsSubBlocks(output, picture.codes.data);
}

/// An image that changes nothing on the screen: one transparent pixel.
Picture invisible(bool needsColorTable)
{
    Picture picture{.width = 1, .height = 1};
    if (needsColorTable)
        picture.localColorTable.resize(2);
    // The codes 4 (clear), 0 and 5 (end), three bits each, lowest first.
    picture.codes = {.data = {0x44, 0x01}, .minCodeSize = 2, .transparentIndex = std::uint8_t{0}};
    return picture;
}

} // namespace

Bytes header(const Screen& screen)
{
    GIFEncoder::checkSize(screen.width, screen.height);
    Bytes output;
    GIFEncoder::appendHeader(output, screen.width, screen.height, colorTableFlags(screen.colorTable));
    if (!screen.colorTable.empty())
        appendColorTable(output, screen.colorTable);
    GIFEncoder::appendLooping(output, screen.loopCount);
    return output;
}

Bytes part(const Picture& picture)
{
    GIFEncoder::checkSize(picture.width, picture.height);
    precondition(picture.width > 0 && picture.height > 0, "a picture has pixels");
    precondition(picture.delayCentiseconds > 0, "a picture is shown for some time");

    Bytes output;
    std::int64_t rest = picture.delayCentiseconds;
    // A rest of 1 would be shown for 10 by browsers: an even share leaves none.
    const auto takeShare = [&rest] {
        const std::int64_t count = (rest + GIFEncoder::maximumFieldValue - 1) / GIFEncoder::maximumFieldValue;
        const std::int64_t share = rest / count;
        rest -= share;
        return share;
    };
    GIFEncoder::appendGraphicControl(output, takeShare(), picture.codes.transparentIndex);
    appendImage(output, picture);
    const Picture filler = invisible(!picture.localColorTable.empty());
    while (rest > 0) {
        GIFEncoder::appendGraphicControl(output, takeShare(), filler.codes.transparentIndex);
        appendImage(output, filler);
    }
    return output;
}

std::int64_t fileSize(const Screen& screen, std::span<const Bytes> parts)
{
    std::int64_t size = checkedAdd(std::ssize(header(screen)), std::int64_t{1});
    for (const Bytes& part : parts)
        size = checkedAdd(size, std::ssize(part));
    return size;
}

Bytes fileOf(const Screen& screen, std::span<const Bytes> parts)
{
    Bytes file = header(screen);
    file.reserve(static_cast<std::size_t>(fileSize(screen, parts)));
    for (const Bytes& part : parts)
        file.insert(file.end(), part.begin(), part.end());
    append(file, {trailer});
    return file;
}

} // namespace quillbox::DeltaGIF
