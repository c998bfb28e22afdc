#pragma once

#include <cstdint>

namespace quillbox {

/// Width and height of a picture, in whole pixels; where it is said, in points.
struct PixelSize {
    std::int64_t width = 0;
    std::int64_t height = 0;

    friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

} // namespace quillbox
