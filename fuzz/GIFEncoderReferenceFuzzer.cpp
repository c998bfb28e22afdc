#include "Encoding/GIFEncoder.h"
#include "reference/GIFEncoder.h"
#include "StageInputs.h"

using namespace quillbox;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::EncoderInput input(fuzz::Input(data, size));
    precondition(GIFEncoder::encode(input.frames, {.loopCount = input.loopCount})
            == reference::gifEncode(input.frames, input.loopCount),
        "both writers write the same file");
    return 0;
}
