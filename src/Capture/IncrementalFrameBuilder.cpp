#include "Capture/IncrementalFrameBuilder.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace quillbox {

RGBAFrame IncrementalFrameBuilder::remade(PixelSize size, DirtyBands& changed, const MakeBand& makeBand)
{
    std::vector<RGBAFrame::Band> bands(changed.count());
    for (std::size_t index = 0; index < bands.size(); ++index) {
        const auto number = static_cast<std::int64_t>(index);
        const std::int64_t first = number * RGBAFrame::rowsPerBand;
        bands[index] = changed.contains(index) ? makeBand(first, std::min(RGBAFrame::rowsPerBand, size.height - first))
                                               : m_latest.value().ownBand(number);
    }
    changed.clear();
    m_latest = RGBAFrame::ofBands(size.width, size.height, std::move(bands));
    return *m_latest;
}

RGBAFrame IncrementalFrameBuilder::compared(const RGBAFrame& frame)
{
    m_latest = frame.inBands(m_latest);
    return *m_latest;
}

} // namespace quillbox
