#pragma once

#include "Encoding/Parallel.h"
#include "Encoding/Pixels/PixelTypes.h"
#include "Encoding/Precise/DistinctFrames.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillbox {

/// Predicts how large a recording's files will be: strips of its pictures, spread evenly over place and time, are coded
/// with the least effort. Immutable; thread: any. No prediction depends on the number of threads.
class SizePrediction {
public:
    /// @param leavesOut  one for each picture: not shown at all. @pre the first picture is shown.
    SizePrediction(const DistinctFrames::Recording& recording, const std::vector<bool>& leavesOut);

    /// Bytes of the file if all its pictures have this table, and their codes are sought with the least effort.
    /// @param table  1…256 colours.
    [[nodiscard]] double roughSize(const std::vector<RGBColor>& table, Parallelism parallelism) const;

    /// The size with `passes` of the search for codes, as `LZWSearch::Effort`, as a multiple of the rough size: what a
    /// few whole pictures come to.
    [[nodiscard]] double correction(
        const std::vector<RGBColor>& table, std::int64_t passes, Parallelism parallelism) const;

    /// Pixels of all the areas that the pictures overwrite.
    [[nodiscard]] std::int64_t pixelCount() const { return m_pixelCount; }

private:
    /// A part of a picture, some rows of what it overwrites: RGB, red in the low byte; the high byte means nothing.
    struct Strip {
        std::int64_t width = 0;
        std::vector<std::uint32_t> before; ///< empty for the first picture
        std::vector<std::uint32_t> after;
    };

    std::vector<Strip> m_strips;     ///< of all pictures
    std::vector<Strip> m_whole;      ///< a few pictures
    std::int64_t m_units = 0;        ///< of length that all pictures' codes have, about
    std::int64_t m_sampledUnits = 0; ///< those of the strips
    std::int64_t m_pixelCount = 0;
    std::int64_t m_pictureCount = 0;
};

} // namespace quillbox
