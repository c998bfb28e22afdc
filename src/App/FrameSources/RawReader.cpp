#include "App/FrameSources/RawReader.h"

#include "App/FrameSources/FrameMaker.h"
#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/RepeatReader.h"
#include "Translation/Translate.h"

#include <string>
#include <utility>

namespace quillbox {

void RawReader::read(ByteSource& source, FrameSize size, FrameReceiver& receiver)
{
    const auto frameBytes = checkedByteCount(source.name(), 1, size);
    const auto endsInside = [&](std::int64_t frame, std::int64_t byteCount) {
        const auto sizeText = std::to_string(size.width) + "x" + std::to_string(size.height);
        return FrameReadError(source.name(),
            FrameReadError::Truncated{frame, byteCount, frameBytes,
                withArguments(translate("FrameReadError", "is --raw %1 its true size?"), {sizeText})});
    };
    if (const auto remaining = source.remaining(); remaining && *remaining % frameBytes != 0)
        throw endsInside(*remaining / frameBytes + 1, *remaining % frameBytes);

    if (source.peek(1).empty())
        throw FrameReadError(source.name(), FrameReadError::NoFrames{});
    FrameMaker maker;
    RepeatReader reader(source);
    for (std::int64_t frame = 1; !source.peek(1).empty(); ++frame) {
        Bytes pixels = maker.takeBuffer(frameBytes);
        const auto [got, isRepeat] = reader.read(pixels, maker.previousPixels(size));
        if (got < pixels.size())
            throw endsInside(frame, static_cast<std::int64_t>(got));
        receiver.take(isRepeat ? maker.repeatedFrame(std::move(pixels)) : maker.changedFrame(size, std::move(pixels)));
    }
}

} // namespace quillbox
