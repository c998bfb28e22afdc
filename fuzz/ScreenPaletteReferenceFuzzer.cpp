#include "Encoding/Precise/Colors/ColorClustering.h"
#include "Encoding/Precise/Colors/KMeans.h"
#include "reference/Precise/ScreenPalette.h"
#include "StageInputs.h"

#include <algorithm>
#include <iterator>

using namespace quillbox;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t maxPoints = 14; // the plain versions look at every pair again and again
    const fuzz::ScreenPaletteInput input(fuzz::Input(data, size));
    const std::vector<ColorMoments> points = input.points(maxPoints);
    if (points.empty())
        return 0;
    const std::vector<ColorMoments> parts = ColorClustering::split(points, input.pointCount());
    precondition(parts == reference::split(points, input.pointCount()), "both split alike");
    std::vector<RGBColor> colors;
    std::ranges::transform(parts, std::back_inserter(colors), &ColorMoments::mean);
    const std::vector<RGBColor> settled = KMeans::settle(points, colors, 3, {.threads = 1});
    precondition(settled == reference::settle(points, colors, 3), "both settle alike");
    precondition(KMeans::exchange(points, settled, 2, {.threads = 1}) == reference::exchange(points, settled, 2),
        "both exchange alike");
    return 0;
}
