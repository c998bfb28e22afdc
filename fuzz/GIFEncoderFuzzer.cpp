#include "Encoding/GIFEncoder.h"
#include "StageInputs.h"
#include "support/GifDecoding.h"

using namespace quillbox;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::EncoderInput input(fuzz::Input(data, size));
    const Bytes file = GIFEncoder::encode(input.frames, {.loopCount = input.loopCount});
    if (!input.frames.empty() && input.allHavePixels()) {
        precondition(support::differenceSeenByGiflib(file, input.frames, input.loopCount).empty(),
            "giflib reads what was written");
    }
    return 0;
}
