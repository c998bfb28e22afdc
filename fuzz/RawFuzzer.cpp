#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/RawReader.h"
#include "Encoding/Precondition.h"
#include "FuzzInput.h"
#include "support/MemoryByteSource.h"
#include "support/SourceClip.h"

#include <algorithm>
#include <optional>
#include <utility>

using namespace quillbox;
using support::MemoryByteSource;
using support::SourceClip;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const bool anySize = input.byte() >= 128;
    const PixelSize frameSize
        = anySize ? PixelSize{input.number16() * 2, input.number16() * 2} : PixelSize{input.below(9), input.below(9)};
    const Bytes bytes = input.rest(1 << 16);
    const std::int64_t frameBytes = frameSize.width * frameSize.height * 4;
    const bool sidesFit
        = std::min(frameSize.width, frameSize.height) >= 1 && std::max(frameSize.width, frameSize.height) <= 65535;
    const bool isReadable = sidesFit && !bytes.empty() && std::ssize(bytes) % frameBytes == 0;

    MemoryByteSource source("input", bytes);
    std::optional<std::vector<RGBAFrame>> frames;
    try {
        SourceClip clip;
        RawReader::read(source, frameSize, clip);
        frames = std::move(clip.frames);
    } catch (const FrameReadError&) {
        precondition(!isReadable, "whole frames of a possible size are read");
        return 0;
    }
    precondition(isReadable, "nothing else is read");
    precondition(std::ssize(*frames) * frameBytes == std::ssize(bytes), "every frame is there");
    auto place = bytes.begin();
    for (std::size_t i = 0; i < frames->size(); ++i) {
        const RGBAFrame& frame = (*frames)[i];
        const PixelView pixels = frame.pixels();
        precondition(std::equal(pixels.begin(), pixels.end(), place), "frames hold the input's bytes");
        place += frameBytes;
        if (i > 0)
            precondition((frame == (*frames)[i - 1]) == frame.sharesPixels((*frames)[i - 1]), "equal neighbours share");
    }
    return 0;
}
