#include "Capture/Region/RegionMath.h"

#include "Encoding/Precondition.h"

#include <algorithm>
#include <cmath>

namespace quillbox::RegionMath {

namespace {

double clamped(double value, double limit)
{
    return std::max(0.0, std::min(limit, value));
}

std::int64_t roundedToInteger(double value)
{
    precondition(std::isfinite(value), "a region's coordinates are finite");
    const double rounded = std::round(value); // halves away from zero
    // −2^63 and 2^63 are exact doubles; the second is the first value that no longer fits.
    precondition(rounded >= -0x1p63 && rounded < 0x1p63, "a region's coordinates fit 64 bits");
    return static_cast<std::int64_t>(rounded);
}

} // namespace

CaptureRegion rect(Point from, Point to, Size bounds)
{
    // std::min and std::max may pass over a NaN, depending on its place: look before they can hide it.
    precondition(!std::isnan(from.x) && !std::isnan(from.y) && !std::isnan(to.x) && !std::isnan(to.y)
            && !std::isnan(bounds.width) && !std::isnan(bounds.height),
        "a drag's coordinates are numbers");
    const double minX = clamped(std::min(from.x, to.x), bounds.width);
    const double maxX = clamped(std::max(from.x, to.x), bounds.width);
    const double minY = clamped(std::min(from.y, to.y), bounds.height);
    const double maxY = clamped(std::max(from.y, to.y), bounds.height);
    const CaptureRegion region{
        roundedToInteger(minX), roundedToInteger(minY), roundedToInteger(maxX - minX), roundedToInteger(maxY - minY)};
    return region.normalized();
}

} // namespace quillbox::RegionMath
