#pragma once

#include <algorithm>
#include <cstdint>

namespace quillbox {

/// A rectangle of a picture's pixels; without extent it is empty, wherever it lies. A value.
struct PictureArea {
    std::int64_t left = 0;
    std::int64_t top = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;

    [[nodiscard]] constexpr bool isEmpty() const { return width <= 0 || height <= 0; }
    [[nodiscard]] constexpr std::int64_t pixelCount() const { return isEmpty() ? 0 : width * height; }

    /// The smallest rectangle that covers both.
    [[nodiscard]] constexpr PictureArea united(const PictureArea& other) const
    {
        if (isEmpty())
            return other;
        if (other.isEmpty())
            return *this;
        const std::int64_t right = std::max(left + width, other.left + other.width);
        const std::int64_t bottom = std::max(top + height, other.top + other.height);
        const std::int64_t firstColumn = std::min(left, other.left);
        const std::int64_t firstRow = std::min(top, other.top);
        return {firstColumn, firstRow, right - firstColumn, bottom - firstRow};
    }

    friend constexpr bool operator==(const PictureArea&, const PictureArea&) = default;
};

} // namespace quillbox
