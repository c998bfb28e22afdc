#include "App/Desktop/Recording/LayerPlacement.h"

#include <cmath>
#include <utility>

namespace quillbox {
namespace {

/// First and one past the last, of those that `begin`…`begin + length` of `from` points covers.
std::pair<int, int> coveredPoints(std::int64_t begin, std::int64_t length, int from, int to)
{
    const double ratio = static_cast<double>(to) / from;
    return {static_cast<int>(std::floor(static_cast<double>(begin) * ratio)),
        static_cast<int>(std::ceil(static_cast<double>(begin + length) * ratio))};
}

} // namespace

QRect LayerPlacement::covered(const CaptureRegion& region, const QSize& toolkit, const QSize& compositor)
{
    const auto [left, right] = coveredPoints(region.x, region.width, toolkit.width(), compositor.width());
    const auto [top, bottom] = coveredPoints(region.y, region.height, toolkit.height(), compositor.height());
    return {left, top, right - left, bottom - top};
}

} // namespace quillbox
