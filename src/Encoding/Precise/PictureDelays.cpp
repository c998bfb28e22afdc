#include "Encoding/Precise/PictureDelays.h"

#include "Encoding/Precondition.h"

#include <algorithm>

namespace quillbox {

std::vector<std::int64_t> PictureDelays::of(
    std::span<const std::int64_t> ticks, std::int64_t frameCount, std::int64_t fps)
{
    precondition(fps > 0, "frames have a rate");
    std::vector<std::int64_t> delays;
    delays.reserve(ticks.size());
    std::int64_t begin = 0; // 1/100 s
    for (std::size_t i = 0; i < ticks.size(); ++i) {
        const std::int64_t endTick = i + 1 < ticks.size() ? ticks[i + 1] : frameCount;
        precondition(ticks[i] < endTick, "pictures begin one after another");
        const std::int64_t rounded = (checkedMul(endTick, 200) + fps) / (2 * fps);
        const std::int64_t end = std::max(rounded, begin + minCentiseconds);
        delays.push_back(end - begin);
        begin = end;
    }
    return delays;
}

} // namespace quillbox
