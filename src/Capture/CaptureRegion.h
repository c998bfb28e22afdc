#pragma once

#include <algorithm>
#include <cstdint>

namespace quillbox {

/// A rectangle of the main display, in points: origin at the display's top-left corner, y growing downward. One point
/// becomes one pixel of the recorded frames, whatever the display's scale. A value, compared field by field.
struct CaptureRegion {
    std::int64_t x = 0;      ///< left edge, points
    std::int64_t y = 0;      ///< top edge, points
    std::int64_t width = 0;  ///< points
    std::int64_t height = 0; ///< points

    /// The same origin with a width and a height of at least 1.
    [[nodiscard]] constexpr CaptureRegion normalized() const
    {
        return CaptureRegion{x, y, std::max<std::int64_t>(width, 1), std::max<std::int64_t>(height, 1)};
    }

    friend constexpr bool operator==(const CaptureRegion&, const CaptureRegion&) = default;
};

} // namespace quillbox
