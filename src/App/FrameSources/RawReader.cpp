#include "App/FrameSources/RawReader.h"

#include "App/FrameSources/BandReader.h"
#include "App/FrameSources/FrameMemory.h"
#include "App/FrameSources/FrameReadError.h"
#include "Translation/Translate.h"

#include <string>
#include <utility>

namespace quillbox {

void RawReader::read(ByteSource& source, PixelSize size, FrameConsumer& receiver)
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
    BandReader reader(source, size);
    for (std::int64_t number = 1;; ++number) {
        const auto [frame, byteCount] = reader.read();
        if (!frame && byteCount == 0)
            return;
        if (!frame)
            throw endsInside(number, byteCount);
        receiver.take(*frame);
    }
}

} // namespace quillbox
