#include "Encoding/PaletteMapper.h"
#include "Encoding/Precise/Colors/ColorClustering.h"
#include "Encoding/Precise/Colors/NearestColors.h"
#include "Encoding/Precise/Colors/ScreenPalette.h"
#include "FuzzInput.h"
#include "reference/Precise/ScreenPalette.h"

#include <algorithm>
#include <map>
#include <numeric>

using namespace quillbox;

namespace {

std::span<const std::uint8_t> bytesOf(const PixelView& pixels)
{
    return {pixels.data(), pixels.size()};
}

/// The colours of a recording, one by one and as they are counted.
std::vector<WeightedColor> countedColors(const std::vector<RGBAFrame>& frames)
{
    ColorCounts counts;
    std::map<std::uint32_t, std::int64_t> expected;
    for (const RGBAFrame& frame : frames) {
        const PixelView pixels = frame.pixels();
        counts.add(bytesOf(pixels), 3);
        frame.forEachColor([&expected](RGBColor color) { expected[Color24::key(color)] += 3; });
    }
    std::vector<WeightedColor> entries;
    for (const auto& [key, weight] : expected)
        entries.push_back({Color24::color(key), weight});
    precondition(counts.entries() == entries, "a map counts the same");
    return entries;
}

std::vector<WeightedColor> chosenColors(fuzz::Input& input)
{
    ColorCounts counts;
    while (!input.isEmpty()) {
        const RGBColor color = input.color();
        counts.add(color, 1 + (std::int64_t{input.byte()} << input.below(24)));
    }
    return counts.entries();
}

void checkPalette(
    const std::vector<RGBColor>& palette, const std::vector<WeightedColor>& colors, std::int64_t maxColors)
{
    const auto expectedSize = static_cast<std::size_t>(std::clamp<std::int64_t>(std::ssize(colors), 1, maxColors));
    precondition(palette.size() == expectedSize, "no entry is wasted");
    std::vector<RGBColor> distinct = palette;
    std::ranges::sort(distinct, {}, Color24::key);
    precondition(std::ranges::adjacent_find(distinct) == distinct.end(), "no entry is repeated");
    if (std::ssize(colors) <= maxColors) {
        for (const WeightedColor& entry : colors)
            precondition(std::ranges::find(palette, entry.color) != palette.end(), "few colours are kept");
    }
    NearestColors nearest(palette);
    for (const WeightedColor& entry : colors)
        precondition(nearest.index(entry.color) == PaletteMapper::nearestIndexLinear(entry.color, palette),
            "a linear search finds the same entry");
}

void checkStages(const std::vector<ColorMoments>& points, std::size_t count)
{
    const std::vector<ColorMoments> parts = ColorClustering::split(points, count);
    precondition(parts == reference::split(points, count), "both split alike");
    const std::vector<ColorMoments> clusters = ColorClustering::merge(points, count);
    precondition(clusters.size() == std::min(count, points.size()), "as many clusters as wanted");
    const auto sumOf = [](const std::vector<ColorMoments>& all) {
        return std::accumulate(all.begin(), all.end(), ColorMoments(), [](ColorMoments sum, const ColorMoments& next) {
            sum += next;
            return sum;
        });
    };
    precondition(sumOf(clusters) == sumOf(points), "nothing is lost");
    std::vector<RGBColor> colors;
    std::ranges::transform(parts, std::back_inserter(colors), &ColorMoments::mean);
    const std::vector<RGBColor> settled = KMeans::settle(points, colors, 3, {.threads = 1});
    precondition(settled == reference::settle(points, colors, 3), "both settle alike");
    precondition(KMeans::exchange(points, settled, 4, {.threads = 1}) == reference::exchange(points, settled, 4),
        "both exchange alike");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, std::min<std::size_t>(size, 4000));
    const std::int64_t maxColors = 1 + input.below(256);
    const std::vector<WeightedColor> colors
        = input.byte() % 2 == 0 ? chosenColors(input) : countedColors(input.recording(3, 40));
    const std::vector<RGBColor> palette = ScreenPalette::make(colors, maxColors, {.threads = 1});
    checkPalette(palette, colors, maxColors);
    precondition(palette == ScreenPalette::make(colors, maxColors, {.threads = 2}), "threads do not matter");
    checkPalette(ScreenPalette::makeQuickly(colors, maxColors), colors, maxColors);

    constexpr std::size_t slowlyChecked = 60; // points: the plain versions look at every pair again and again
    const std::vector<ColorMoments> points(
        colors.begin(), colors.begin() + static_cast<std::ptrdiff_t>(std::min(colors.size(), slowlyChecked)));
    if (!points.empty())
        checkStages(points, static_cast<std::size_t>(1 + maxColors % 10));
    return 0;
}
