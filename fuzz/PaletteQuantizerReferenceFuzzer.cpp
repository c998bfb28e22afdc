#include "Encoding/PaletteQuantizer.h"
#include "reference/PaletteQuantizer.h"
#include "StageInputs.h"

using namespace quillbox;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::QuantizerInput input(fuzz::Input(data, size));
    ColorHistogram histogram = PaletteQuantizer::histogram(input.frames, {1});
    reference::Histogram expected = reference::histogram(input.frames);
    for (const auto& [key, count] : input.counts) {
        histogram.add(key, count);
        expected[static_cast<int>(key)] += count;
    }
    const auto entries = histogram.entries();
    precondition(entries.size() == expected.size(), "both histograms have as many colours");
    for (const auto& [color, count] : entries)
        precondition(expected.at(reference::keyOf(color)) == count, "both histograms have the same counts");
    precondition(
        PaletteQuantizer::quantize(histogram, input.maxColors) == reference::quantize(expected, input.maxColors),
        "both quantizers choose the same palette");
    return 0;
}
