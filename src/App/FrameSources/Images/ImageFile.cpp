#include "App/FrameSources/Images/ImageFile.h"

#include "App/FrameSources/Images/CompressionBounds.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string_view>

namespace quillbox {
namespace {

using ImageFile::Extent;
using ImageFile::Kind;
using Span = std::span<const std::uint8_t>;

bool hasAt(Span file, std::size_t offset, std::string_view word)
{
    return file.size() >= offset + word.size()
        && std::equal(word.begin(), word.end(), file.begin() + static_cast<std::ptrdiff_t>(offset),
            [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
}

/// @pre the bytes are there.
std::uint32_t bigEndian16(Span file, std::size_t offset)
{
    return std::uint32_t{file[offset]} << 8U | file[offset + 1];
}
std::uint32_t bigEndian32(Span file, std::size_t offset)
{
    return std::uint32_t{file[offset]} << 24U | std::uint32_t{file[offset + 1]} << 16U
        | std::uint32_t{file[offset + 2]} << 8U | file[offset + 3];
}
std::uint32_t littleEndian32(Span file, std::size_t offset)
{
    return std::uint32_t{file[offset + 3]} << 24U | std::uint32_t{file[offset + 2]} << 16U
        | std::uint32_t{file[offset + 1]} << 8U | file[offset];
}

constexpr std::string_view pngSignature = "\x89PNG\r\n\x1a\n";
constexpr std::size_t pngOverhead = 12; ///< of a chunk: length, name, checksum

/// Whether so many bytes of IDAT can be inflated to the picture that the IHDR announces, which is the canvas: sections
/// 7.2 and 11.2.1.
bool canHoldPNG(Span file, std::int64_t dataBytes)
{
    constexpr std::size_t ihdr = 16; // where its data begins
    if (file.size() < ihdr + 10)
        return false;
    constexpr std::array<std::int64_t, 7> samplesOfType{1, 1, 3, 1, 2, 1, 4};
    const std::int64_t samples = samplesOfType.at(std::min<std::size_t>(file[ihdr + 9], samplesOfType.size() - 1));
    const std::int64_t rowBits = std::int64_t{bigEndian32(file, ihdr)} * samples * std::min<int>(file[ihdr + 8], 16);
    const std::int64_t rowBytes = 1 + rowBits / 8; // the number of its filter comes first
    return CompressionBounds::maxBytesOfDeflate(dataBytes) / rowBytes >= bigEndian32(file, ihdr + 4);
}

/// PNG, section 5.3. Each picture is the run of IDAT, or of fdAT behind its fcTL.
Extent extentOfPNG(Span file, bool isAnimated)
{
    Extent extent{.isCutOff = true};
    bool isInPicture = false;
    std::int64_t idatBytes = 0;
    std::size_t offset = pngSignature.size();
    while (file.size() - offset >= pngOverhead) {
        const std::size_t length = bigEndian32(file, offset);
        if (file.size() - offset - pngOverhead < length)
            break;
        const bool isCanvas = hasAt(file, offset + 4, "IDAT");
        const bool isData = isCanvas || hasAt(file, offset + 4, "fdAT");
        if (isCanvas)
            idatBytes += static_cast<std::int64_t>(length);
        if (isInPicture && !isData) {
            if (isAnimated && extent.wholeFrames == 0 && !canHoldPNG(file, idatBytes))
                break;
            ++extent.wholeFrames;
            extent.wholeBytes = offset;
        }
        isInPicture = isData;
        const bool isEnd = hasAt(file, offset + 4, "IEND");
        offset += pngOverhead + length;
        if (isEnd) {
            extent.isCutOff = false;
            break;
        }
    }
    if (!isAnimated)
        extent.wholeFrames = extent.isCutOff ? 0 : 1;
    return extent;
}

/// The place behind a GIF's sub-blocks, sections 15 and 16; none where they are cut off.
std::optional<std::size_t> behindSubBlocks(Span file, std::size_t offset)
{
    while (offset < file.size()) {
        const std::size_t length = file[offset];
        offset += 1 + length;
        if (length == 0)
            return offset;
    }
    return std::nullopt;
}

std::size_t colorTableBytes(std::uint8_t flags)
{
    return (flags & 0x80U) != 0 ? std::size_t{3} << ((flags & 7U) + 1U) : 0;
}

/// What a GIF's picture has from its descriptor to the end of its data. Section 20.
struct GIFPicture {
    std::int64_t pixelCount = 0;
    std::size_t behind = 0; ///< the place of the next block
    bool isHeld = true;     ///< by its data; small ones are whatever the decoder makes of them
};

/// None where it is cut off.
std::optional<GIFPicture> gifPictureAt(Span file, std::size_t offset)
{
    constexpr std::size_t descriptorBytes = 10;
    if (file.size() - offset <= descriptorBytes)
        return std::nullopt;
    const std::size_t data = offset + descriptorBytes + colorTableBytes(file[offset + 9]);
    const auto behind = behindSubBlocks(file, data + 1);
    if (!behind)
        return std::nullopt;
    const auto side = [&](std::size_t place) {
        return unsigned{file[offset + place + 1]} << 8U | file[offset + place];
    };
    const std::int64_t pixelCount = std::int64_t{side(5)} * side(7);
    constexpr std::int64_t smallPixels = 1 << 20;
    const auto dataBytes = static_cast<std::int64_t>(*behind - data);
    const bool isHeld
        = pixelCount <= smallPixels || pixelCount <= CompressionBounds::maxPixelsOfLZW(dataBytes, file[data]);
    return GIFPicture{.pixelCount = pixelCount, .behind = *behind, .isHeld = isHeld};
}

Extent extentOfGIF(Span file)
{
    constexpr std::size_t headerBytes = 13;
    Extent extent{.isCutOff = true};
    if (file.size() < headerBytes)
        return extent;
    std::size_t offset = headerBytes + colorTableBytes(file[10]);
    while (offset < file.size()) {
        std::optional<std::size_t> next;
        const std::uint8_t introducer = file[offset];
        if (introducer == 0x21) {
            next = behindSubBlocks(file, offset + 2);
        } else if (introducer == 0x2C) {
            const auto picture = gifPictureAt(file, offset);
            if (picture && picture->isHeld) {
                next = picture->behind;
                extent.wholeBytes = picture->behind;
                if (picture->pixelCount > 0 || extent.wholeFrames > 0) // nothing alone is no reason for a canvas
                    ++extent.wholeFrames;
            }
        } else if (introducer == 0x3B) {
            extent.isCutOff = false;
        }
        if (!next)
            break;
        offset = *next;
    }
    return extent;
}

/// ITU-T T.81, section B.1.1: markers with a length, and behind a start of scan, data up to the next marker. Whether
/// its end is there, and what lies before it can hold the picture.
bool isWholeJPEG(Span file)
{
    std::int64_t pixelCount = 0;
    std::size_t offset = 2;
    while (file.size() >= offset + 2) {
        const std::uint8_t marker = file[offset + 1];
        if (file[offset] != 0xFF || marker == 0xFF) {
            ++offset; // a scan's data, or a fill byte
        } else if (marker == 0xD9) {
            return pixelCount <= CompressionBounds::maxPixelsOfHuffmanJPEG(std::ssize(file));
        } else if (marker == 0 || marker == 1 || (marker >= 0xD0 && marker <= 0xD8)) {
            offset += 2; // a stuffed byte, or a marker that stands alone
        } else if (file.size() >= offset + 4) {
            constexpr std::size_t sides = 5; // where the header of a frame coded by Huffman has them
            if (marker >= 0xC0 && marker <= 0xC2 && file.size() >= offset + sides + 4)
                pixelCount = std::int64_t{bigEndian16(file, offset + sides)} * bigEndian16(file, offset + sides + 2);
            offset += 2 + bigEndian16(file, offset + 2);
        } else {
            return false;
        }
    }
    return false;
}

/// WebP: chunks in a RIFF file, each padded to an even size; an animation's pictures are its ANMF chunks.
Extent extentOfWebP(Span file)
{
    constexpr std::size_t headerBytes = 12;
    constexpr std::size_t chunkOverhead = 8;
    Extent extent;
    const std::size_t announced = std::size_t{littleEndian32(file, 4)} + chunkOverhead;
    extent.isCutOff = announced > file.size();
    bool isAnimated = false;
    std::size_t offset = headerBytes;
    while (file.size() - std::min(offset, file.size()) >= chunkOverhead) {
        const std::size_t length = littleEndian32(file, offset + 4);
        if (file.size() - offset - chunkOverhead < length)
            break;
        if (hasAt(file, offset, "ANIM"))
            isAnimated = true;
        const bool isFrame = hasAt(file, offset, "ANMF");
        offset += chunkOverhead + length + length % 2;
        if (isFrame) {
            ++extent.wholeFrames;
            extent.wholeBytes = std::min(offset, file.size());
        }
    }
    if (!isAnimated)
        extent.wholeFrames = extent.isCutOff ? 0 : 1;
    return extent;
}

/// Whether a PNG has a chunk of that name before its first picture.
bool hasChunk(Span file, std::string_view name)
{
    std::size_t offset = pngSignature.size();
    while (file.size() - offset >= pngOverhead) {
        const std::size_t length = bigEndian32(file, offset);
        if (hasAt(file, offset + 4, name))
            return true;
        if (hasAt(file, offset + 4, "IDAT") || file.size() - offset - pngOverhead < length)
            return false;
        offset += pngOverhead + length;
    }
    return false;
}

bool isVideo(Span file)
{
    struct Magic {
        std::size_t offset;
        std::string_view word;
    };
    using namespace std::string_view_literals;
    constexpr std::array magics{
        Magic{4, "ftyp"sv}, Magic{4, "moov"sv}, Magic{4, "mdat"sv}, Magic{0, "\x1A\x45\xDF\xA3"sv}, // Matroska, WebM
        Magic{8, "AVI "sv}, Magic{0, "OggS"sv}, Magic{0, "FLV\x01"sv},
        Magic{0, "\0\0\x01\xBA"sv},     // MPEG programme stream
        Magic{0, "\0\0\x01\xB3"sv},     // MPEG video
        Magic{0, "\x30\x26\xB2\x75"sv}, // ASF
    };
    // These are images in the container of MP4.
    const bool isStill = hasAt(file, 4, "ftypavi") || hasAt(file, 4, "ftyphei") || hasAt(file, 4, "ftypmif1");
    constexpr std::size_t transportPacket = 188;
    const bool isTransport = file.size() > transportPacket * 2 && file[0] == 0x47 && file[transportPacket] == 0x47
        && file[transportPacket * 2] == 0x47;
    return !isStill && (isTransport || std::any_of(magics.begin(), magics.end(), [&](const Magic& magic) {
        return hasAt(file, magic.offset, magic.word);
    }));
}

} // namespace

Kind ImageFile::kindOf(Span file)
{
    if (hasAt(file, 0, pngSignature))
        return hasChunk(file, "acTL") ? Kind::animatedPNG : Kind::png;
    if (hasAt(file, 0, "GIF87a") || hasAt(file, 0, "GIF89a"))
        return Kind::gif;
    if (hasAt(file, 0, "\xFF\xD8\xFF"))
        return Kind::jpeg;
    if (hasAt(file, 0, "RIFF") && hasAt(file, 8, "WEBP"))
        return Kind::webp;
    if (hasAt(file, 0, "BM") && file.size() >= 14)
        return Kind::bmp;
    return isVideo(file) ? Kind::video : Kind::other;
}

bool ImageFile::isPNGWithoutProfile(Span file)
{
    return hasAt(file, 0, pngSignature) && !hasChunk(file, "iCCP");
}

Extent ImageFile::extentOf(Span file, Kind kind)
{
    const auto single = [&](bool isWhole) {
        return Extent{.isCutOff = !isWhole, .wholeFrames = isWhole ? 1 : 0, .wholeBytes = isWhole ? file.size() : 0};
    };
    switch (kind) {
    case Kind::png:
    case Kind::animatedPNG:
        return extentOfPNG(file, kind == Kind::animatedPNG);
    case Kind::gif:
        return extentOfGIF(file);
    case Kind::webp:
        return extentOfWebP(file);
    case Kind::jpeg:
        return single(isWholeJPEG(file));
    case Kind::bmp:
        return single(littleEndian32(file, 2) <= file.size());
    case Kind::video:
    case Kind::other:
        break;
    }
    return single(true);
}

Bytes ImageFile::withoutCutFrame(Span file, Kind kind, const Extent& extent)
{
    const auto whole = file.first(extent.wholeBytes);
    Bytes repaired(whole.begin(), whole.end());
    if (kind == Kind::gif) {
        repaired.push_back(0x3B);
    } else if (kind == Kind::webp) {
        const auto size = static_cast<std::uint32_t>(repaired.size() - 8);
        for (std::size_t i = 0; i < 4; ++i)
            repaired[4 + i] = static_cast<std::uint8_t>(size >> (8 * i));
    }
    return repaired;
}

} // namespace quillbox
