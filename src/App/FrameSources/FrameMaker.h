#pragma once

#include "Encoding/Pixels/FramePool.h"
#include "Encoding/Pixels/PixelSize.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <optional>

namespace quillbox {

/// Makes a clip's frames out of buffers. A frame that equals the one before it shares that one's pixels, and buffers
/// are used again, so that a still screen needs the memory of a few frames. One thread at a time.
class FrameMaker {
public:
    /// A buffer of `byteCount` bytes with undefined contents, to read the next frame into.
    [[nodiscard]] Bytes takeBuffer(std::int64_t byteCount);

    /// @pre `pixels` holds four bytes for each pixel of `size`.
    [[nodiscard]] RGBAFrame frame(PixelSize size, Bytes pixels);

private:
    FramePool m_pool;
    std::optional<RGBAFrame> m_previous;
};

} // namespace quillbox
