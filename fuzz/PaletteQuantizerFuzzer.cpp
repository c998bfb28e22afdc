#include "Encoding/PaletteQuantizer.h"
#include "StageInputs.h"

#include <algorithm>

using namespace quillbox;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::QuantizerInput input(fuzz::Input(data, size));
    ColorHistogram histogram = PaletteQuantizer::histogram(input.frames, {1});
    std::int64_t pixels = 0;
    for (const RGBAFrame& frame : input.frames)
        pixels += frame.pixelCount();
    const auto entries = histogram.entries();
    for (const ColorHistogram::Entry& entry : entries)
        pixels -= entry.count;
    precondition(pixels == 0, "every pixel is counted once");
    for (const auto& [key, count] : input.counts)
        histogram.add(key, count);

    const std::vector<RGBColor> palette = PaletteQuantizer::quantize(histogram, input.maxColors);
    const std::int64_t allowed = std::clamp<std::int64_t>(input.maxColors, 1, 256);
    precondition(!palette.empty() && std::ssize(palette) <= allowed, "a palette has 1 to so many colours");
    if (histogram.size() <= allowed) {
        for (const ColorHistogram::Entry& entry : histogram.entries())
            precondition(std::ranges::find(palette, entry.color) != palette.end(), "few colours are kept");
    }
    return 0;
}
