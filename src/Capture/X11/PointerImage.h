#pragma once

#include "Platform/PixelRect.h"

#include <cstdint>
#include <vector>

namespace quillbox {

/// The pointer's picture.
struct PointerImage {
    std::int32_t width = 0;    ///< pixels
    std::int32_t height = 0;   ///< pixels
    std::int32_t hotSpotX = 0; ///< the pixel that points, from the picture's left
    std::int32_t hotSpotY = 0; ///< …and from its top
    std::vector<std::uint32_t>
        pixels; ///< alpha, red, green, blue from the highest byte down, premultiplied; row by row

    /// The pixels it covers when it points at (x, y).
    [[nodiscard]] PixelRect placedAt(std::int32_t x, std::int32_t y) const
    {
        return PixelRect{x - hotSpotX, y - hotSpotY, width, height};
    }
};

/// A pointer drawn into a picture, for as long as this object lives: the pixels below come back at its end.
class DrawnPointer {
public:
    /// @param picture  BGRA rows; both `picture` and `image` outlive this object.
    /// @param stride   Bytes from one row to the next.
    /// @param extent   The picture's size, its origin at (0, 0).
    /// @param place    Where the image goes, of the image's size; what lies outside the picture is left out.
    DrawnPointer(
        std::uint8_t* picture, std::int64_t stride, PixelRect extent, const PointerImage& image, PixelRect place);
    ~DrawnPointer();
    DrawnPointer(const DrawnPointer&) = delete;
    DrawnPointer& operator=(const DrawnPointer&) = delete;

private:
    [[nodiscard]] std::uint8_t* rowAt(std::int32_t y) const;

    std::uint8_t* m_picture;
    std::int64_t m_stride;
    PixelRect m_covered;
    std::vector<std::uint8_t> m_below;
};

} // namespace quillbox
