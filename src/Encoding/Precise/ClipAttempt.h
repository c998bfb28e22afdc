#pragma once

#include "Encoding/GIFOptimizer.h"
#include "Encoding/Pixels/PixelTypes.h"
#include "Encoding/Precise/DeltaGIF.h"
#include "Encoding/Precise/DistinctFrames.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <stop_token>
#include <vector>

namespace quillbox {

/// One way to show a recording. Errors are squared, summed up over channels, pixels and frames.
struct ClipPlan {
    std::vector<RGBColor> table;  ///< global, 1…256 colours
    std::vector<bool> leavesOut;  ///< one for each picture: not shown at all. The first one is shown.
    std::int64_t maxColors = 256; ///< of a picture's own table
    double spareBytes = 0;        ///< about as many more bytes as such tables may cost in all
    std::int64_t passes = 30;     ///< of the search for codes, as `LZWSearch::Effort`
};

/// A file made by a plan.
struct ClipAttempt {
    DeltaGIF::Screen screen;
    std::vector<Bytes> parts;       ///< one a picture shown
    std::int64_t byteCount = 0;     ///< of the file
    std::int64_t colorCount = 0;    ///< of the largest table
    double errorTicks = 0;          ///< squared errors summed up over pixels, channels and frames of the recording
    std::int64_t ownTableBytes = 0; ///< about as many more as without tables of single pictures
    bool isWhole = true;            ///< false if it was left before its end: then errors and colours mean nothing
    std::int64_t madePixels = 0;    ///< of the areas that the pictures made overwrite

    /// What limits an attempt.
    struct Limits {
        std::int64_t byteCount = std::numeric_limits<std::int64_t>::max(); ///< one that exceeds it is left
        std::stop_token stop{};                                            ///< and one that is not wanted any more
    };
    using Report = std::function<void(std::int64_t picturesDone)>;

    /// Makes the file: maps one picture after another and compresses several at once.
    [[nodiscard]] static ClipAttempt make(const DistinctFrames::Recording& recording, const ClipPlan& plan,
        Parallelism parallelism, const Limits& limits, const Report& report);
};

} // namespace quillbox
