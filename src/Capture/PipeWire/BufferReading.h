#pragma once

#include "Capture/PipeWire/StreamBuffer.h"

#include <cstdint>
#include <optional>
#include <vector>

struct spa_buffer;

namespace quillbox {

/// The format that a stream has agreed on.
struct StreamFormat {
    PixelFormat order = PixelFormat::BGRx;
    std::int32_t width = 0;  ///< pixels
    std::int32_t height = 0; ///< pixels
};

/// What one of PipeWire's buffers holds.
struct ReadBuffer {
    StreamBuffer picture;                         ///< whole
    std::optional<std::vector<PixelRect>> damage; ///< none: not told
    std::uint64_t sequence = 0;                   ///< counts the source's pictures; 0: it does not count
};

/// Looks at a mapped buffer and its metadata. The result refers to the buffer's memory.
/// @return Nothing if it holds no picture, or one that is marked as corrupted or does not lie within its memory.
[[nodiscard]] std::optional<ReadBuffer> readBuffer(const spa_buffer& buffer, const StreamFormat& format);

} // namespace quillbox
