#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace quillbox {

/// Shrinks pictures of four bytes a pixel by blocks of few source pixels, one output row at a time: each byte becomes
/// the truncated mean of its block, whose columns are those of `FrameResampler::boxFiltered`.
/// One thread at a time.
class SmallBlockFilter {
public:
    /// The most source pixels that a block may have.
    static constexpr std::int64_t maxCount = 11;

    /// Widths in pixels. @pre 0 < outputWidth ≤ sourceWidth
    SmallBlockFilter(std::int64_t sourceWidth, std::int64_t outputWidth);

    /// Writes the output row that some source rows make, at least one. @pre no block exceeds `maxCount`.
    void filterRow(std::span<const std::uint8_t* const> rows, std::uint8_t* output);

private:
    /// A pixel's four channels, each a 16-bit sum; pixels add up in one step.
    using PackedSums = std::uint64_t;

    std::int64_t m_shortestColumn;         ///< source pixels; every column is this long or one longer
    std::vector<std::uint32_t> m_begins;   ///< by output pixel: the first source pixel of its column
    std::vector<PackedSums> m_longerMasks; ///< by output pixel: all ones where the column is the longer kind
    std::vector<PackedSums> m_rowSums;     ///< by source pixel, and one more that is read and masked out
    std::vector<PackedSums> m_blockSums;   ///< by output pixel
};

} // namespace quillbox
