#include "Encoding/LZW.h"
#include "Encoding/Precondition.h"
#include "FuzzInput.h"
#include "reference/LZW.h"
#include "support/GifDecoding.h"

using namespace quillbox;

namespace {

constexpr std::size_t maxCount = 12'000;

/// Indices below 2^minCodeSize: the bytes themselves, or runs given by pairs of an index and a length.
Bytes indicesFrom(fuzz::Input& input, int minCodeSize, bool asRuns)
{
    const unsigned mask = (1U << static_cast<unsigned>(minCodeSize)) - 1;
    Bytes indices;
    while (!input.isEmpty() && indices.size() < maxCount) {
        const auto index = static_cast<std::uint8_t>(input.byte() & mask);
        indices.insert(indices.end(), asRuns ? std::size_t{1} + input.byte() : 1, index);
    }
    return indices;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const std::uint8_t choice = input.byte();
    const int minCodeSize = 2 + choice % 7;
    const Bytes indices = indicesFrom(input, minCodeSize, choice >= 128);

    static LZW::Encoder encoder; // keeps its tables from input to input, as it does from picture to picture
    const auto written = encoder.encode(indices, minCodeSize);
    const Bytes codes(written.begin(), written.end());
    precondition(codes == reference::lzwEncode(indices, minCodeSize), "both encoders write the same codes");
    if (!indices.empty()) {
        precondition(support::decodeLzwWithGiflib(codes, minCodeSize, std::ssize(indices)) == indices,
            "giflib gives the indices back");
    }
    return 0;
}
