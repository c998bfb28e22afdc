#include "support/GifDecoding.h"

#include "reference/GIFEncoder.h"

#include <gif_lib.h>

#include <algorithm>

#include <memory>
#include <string_view>

namespace quillbox::support {

namespace {

struct Closer {
    void operator()(GifFileType* file) const { (void)DGifCloseFile(file, nullptr); } // nothing was written
};
using GifFile = std::unique_ptr<GifFileType, Closer>;

int readFromSpan(GifFileType* file, GifByteType* buffer, int wanted)
{
    auto& rest = *static_cast<std::span<const std::uint8_t>*>(file->UserData);
    const std::size_t count = std::min(static_cast<std::size_t>(wanted), rest.size());
    std::copy_n(rest.begin(), count, buffer);
    rest = rest.subspan(count);
    return static_cast<int>(count);
}

std::vector<RGBColor> tableOf(const ColorMapObject* map)
{
    std::vector<RGBColor> table;
    for (int i = 0; map != nullptr && i < map->ColorCount; ++i)
        table.emplace_back(map->Colors[i].Red, map->Colors[i].Green, map->Colors[i].Blue);
    return table;
}

std::optional<std::int64_t> loopCountOf(std::span<const ExtensionBlock> blocks)
{
    for (std::size_t i = 0; i + 1 < blocks.size(); ++i) {
        const std::span name(blocks[i].Bytes, static_cast<std::size_t>(blocks[i].ByteCount));
        const std::span data(blocks[i + 1].Bytes, static_cast<std::size_t>(blocks[i + 1].ByteCount));
        const std::string_view expected = "NETSCAPE2.0";
        const bool isLooping = blocks[i].Function == APPLICATION_EXT_FUNC_CODE
            && std::equal(name.begin(), name.end(), expected.begin(), expected.end());
        if (isLooping && data.size() == 3 && data[0] == 1)
            return data[1] + 256 * data[2];
    }
    return std::nullopt;
}

DecodedFrame frameOf(GifFileType* file, int index)
{
    const SavedImage& image = file->SavedImages[index];
    DecodedFrame frame;
    frame.left = image.ImageDesc.Left;
    frame.top = image.ImageDesc.Top;
    frame.width = image.ImageDesc.Width;
    frame.height = image.ImageDesc.Height;
    frame.interlaced = image.ImageDesc.Interlace;
    frame.localColorTable = tableOf(image.ImageDesc.ColorMap);
    frame.indices.assign(image.RasterBits, image.RasterBits + frame.width * frame.height);
    GraphicsControlBlock control{};
    if (DGifSavedExtensionToGCB(file, index, &control) == GIF_OK) {
        frame.delayCentiseconds = control.DelayTime;
        frame.disposalMethod = control.DisposalMode;
        if (control.TransparentColor != NO_TRANSPARENT_COLOR)
            frame.transparentIndex = static_cast<std::uint8_t>(control.TransparentColor);
    }
    return frame;
}

void append16(Bytes& output, std::int64_t value)
{
    output.push_back(static_cast<std::uint8_t>(value % 256));
    output.push_back(static_cast<std::uint8_t>(value / 256));
}

/// `count` as width × height with both sides up to 65535; the width is the greatest possible divisor.
std::int64_t widthFor(std::int64_t count)
{
    std::int64_t width = std::min<std::int64_t>(count, 65535);
    while (count % width != 0)
        --width;
    return width;
}

std::string differenceInFrame(const DecodedFrame& seen, const IndexedFrame& meant)
{
    if (seen.left != 0 || seen.top != 0)
        return "its place";
    if (seen.width != meant.width || seen.height != meant.height)
        return "its size";
    if (seen.localColorTable != reference::padPalette(meant.palette))
        return "its colour table";
    if (seen.indices != meant.indices)
        return "its pixels";
    if (seen.delayCentiseconds != std::clamp<std::int64_t>(meant.delayCentiseconds, 1, 65535))
        return "its delay";
    if (seen.disposalMethod != DISPOSE_DO_NOT)
        return "its disposal method";
    if (seen.interlaced || seen.transparentIndex)
        return "interlacing or transparency";
    return {};
}

} // namespace

DecodedGif decodeWithGiflib(std::span<const std::uint8_t> file)
{
    std::span<const std::uint8_t> rest = file;
    int error = 0;
    const GifFile gif(DGifOpen(&rest, &readFromSpan, &error));
    if (!gif)
        throw GifDecodingError(GifErrorString(error));
    if (DGifSlurp(gif.get()) != GIF_OK)
        throw GifDecodingError(GifErrorString(gif->Error));
    if (!rest.empty())
        throw GifDecodingError("bytes follow the trailer");

    DecodedGif decoded;
    decoded.width = gif->SWidth;
    decoded.height = gif->SHeight;
    decoded.globalColorTable = tableOf(gif->SColorMap);
    for (int i = 0; i < gif->ImageCount; ++i)
        decoded.frames.push_back(frameOf(gif.get(), i));
    if (gif->ImageCount > 0) {
        const SavedImage& first = gif->SavedImages[0];
        decoded.loopCount = loopCountOf({first.ExtensionBlocks, static_cast<std::size_t>(first.ExtensionBlockCount)});
    }
    return decoded;
}

Bytes decodeLzwWithGiflib(std::span<const std::uint8_t> codes, int minCodeSize, std::int64_t count)
{
    const std::int64_t width = widthFor(count);
    Bytes file;
    for (const char letter : std::string_view("GIF89a"))
        file.push_back(static_cast<std::uint8_t>(letter));
    append16(file, width);
    append16(file, count / width);
    file.push_back(static_cast<std::uint8_t>(0xF0 | (minCodeSize - 1))); // a global table of 2^minCodeSize entries
    append16(file, 0);
    file.resize(file.size() + (std::size_t{3} << static_cast<unsigned>(minCodeSize)), 0);
    file.push_back(0x2C);
    append16(file, 0);
    append16(file, 0);
    append16(file, width);
    append16(file, count / width);
    file.push_back(0);
    file.push_back(static_cast<std::uint8_t>(minCodeSize));
    for (; !codes.empty(); codes = codes.subspan(std::min<std::size_t>(255, codes.size()))) {
        const auto piece = codes.first(std::min<std::size_t>(255, codes.size()));
        file.push_back(static_cast<std::uint8_t>(piece.size()));
        file.insert(file.end(), piece.begin(), piece.end());
    }
    file.push_back(0);
    file.push_back(0x3B);
    return decodeWithGiflib(file).frames.at(0).indices;
}

std::string differenceSeenByGiflib(
    std::span<const std::uint8_t> file, std::span<const IndexedFrame> frames, std::int64_t loopCount)
{
    DecodedGif decoded;
    try {
        decoded = decodeWithGiflib(file);
    } catch (const GifDecodingError& error) {
        return error.what();
    }
    if (decoded.width != frames[0].width || decoded.height != frames[0].height)
        return "the screen has another size than the first frame";
    if (!decoded.globalColorTable.empty())
        return "there is a global colour table";
    if (decoded.loopCount != loopCount)
        return "another loop count, or none";
    if (decoded.frames.size() != frames.size())
        return std::to_string(decoded.frames.size()) + " frames instead of " + std::to_string(frames.size());
    for (std::size_t i = 0; i < frames.size(); ++i) {
        if (const std::string difference = differenceInFrame(decoded.frames[i], frames[i]); !difference.empty())
            return "frame " + std::to_string(i) + ": " + difference;
    }
    return {};
}

std::vector<RGBColor> colorsOf(const IndexedFrame& frame)
{
    const std::vector<RGBColor> table = reference::padPalette(frame.palette);
    std::vector<RGBColor> colors;
    colors.reserve(frame.indices.size());
    for (const std::uint8_t index : frame.indices)
        colors.push_back(table.at(index));
    return colors;
}

} // namespace quillbox::support
