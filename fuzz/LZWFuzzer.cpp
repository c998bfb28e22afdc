#include "Encoding/LZW.h"
#include "Encoding/Precondition.h"
#include "StageInputs.h"
#include "support/GifDecoding.h"

using namespace quillbox;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::LZWInput input(fuzz::Input(data, size));
    static LZW::Encoder encoder; // keeps its tables from input to input, as it does from picture to picture
    const auto codes = encoder.encode(input.indices, input.minCodeSize);
    if (!input.indices.empty()) {
        precondition(support::decodeLzwWithGiflib(codes, input.minCodeSize, std::ssize(input.indices)) == input.indices,
            "giflib gives the indices back");
    }
    return 0;
}
