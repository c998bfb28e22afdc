#include "Capture/OverlayRemains.h"

#include "Encoding/Precondition.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace quillbox {
namespace {

using std::chrono_literals::operator""ms;

constexpr std::int64_t tileSide = 16; // pixels
/// What a pointer of 32 pixels touches.
constexpr std::int64_t pointerTiles = 9;
constexpr std::int64_t strayShare = 32; // one tile in so many may differ anyhow

/// As long as compositors fade out a window unless they are busy.
constexpr auto usualFading = 250ms;
/// What is unlike the overlay then will not become what it was before.
constexpr auto changedLimit = 500ms;
constexpr auto coveredLimit = 2000ms;

constexpr std::int64_t sampleStep = 4; // pixels, along each axis
/// The share of the overlay that is left: less changes no level of a colour, more is something else.
constexpr double minShare = 0.003;
constexpr double maxShare = 1.1;
/// How much of the difference the overlay may leave unexplained.
constexpr double maxUnexplained = 0.25;

struct TileCount {
    std::int64_t all = 0;
    std::int64_t different = 0;
};

bool isTileEqual(const PixelView& a, const PixelView& b, const RGBAFrame& frame, std::int64_t left, std::int64_t top)
{
    const std::int64_t bottom = std::min(top + tileSide, frame.height());
    const auto bytes = static_cast<std::size_t>(std::min(tileSide, frame.width() - left) * RGBAFrame::bytesPerPixel);
    for (std::int64_t y = top; y < bottom; ++y) {
        const std::int64_t offset = (y * frame.width() + left) * RGBAFrame::bytesPerPixel;
        if (std::memcmp(a.data() + offset, b.data() + offset, bytes) != 0)
            return false;
    }
    return true;
}

TileCount compareTiles(const RGBAFrame& a, const RGBAFrame& b)
{
    const PixelView left = a.pixels();
    const PixelView right = b.pixels();
    TileCount count;
    for (std::int64_t y = 0; y < a.height(); y += tileSide) {
        for (std::int64_t x = 0; x < a.width(); x += tileSide) {
            ++count.all;
            if (!isTileEqual(left, right, a, x, y))
                ++count.different;
        }
    }
    return count;
}

bool hasSizeOf(const RGBAFrame& frame, const RGBAFrame& other)
{
    return frame.width() == other.width() && frame.height() == other.height();
}

} // namespace

OverlayRemains::OverlayRemains(RGBAFrame uncovered, RGBAFrame covered)
    : m_uncovered(std::move(uncovered))
    , m_covered(std::move(covered))
{
    precondition(
        hasSizeOf(m_uncovered, m_covered) && m_uncovered.pixelCount() > 0, "the overlay covers what was there before");
}

OverlayRemains::Likeness OverlayRemains::likenessOf(const RGBAFrame& picture) const
{
    if (!hasSizeOf(picture, m_uncovered))
        return {};
    const TileCount tiles = compareTiles(picture, m_uncovered);
    Likeness likeness;
    likeness.isUncovered
        = tiles.different <= std::max(pointerTiles, tiles.all / strayShare) && tiles.different <= tiles.all / 2;
    likeness.isPartlySame = tiles.different <= tiles.all * 3 / 4;
    likeness.isCovered = !likeness.isPartlySame && isBetween(picture);
    return likeness;
}

/// Whether one share of the overlay explains how the picture differs: by least squares.
bool OverlayRemains::isBetween(const RGBAFrame& picture) const
{
    const PixelView shown = picture.pixels();
    const PixelView uncovered = m_uncovered.pixels();
    const PixelView covered = m_covered.pixels();
    double both = 0;    // Σ (shown − uncovered) · (covered − uncovered)
    double overlay = 0; // Σ (covered − uncovered)²
    double change = 0;  // Σ (shown − uncovered)²
    for (std::int64_t y = 0; y < picture.height(); y += sampleStep) {
        for (std::int64_t x = 0; x < picture.width(); x += sampleStep) {
            const auto pixel = static_cast<std::size_t>((y * picture.width() + x) * RGBAFrame::bytesPerPixel);
            for (std::size_t channel = pixel; channel < pixel + 3; ++channel) {
                const double seen = shown[channel] - uncovered[channel];
                const double whole = covered[channel] - uncovered[channel];
                both += seen * whole;
                overlay += whole * whole;
                change += seen * seen;
            }
        }
    }
    if (overlay == 0)
        return false;
    const double share = both / overlay;
    const double unexplained = change - share * both;
    return share >= minShare && share <= maxShare && unexplained <= maxUnexplained * change;
}

OverlayRemains::Answer OverlayRemains::answer(
    Likeness likeness, std::chrono::nanoseconds sinceHidden, std::chrono::nanoseconds atRest)
{
    if (likeness.isUncovered)
        return Answer::Begin;
    if (likeness.isCovered)
        return sinceHidden >= coveredLimit ? Answer::BeginAnyway : Answer::Wait;
    const bool hasSettled = sinceHidden >= usualFading && (likeness.isPartlySame || atRest >= usualFading);
    return hasSettled || sinceHidden >= changedLimit ? Answer::Begin : Answer::Wait;
}

} // namespace quillbox
