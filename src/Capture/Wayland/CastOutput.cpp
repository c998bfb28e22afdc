#include "Capture/Wayland/CastOutput.h"

#include "Encoding/Precondition.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace quillbox {

namespace {

PixelSize turned(PixelSize size)
{
    return {size.height, size.width};
}

/// How well an output fits a cast, from worst to best. Some portals tell pixels as points, and some a position that is
/// none: what counts most is what the portal and the picture agree on.
enum class Fit { None, Position, Mode, ModeAndPosition, PointsAndPosition };

Fit fitOf(const OutputFacts& output, const CastFacts& cast, PixelSize picture)
{
    const bool isThere = cast.position && output.position == cast.position;
    if (isThere && output.points == cast.size)
        return Fit::PointsAndPosition;
    if (output.mode == picture || output.mode == turned(picture))
        return isThere ? Fit::ModeAndPosition : Fit::Mode;
    return isThere ? Fit::Position : Fit::None;
}

/// Those of the outputs that `isWanted` and have the picture's shape, as far as that is known, which fit best.
template <typename IsWanted>
std::vector<std::size_t> bestFitting(
    const CastFacts& cast, PixelSize picture, std::span<const OutputFacts> outputs, IsWanted isWanted)
{
    Fit best = Fit::None;
    std::vector<std::size_t> found;
    for (std::size_t index = 0; index < outputs.size(); ++index) {
        const OutputFacts& output = outputs[index];
        if (!isWanted(output) || (output.points && !isOfOneShape(*output.points, picture)))
            continue;
        const Fit fit = fitOf(output, cast, picture);
        if (fit > best)
            found.clear();
        if (fit >= best)
            found.push_back(index);
        best = std::max(best, fit);
    }
    return found;
}

} // namespace

bool isOfOneShape(PixelSize points, PixelSize picture)
{
    // Points are rounded: with each side less than one off, the products differ by less than the picture's sides.
    const auto across = checkedMul(points.width, picture.height);
    const auto along = checkedMul(points.height, picture.width);
    return std::abs(across - along) < picture.width + picture.height;
}

PixelSize pointsOfOutput(PixelSize said, PixelSize pixels, std::int64_t scale)
{
    precondition(scale >= 1, "a point has a pixel");
    const bool isInPixels = said == pixels || said == turned(pixels);
    return isInPixels ? PixelSize{said.width / scale, said.height / scale} : said;
}

std::vector<std::size_t> outputsOfCast(const CastFacts& cast, PixelSize picture, std::span<const OutputFacts> outputs)
{
    return bestFitting(cast, picture, outputs, [](const OutputFacts&) { return true; });
}

std::optional<PixelSize> pointsOfCast(const CastFacts& cast, PixelSize picture, std::span<const OutputFacts> outputs)
{
    std::vector<PixelSize> found; // each once
    for (const std::size_t index :
        bestFitting(cast, picture, outputs, [](const OutputFacts& output) { return output.points.has_value(); })) {
        const PixelSize points = *outputs[index].points;
        if (std::ranges::find(found, points) == found.end())
            found.push_back(points);
    }
    if (found.size() == 1)
        return found.front();
    if (!cast.size || !isOfOneShape(*cast.size, picture))
        return std::nullopt;
    if (found.empty())
        return cast.size;
    // Those may be pixels, if they are as many as the picture has.
    const bool isAmongThem = std::ranges::find(found, *cast.size) != found.end();
    return isAmongThem && cast.size != picture ? cast.size : std::nullopt;
}

} // namespace quillbox
