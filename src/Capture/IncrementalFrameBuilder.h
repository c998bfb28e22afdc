#pragma once

#include "Capture/DirtyBands.h"
#include "Encoding/Pixels/PixelSize.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace quillbox {

/// Makes the frames of one stream, all of one size, each of which shares with the one before the bands in which nothing
/// has changed. Not for use from two threads at once.
class IncrementalFrameBuilder {
public:
    using MakeBand = std::function<RGBAFrame::Band(std::int64_t firstRow, std::int64_t rows)>;

    /// A frame whose changed bands are made anew. `changed` is cleared.
    /// @param size  Pixels; positive. @pre all bands have changed if there was no frame before.
    [[nodiscard]] RGBAFrame remade(PixelSize size, DirtyBands& changed, const MakeBand& makeBand);

    /// `frame`, compared with the one before unless it is made of bands already.
    [[nodiscard]] RGBAFrame compared(const RGBAFrame& frame);

private:
    std::optional<RGBAFrame> m_latest;
};

} // namespace quillbox
