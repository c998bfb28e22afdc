#include "Capture/IncrementalFrameBuilder.h"

#include <algorithm>

namespace quillbox {

RGBAFrame IncrementalFrameBuilder::remade(PixelSize size, DirtyBands& changed, const MakeBand& makeBand)
{
    m_bands.resize(changed.count());
    for (std::size_t index = 0; index < m_bands.size(); ++index) {
        if (!changed.contains(index))
            continue;
        const std::int64_t first = static_cast<std::int64_t>(index) * RGBAFrame::rowsPerBand;
        m_bands[index] = makeBand(first, std::min(RGBAFrame::rowsPerBand, size.height - first));
    }
    changed.clear();
    return RGBAFrame::ofBands(size.width, size.height, m_bands);
}

RGBAFrame IncrementalFrameBuilder::compared(const RGBAFrame& frame)
{
    m_bands.resize(static_cast<std::size_t>(frame.bandCount()));
    for (std::int64_t index = 0; index < frame.bandCount(); ++index) {
        RGBAFrame::Band& band = m_bands[static_cast<std::size_t>(index)];
        if (RGBAFrame::Band own = frame.ownBand(index)) {
            band = std::move(own);
            continue;
        }
        const PixelView pixels = frame.band(index);
        if (!band || !(band->pixels() == pixels))
            band = std::make_shared<const PixelBand>(Bytes(pixels));
    }
    return RGBAFrame::ofBands(frame.width(), frame.height(), m_bands);
}

} // namespace quillbox
