#include "App/FrameSources/RawReader.h"

#include "App/FrameSources/BandReader.h"
#include "App/FrameSources/FrameMaker.h"
#include "App/FrameSources/FrameMemory.h"
#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/Transparency.h"
#include "Translation/Translate.h"

#include <optional>
#include <string>
#include <utility>

namespace quillbox {
namespace {

std::int64_t bytesPerPixel(RawFormat format)
{
    return format == RawFormat::rgba || format == RawFormat::bgra ? 4 : 3;
}

/// The next picture, whose pixels are not as we have them.
BandReader::Outcome readReordered(
    ByteSource& source, PixelSize size, const RawReader::Options& options, FrameMaker& maker)
{
    const auto format = options.format;
    const std::int64_t pixelBytes = bytesPerPixel(format);
    const bool hasAlpha = pixelBytes == 4 && options.background;
    Bytes input(static_cast<std::size_t>(size.width * size.height * pixelBytes));
    const std::size_t got = source.read(input);
    if (got < input.size())
        return {.frame = std::nullopt, .byteCount = static_cast<std::int64_t>(got)};
    const bool isBlueFirst = format == RawFormat::bgra || format == RawFormat::bgr;
    const std::size_t red = isBlueFirst ? 2 : 0;
    const std::size_t blue = 2 - red;
    Bytes pixels = maker.takeBuffer(size.width * size.height * 4);
    const std::uint8_t* from = input.data();
    for (std::size_t to = 0; to < pixels.size(); to += 4, from += pixelBytes) {
        pixels[to] = from[red];
        pixels[to + 1] = from[1];
        pixels[to + 2] = from[blue];
        pixels[to + 3] = hasAlpha ? from[3] : 255;
    }
    if (hasAlpha)
        Transparency::layOn(*options.background, pixels);
    return {.frame = maker.frame(size, std::move(pixels)), .byteCount = std::ssize(input)};
}

} // namespace

void RawReader::read(ByteSource& source, PixelSize size, FrameConsumer& receiver, const Options& options)
{
    const auto frameBytes = checkedByteCount(source.name(), 1, size) / 4 * bytesPerPixel(options.format);
    const auto endsInside = [&](std::int64_t frame, std::int64_t byteCount) {
        const auto sizeText = std::to_string(size.width) + "x" + std::to_string(size.height);
        return FrameReadError(source.name(),
            FrameReadError::Truncated{frame, byteCount, frameBytes,
                withArguments(translate("FrameReadError", "is --raw %1 its true size?"), {sizeText})});
    };
    const auto remaining = source.remaining();
    if (options.ifCut == IfCut::RefuseAtOnce && remaining && *remaining % frameBytes != 0)
        throw endsInside(*remaining / frameBytes + 1, *remaining % frameBytes);

    if (source.peek(1).empty())
        throw FrameReadError(source.name(), FrameReadError::NoFrames{});
    std::optional<BandReader> bands;
    if (options.format == RawFormat::rgba && !options.background)
        bands.emplace(source, size, options.parallelism);
    FrameMaker maker;
    for (std::int64_t number = 1;; ++number) {
        const auto [frame, byteCount] = bands ? bands->read() : readReordered(source, size, options, maker);
        if (!frame && remaining && (number - 1) * frameBytes + byteCount < *remaining)
            throw FrameReadError(source.name(), FrameReadError::BecameShorter{});
        if (!frame && byteCount > 0)
            throw endsInside(number, byteCount);
        if (!frame)
            return;
        receiver.take(*frame);
    }
}

} // namespace quillbox
