#pragma once

#include <cstdint>

namespace quillbox {

/// So many frames in so many seconds: 30000 in 1001 is NTSC's rate, 1 in 2 a picture every other second.
struct FrameRate {
    std::int64_t frames = 1;  ///< 1…2^32
    std::int64_t seconds = 1; ///< 1…2^32

    friend bool operator==(const FrameRate&, const FrameRate&) = default;
};

} // namespace quillbox
