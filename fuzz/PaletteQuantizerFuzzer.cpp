#include "Encoding/PaletteQuantizer.h"
#include "FuzzInput.h"
#include "reference/PaletteQuantizer.h"

using namespace quillbox;

namespace {

void expectSamePalette(const ColorHistogram& histogram, const reference::Histogram& expected, std::int64_t maxColors)
{
    const std::vector<RGBColor> palette = PaletteQuantizer::quantize(histogram, maxColors);
    precondition(palette == reference::quantize(expected, maxColors), "both quantizers choose the same palette");
    precondition(!palette.empty() && palette.size() <= 256, "a palette has 1 to 256 colours");
}

void quantizeCounts(fuzz::Input& input, std::int64_t maxColors)
{
    ColorHistogram histogram;
    reference::Histogram expected;
    while (!input.isEmpty()) {
        const std::int64_t key = input.below(Color15::keyCount);
        const std::int64_t count = 1 + (std::int64_t{input.byte()} << input.below(40));
        histogram.add(static_cast<std::uint16_t>(key), count);
        expected[static_cast<int>(key)] += count;
    }
    expectSamePalette(histogram, expected, maxColors);
}

void quantizePictures(fuzz::Input& input, std::int64_t maxColors)
{
    const std::vector<RGBAFrame> frames = input.recording(4, 60);
    const ColorHistogram histogram = PaletteQuantizer::histogram(frames, {2});
    const reference::Histogram expected = reference::histogram(frames);
    const std::vector<ColorHistogram::Entry> entries = histogram.entries();
    precondition(entries.size() == expected.size(), "both histograms have as many colours");
    for (const auto& [color, count] : entries)
        precondition(expected.at(reference::keyOf(color)) == count, "both histograms have the same counts");
    expectSamePalette(histogram, expected, maxColors);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, std::min<std::size_t>(size, 20'000));
    const std::int64_t maxColors = input.below(270) - 5;
    if (input.byte() % 2 == 0)
        quantizeCounts(input, maxColors);
    else
        quantizePictures(input, maxColors);
    return 0;
}
