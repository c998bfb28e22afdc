#include "Encoding/Precise/Codes/LossyLZW.h"
#include "Encoding/Precondition.h"
#include "FuzzInput.h"
#include "reference/Precise/LZWStream.h"
#include "support/GifDecoding.h"

#include <algorithm>

using namespace quillbox;

namespace {

constexpr std::size_t maxPixels = 6000;

/// The colour that the stream's pixel shows.
RGBColor seen(const LossyLZW::Picture& picture, const LZWSearch::Codes& codes, std::uint8_t index, std::size_t at)
{
    if (codes.transparentIndex != index)
        return picture.colorTable[index];
    precondition(!picture.shown.empty(), "a pixel is transparent only over something");
    return picture.shown[at];
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const std::int64_t passes = 1 + input.below(40);
    const LossyLZW::Loss loss{
        .price = input.number16() * input.number16() / 256, .maxError = input.number16() * (input.byte() % 3)};
    const std::vector<RGBColor> table = input.palette(1 + input.below(256));
    const bool isFirst = input.byte() % 4 == 0;

    // Each pixel is a run of one colour, changed or not.
    Bytes indices;
    std::vector<RGBColor> wanted;
    std::vector<RGBColor> shown;
    while (!input.isEmpty() && indices.size() < maxPixels) {
        const auto index = static_cast<std::uint8_t>(input.below(std::ssize(table)));
        const std::uint8_t kind = input.byte();
        const std::size_t length = kind % 8 == 0 ? 1 + kind : 1;
        const RGBColor color = table[index];
        indices.insert(indices.end(), length, index);
        wanted.insert(wanted.end(), length, color);
        const bool stays = kind % 3 == 0;
        shown.insert(shown.end(), length, stays ? color : RGBColor(kind, color.g, color.b));
    }
    if (indices.empty())
        return 0;
    if (isFirst)
        shown.clear();
    const LossyLZW::Picture picture{.width = std::ssize(indices),
        .wanted = wanted,
        .colorTable = table,
        .indices = indices,
        .shown = shown,
        .durations = {}};

    static LossyLZW::Encoder encoder; // keeps its tables from input to input, as it does from picture to picture
    const LossyLZW::Result result = encoder.encode(picture, loss, {.passes = passes});
    const auto stream = reference::lzwDecode(result.codes.data, result.codes.minCodeSize);
    precondition(stream.indices.size() == indices.size(), "every pixel is written");
    precondition(support::decodeLzwWithGiflib(result.codes.data, result.codes.minCodeSize, std::ssize(indices))
            == stream.indices,
        "giflib reads the same indices");
    std::int64_t error = 0;
    for (std::size_t i = 0; i < indices.size(); ++i) {
        const std::int64_t excess = wanted[i].distanceSquared(seen(picture, result.codes, stream.indices[i], i));
        precondition(excess <= loss.maxError, "no pixel's error is too large");
        error += excess;
    }
    precondition(error == result.error, "the error is as stated");
    return 0;
}
