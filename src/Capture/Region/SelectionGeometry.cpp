#include "Capture/Region/SelectionGeometry.h"

namespace quillbox {

std::optional<CaptureRegion> SelectionGeometry::selected(
    RegionMath::Point from, RegionMath::Point to, RegionMath::Size screen)
{
    const auto region = RegionMath::rect(from, to, screen);
    if (region.width < minimumSide || region.height < minimumSide)
        return std::nullopt;
    return region;
}

} // namespace quillbox
