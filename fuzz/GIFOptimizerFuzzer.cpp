#include "Encoding/GIFOptimizer.h"
#include "StageInputs.h"
#include "support/GifDecoding.h"

#include <algorithm>
#include <cmath>

using namespace quillbox;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::OptimizerInput input(fuzz::Input(data, std::min(size, fuzz::OptimizerInput::maxBytes)));
    const GIFOptimizer::Result result
        = GIFOptimizer::optimize(input.frames, input.config, {.parallelism = {input.threads}, .progress = {}});
    precondition(result.byteCount == std::ssize(result.data), "the size is that of the file");
    precondition(result.sourceFrameCount == std::ssize(input.frames), "every frame was seen");
    if (input.threads > 1) {
        precondition(result == GIFOptimizer::optimize(input.frames, input.config, {.parallelism = {1}, .progress = {}}),
            "threads change nothing");
    }
    if (!input.allHavePixels())
        return 0;
    const support::DecodedGif gif = support::decodeWithGiflib(result.data);
    precondition(std::ssize(gif.frames) == result.frameCount, "giflib finds every picture");
    std::int64_t centiseconds = 0;
    for (const support::DecodedFrame& frame : gif.frames)
        centiseconds += frame.delayCentiseconds;
    precondition(std::llround(result.durationSeconds * 100) == centiseconds, "the file plays as long as is said");
    return 0;
}
