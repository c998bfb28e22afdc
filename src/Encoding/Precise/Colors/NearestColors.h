#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillbox {

/// Maps exact 24-bit colours to the nearest entry of a palette, by squared Euclidean distance in RGB; of several the
/// lowest index. Remembers what it found, for single colours and for regions of the colour space. A value; thread: one
/// at a time, so that each thread wants a copy of its own.
class NearestColors {
public:
    /// @pre 1…256 entries.
    explicit NearestColors(std::vector<RGBColor> palette);

    [[nodiscard]] const std::vector<RGBColor>& palette() const { return m_palette; }

    [[nodiscard]] std::uint8_t index(RGBColor color);

    /// Sets each of `indices` to that of its pixel.
    /// @param pixels  RGBA, alpha ignored. @pre `pixels.size() == 4 * indices.size()`.
    void map(std::span<const std::uint8_t> pixels, std::span<std::uint8_t> indices);

private:
    /// A palette entry that is the nearest one for some colour of a cell, perhaps.
    struct Candidate {
        std::int32_t fromCell; ///< squared distance to the nearest colour of the cell
        RGBColor color;
        std::uint8_t index;
    };
    /// One of the cubes that the colour space is divided in. Its candidates follow one another, the nearest to the cell
    /// first.
    struct Cell {
        std::uint32_t begin = 0;
        std::uint32_t end = 0; ///< equal to `begin`: not looked at yet
    };

    [[nodiscard]] std::uint8_t search(std::uint32_t loaded);
    [[nodiscard]] std::uint8_t remembered(std::uint32_t loaded);
    void findCandidates(Cell& cell, std::uint32_t loaded);

    std::vector<RGBColor> m_palette;
    std::vector<std::uint32_t> m_cache; ///< a colour with its index in the high byte, at a place that the colour gives
    std::vector<Cell> m_cells;
    std::vector<Candidate> m_candidates;
};

} // namespace quillbox
