#pragma once

#include <algorithm>
#include <cstdint>

namespace quillbox {

/// A rectangle of device pixels; without extent it is empty, wherever it lies. Sides are far below 2^31.
struct PixelRect {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;

    [[nodiscard]] constexpr bool isEmpty() const { return width <= 0 || height <= 0; }
    [[nodiscard]] constexpr std::int64_t area() const { return isEmpty() ? 0 : std::int64_t{width} * height; }

    /// What both cover.
    [[nodiscard]] constexpr PixelRect intersected(const PixelRect& other) const
    {
        const std::int32_t left = std::max(x, other.x);
        const std::int32_t top = std::max(y, other.y);
        const std::int32_t right = std::min(x + width, other.x + other.width);
        const std::int32_t bottom = std::min(y + height, other.y + other.height);
        const PixelRect common{left, top, right - left, bottom - top};
        return common.isEmpty() ? PixelRect{} : common;
    }

    /// The smallest rectangle that covers both.
    [[nodiscard]] constexpr PixelRect united(const PixelRect& other) const
    {
        if (isEmpty())
            return other;
        if (other.isEmpty())
            return *this;
        const std::int32_t left = std::min(x, other.x);
        const std::int32_t top = std::min(y, other.y);
        const std::int32_t right = std::max(x + width, other.x + other.width);
        const std::int32_t bottom = std::max(y + height, other.y + other.height);
        return PixelRect{left, top, right - left, bottom - top};
    }

    /// The same rectangle seen from `origin`'s top-left corner.
    [[nodiscard]] constexpr PixelRect relativeTo(const PixelRect& origin) const
    {
        return PixelRect{x - origin.x, y - origin.y, width, height};
    }

    friend constexpr bool operator==(const PixelRect&, const PixelRect&) = default;
};

} // namespace quillbox
