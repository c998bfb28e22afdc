#include "Encoding/Precise/Codes/LZWSearch.h"
#include "Encoding/Precondition.h"
#include "FuzzInput.h"
#include "reference/Precise/LZWStream.h"
#include "support/GifDecoding.h"

using namespace quillbox;

namespace {

constexpr std::size_t maxPixels = 4500; // more than a table has codes

/// Whether a stream may write `index` there.
bool mayBe(const LZWSearch::Picture& picture, const LZWSearch::Codes& codes, std::size_t at, std::uint8_t index)
{
    if (!picture.freedoms.empty() && codes.transparentIndex == index)
        return picture.freedoms[at] != LZWSearch::changed;
    return picture.indices[at] == index && (picture.freedoms.empty() || picture.freedoms[at] != LZWSearch::kept);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const std::int64_t passes = 1 + input.below(6);
    const std::int64_t colorCount = 1 + input.below(256);
    const std::uint8_t kinds = input.byte();                 // of freedom that occur
    const bool mayKeep = kinds % 2 == 0 && colorCount < 256; // an index is left to be transparent

    // Each pixel is a run of one colour, changed or not.
    Bytes indices;
    Bytes freedoms;
    while (!input.isEmpty() && indices.size() < maxPixels) {
        const auto index = static_cast<std::uint8_t>(input.below(colorCount));
        const std::uint8_t kind = input.byte();
        const std::size_t length = kind % 8 == 0 ? std::size_t{1} + kind : 1;
        indices.insert(indices.end(), length, index);
        std::uint8_t freedom = kind % 3 == 0 ? LZWSearch::unchanged : LZWSearch::changed;
        if (mayKeep && kind % 5 == 0)
            freedom = LZWSearch::kept;
        freedoms.insert(freedoms.end(), length, freedom);
    }
    if (indices.empty())
        return 0;
    if (kinds % 4 == 3)
        freedoms.clear();
    const LZWSearch::Picture picture{.width = std::ssize(indices), .indices = indices, .freedoms = freedoms};

    static LZWSearch::Search search; // keeps its tables from input to input, as it does from picture to picture
    const LZWSearch::Codes codes = search.best(picture, {.passes = passes});
    const auto stream = reference::lzwDecode(codes.data, codes.minCodeSize);
    precondition(stream.indices.size() == indices.size(), "every pixel is written");
    precondition(support::decodeLzwWithGiflib(codes.data, codes.minCodeSize, std::ssize(indices)) == stream.indices,
        "giflib reads the same indices");
    for (std::size_t i = 0; i < indices.size(); ++i)
        precondition(mayBe(picture, codes, i, stream.indices[i]), "every pixel is one that it may be");
    return 0;
}
