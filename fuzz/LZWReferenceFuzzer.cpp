#include "Encoding/LZW.h"
#include "Encoding/Precondition.h"
#include "reference/LZW.h"
#include "StageInputs.h"

#include <algorithm>

using namespace quillbox;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::LZWInput input(fuzz::Input(data, size));
    static LZW::Encoder encoder; // keeps its tables from input to input, as it does from picture to picture
    precondition(std::ranges::equal(encoder.encode(input.indices, input.minCodeSize),
                     reference::lzwEncode(input.indices, input.minCodeSize)),
        "both encoders write the same codes");
    return 0;
}
