#include "Encoding/GIFEncoder.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace quillbox {

GIFEncodingError::GIFEncodingError(DimensionTooLarge size)
    : std::runtime_error("a frame of " + std::to_string(size.width) + "×" + std::to_string(size.height)
        + " pixels is too large for a GIF, whose sides have at most 65535")
    , m_size(size)
{
}

namespace GIFEncoder {
namespace {

constexpr std::uint8_t extensionIntroducer = 0x21;
constexpr std::uint8_t blockTerminator = 0x00;
constexpr std::int64_t maxSubBlock = 255;

constexpr std::int64_t headerAndScreenSize = 13; // bytes
constexpr std::int64_t loopingSize = 19;
constexpr std::int64_t trailerSize = 1;

void append(Bytes& output, std::initializer_list<std::uint8_t> bytes)
{
    for (const std::uint8_t byte : bytes)
        output.push_back(byte);
}

void append(Bytes& output, std::string_view text)
{
    for (const char letter : text)
        output.push_back(static_cast<std::uint8_t>(letter));
}

bool fitsField(std::int64_t value)
{
    return value >= 0 && value <= maximumFieldValue;
}

/// GIF89a, section 20.
void appendImageDescriptor(Bytes& output, const IndexedFrame& frame, int tableBits)
{
    append(output, {',', 0, 0, 0, 0}); // at the top left corner
    appendUInt16LE(output, static_cast<std::uint16_t>(frame.width));
    appendUInt16LE(output, static_cast<std::uint16_t>(frame.height));
    append(output, {static_cast<std::uint8_t>(0x80 | (tableBits - 1))}); // local colour table, not interlaced
}

} // namespace

void checkSize(std::int64_t width, std::int64_t height)
{
    if (!fitsField(width) || !fitsField(height))
        throw GIFEncodingError(GIFEncodingError::DimensionTooLarge{width, height});
}

int colorTableBits(std::int64_t count)
{
    int bits = 1;
    while (bits < 8 && count > std::int64_t{1} << bits)
        ++bits;
    return bits;
}

std::vector<RGBColor> padPalette(std::span<const RGBColor> palette)
{
    std::vector<RGBColor> table(palette.begin(), palette.end());
    table.resize(std::size_t{1} << colorTableBits(std::ssize(palette)));
    return table;
}

void appendUInt16LE(Bytes& output, std::uint16_t value)
{
    output.push_back(static_cast<std::uint8_t>(value & 0xFFU));
    output.push_back(static_cast<std::uint8_t>(value >> 8U));
}

void appendHeader(Bytes& output, std::int64_t width, std::int64_t height, std::uint8_t colorTableFlags)
{
    precondition(fitsField(width) && fitsField(height), "a side of the screen fits 16 bits");
    append(output, "GIF89a");
    appendUInt16LE(output, static_cast<std::uint16_t>(width));
    appendUInt16LE(output, static_cast<std::uint16_t>(height));
    append(output,
        {
            static_cast<std::uint8_t>(0x70 | colorTableFlags), // 8 bits per primary
            0,                                                 // background colour index
            0,                                                 // pixel aspect ratio: square
        });
}

void appendLooping(Bytes& output, std::int64_t loopCount)
{
    const std::int64_t repeats = std::max<std::int64_t>(loopCount, 0);
    precondition(repeats <= maximumFieldValue, "a loop count fits 16 bits");
    append(output, {extensionIntroducer, 0xFF, 11});
    append(output, "NETSCAPE2.0");
    append(output, {3, 1});
    appendUInt16LE(output, static_cast<std::uint16_t>(repeats));
    append(output, {blockTerminator});
}

void appendGraphicControl(Bytes& output, std::int64_t delayCentiseconds, std::optional<std::uint8_t> transparentIndex)
{
    append(output, {extensionIntroducer, 0xF9, 4, static_cast<std::uint8_t>(transparentIndex ? 0x05 : 0x04)});
    appendUInt16LE(
        output, static_cast<std::uint16_t>(std::clamp<std::int64_t>(delayCentiseconds, 1, maximumFieldValue)));
    append(output, {transparentIndex.value_or(0), blockTerminator});
}

void appendAsSubBlocks(Bytes& output, std::span<const std::uint8_t> data)
{
    const std::size_t blocks = (data.size() + maxSubBlock - 1) / maxSubBlock;
    output.reserve(output.size() + data.size() + blocks + 1);
    while (!data.empty()) {
        const auto block = data.first(std::min<std::size_t>(data.size(), maxSubBlock));
        output.push_back(static_cast<std::uint8_t>(block.size()));
        output.insert(output.end(), block.begin(), block.end());
        data = data.subspan(block.size());
    }
    output.push_back(blockTerminator);
}

Bytes encodeFrame(const IndexedFrame& frame, LZW::Encoder& compressor)
{
    checkSize(frame.width, frame.height);
    const int tableBits = colorTableBits(std::ssize(frame.palette));
    const int minCodeSize = std::max(tableBits, 2); // LZW has no literals of one bit

    Bytes part;
    appendGraphicControl(part, frame.delayCentiseconds);
    appendImageDescriptor(part, frame, tableBits);
    for (const RGBColor color : padPalette(frame.palette))
        append(part, {color.r, color.g, color.b});
    append(part, {static_cast<std::uint8_t>(minCodeSize)});
    appendAsSubBlocks(part, compressor.encode(frame.indices, minCodeSize));
    return part;
}

std::int64_t fileSize(std::span<const Bytes> frameParts)
{
    std::int64_t size = headerAndScreenSize + loopingSize + trailerSize;
    for (const Bytes& part : frameParts)
        size = checkedAdd(size, std::ssize(part));
    return size;
}

void appendFileStart(Bytes& output, std::int64_t width, std::int64_t height, Options options)
{
    appendHeader(output, width, height);
    appendLooping(output, options.loopCount);
}

void appendFileEnd(Bytes& output)
{
    append(output, {0x3B}); // trailer
}

Bytes fileOf(std::span<const Bytes> frameParts, std::int64_t width, std::int64_t height, Options options)
{
    Bytes file;
    file.reserve(static_cast<std::size_t>(fileSize(frameParts)));

    appendFileStart(file, width, height, options);
    for (const Bytes& part : frameParts)
        file.insert(file.end(), part.begin(), part.end());
    appendFileEnd(file);
    return file;
}

Bytes encode(std::span<const IndexedFrame> frames, Options options)
{
    if (frames.empty())
        return {};
    for (const IndexedFrame& frame : frames)
        checkSize(frame.width, frame.height);

    LZW::Encoder compressor;
    std::vector<Bytes> parts;
    parts.reserve(frames.size());
    for (const IndexedFrame& frame : frames)
        parts.push_back(encodeFrame(frame, compressor));
    return fileOf(parts, frames.front().width, frames.front().height, options);
}

} // namespace GIFEncoder
} // namespace quillbox
