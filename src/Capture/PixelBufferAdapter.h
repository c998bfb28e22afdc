#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <optional>

namespace quillbox {

/// A picture in a platform's memory: four bytes a pixel in the order blue, green, red, alpha, rows top-down.
struct PixelBuffer {
    enum class Alpha {
        Carried,   ///< the fourth byte is the pixel's alpha
        Undefined, ///< the fourth byte means nothing (BGRX): the pixel is opaque
    };

    const std::uint8_t* base = nullptr; ///< the first row; null when the memory can't be reached
    std::int64_t width = 0;             ///< pixels
    std::int64_t height = 0;            ///< pixels
    std::int64_t stride = 0;            ///< bytes from one row to the next
    Alpha alpha = Alpha::Carried;
};

/// Where a platform's pixel layout meets our own. Stateless; thread: any.
namespace PixelBufferAdapter {

/// The picture as a tightly packed frame; nothing if the buffer has no base address. A carried alpha is copied
/// unchanged, an undefined one becomes 255. Nothing of the buffer is kept.
/// @pre 0 ≤ width, 0 ≤ height, width × 4 ≤ stride unless there are no rows, and no size overflows; a violation ends
/// the process.
[[nodiscard]] std::optional<RGBAFrame> makeFrame(const PixelBuffer& buffer);

/// Some rows of the picture, as a band of a frame. @pre as above; the buffer has a base address and those rows.
[[nodiscard]] RGBAFrame::Band makeBand(const PixelBuffer& buffer, std::int64_t firstRow, std::int64_t rows);

} // namespace PixelBufferAdapter
} // namespace quillbox
