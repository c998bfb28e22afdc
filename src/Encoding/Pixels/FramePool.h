#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <memory>

namespace quillbox {

/// Makes frames whose memory is used again for later frames once nobody holds them any more: memory that the system
/// has to provide anew costs more than copying a picture into it.
/// Thread: any; frames may outlive the pool.
class FramePool {
public:
    FramePool();

    /// A buffer of `byteCount` bytes with undefined contents. A large one begins at a page, as files like it.
    [[nodiscard]] Bytes take(std::int64_t byteCount) const;

    /// A frame whose buffer comes back here in the end. @pre as for RGBAFrame's constructor.
    [[nodiscard]] RGBAFrame frame(std::int64_t width, std::int64_t height, Bytes pixels) const;

    /// A buffer to be shared, which comes back here likewise.
    [[nodiscard]] std::shared_ptr<const Bytes> shared(Bytes pixels) const;

    /// Gives back a buffer that became no frame.
    void giveBack(Bytes pixels) const;

private:
    class Spares;
    std::shared_ptr<Spares> m_spares;
};

} // namespace quillbox
