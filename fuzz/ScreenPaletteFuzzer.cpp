#include "Encoding/PaletteMapper.h"
#include "Encoding/Precise/Colors/ColorClustering.h"
#include "Encoding/Precise/Colors/KMeans.h"
#include "Encoding/Precise/Colors/NearestColors.h"
#include "Encoding/Precise/Colors/ScreenPalette.h"
#include "StageInputs.h"

#include <algorithm>
#include <map>
#include <numeric>

using namespace quillbox;

namespace {

void checkCounts(const fuzz::ScreenPaletteInput& input)
{
    std::map<std::uint32_t, std::int64_t> expected;
    for (const RGBAFrame& frame : input.frames)
        frame.forEachColor([&expected](RGBColor color) { expected[Color24::key(color)] += 3; });
    std::vector<WeightedColor> entries;
    for (const auto& [key, weight] : expected)
        entries.push_back({Color24::color(key), weight});
    precondition(input.frames.empty() || input.colors == entries, "a map counts the same");
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
    for (std::size_t i = 0; i < colors.size(); i += 4) {
        precondition(nearest.index(colors[i].color) == PaletteMapper::nearestIndexLinear(colors[i].color, palette),
            "a linear search finds the same entry");
    }
}

void checkStages(const std::vector<ColorMoments>& points, std::size_t count)
{
    const auto sumOf = [](const std::vector<ColorMoments>& all) {
        return std::accumulate(all.begin(), all.end(), ColorMoments(), [](ColorMoments sum, const ColorMoments& next) {
            sum += next;
            return sum;
        });
    };
    for (const auto& clusters : {ColorClustering::split(points, count), ColorClustering::merge(points, count)}) {
        precondition(clusters.size() == std::min(count, points.size()), "as many clusters as wanted");
        precondition(sumOf(clusters) == sumOf(points), "nothing is lost");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::ScreenPaletteInput input(fuzz::Input(data, size));
    const auto& [maxColors, colors, frames] = input;
    checkCounts(input);
    checkPalette(ScreenPalette::make(colors, maxColors, {.threads = 1}), colors, maxColors);
    checkPalette(ScreenPalette::makeQuickly(colors, maxColors), colors, maxColors);
    constexpr std::size_t slowlyChecked = 40; // points: merging them takes time by the square of their number
    if (!colors.empty())
        checkStages(input.points(slowlyChecked), input.pointCount());
    return 0;
}
