#pragma once

#include "Capture/PipeWire/PixelFormat.h"
#include "Platform/PixelRect.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace quillbox {

/// What was done to an upright picture before it was put into a buffer: mirrored left to right (Flipped…), then turned
/// counter-clockwise by so many degrees. The values are those of PipeWire's spa_meta_videotransform_value.
enum class BufferTransform { None, Turned90, Turned180, Turned270, Flipped, Flipped90, Flipped180, Flipped270 };

/// One picture in a stream's memory.
struct StreamBuffer {
    std::span<const std::uint8_t> bytes; ///< from the first row on
    std::int64_t stride = 0;             ///< bytes from one row to the next
    PixelFormat order = PixelFormat::BGRx;
    std::int32_t width = 0;  ///< pixels
    std::int32_t height = 0; ///< pixels
    PixelRect crop;          ///< the part that is the picture
    BufferTransform transform = BufferTransform::None;

    /// Whether every pixel lies within `bytes`, and the crop within the picture.
    [[nodiscard]] bool isWhole() const;
};

/// How to walk over a buffer's pixels in the order of the upright picture.
struct PixelStrides {
    std::int32_t width = 0;    ///< of the upright picture, pixels
    std::int32_t height = 0;   ///< of the upright picture, pixels
    std::ptrdiff_t origin = 0; ///< where its top-left pixel is, bytes
    std::ptrdiff_t stepX = 0;  ///< to the pixel at its right, bytes
    std::ptrdiff_t stepY = 0;  ///< to the pixel below it, bytes
};

/// @pre buffer.isWhole().
[[nodiscard]] PixelStrides walkUpright(const StreamBuffer& buffer);

} // namespace quillbox
