#include "App/FrameSources/RawReader.h"

#include "App/FrameSources/FrameMaker.h"
#include "App/FrameSources/FrameReadError.h"

#include <string>
#include <utility>

namespace quillbox {

void RawReader::read(ByteSource& source, FrameSize size, FrameReceiver& receiver)
{
    const auto frameBytes = checkedByteCount(source.name(), 1, size);
    const auto endsInside = [&](std::int64_t frame, std::int64_t byteCount) {
        const auto sizeText = std::to_string(size.width) + "x" + std::to_string(size.height);
        return FrameReadError(source.name(),
            FrameReadError::Truncated{frame, byteCount, frameBytes, "is --raw " + sizeText + " its true size?"});
    };
    if (const auto remaining = source.remaining(); remaining && *remaining % frameBytes != 0)
        throw endsInside(*remaining / frameBytes + 1, *remaining % frameBytes);

    if (source.peek(1).empty())
        throw FrameReadError(source.name(), FrameReadError::NoFrames{});
    FrameMaker maker;
    for (std::int64_t frame = 1; !source.peek(1).empty(); ++frame) {
        Bytes pixels = maker.takeBuffer(frameBytes);
        const auto got = static_cast<std::int64_t>(source.read(pixels));
        if (got < frameBytes)
            throw endsInside(frame, got);
        receiver.take(maker.frame(size, std::move(pixels)));
    }
}

} // namespace quillbox
