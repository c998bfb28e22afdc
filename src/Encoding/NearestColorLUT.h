#pragma once

#include "Encoding/PaletteQuantizer.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <array>
#include <cstdint>
#include <vector>

namespace quillbox {

/// The nearest palette entry for each of the 32768 colours of the 15-bit grid. Immutable; thread: any.
class NearestColorLUT {
public:
    /// Searches the palette for every grid colour. @pre at most 256 entries; an empty palette maps all to 0.
    explicit NearestColorLUT(std::vector<RGBColor> palette);

    [[nodiscard]] int indexFast(std::uint8_t r, std::uint8_t g, std::uint8_t b) const
    {
        return m_table[Color15::key(r, g, b)];
    }
    [[nodiscard]] int index(RGBColor color) const { return indexFast(color.r, color.g, color.b); }

    [[nodiscard]] const std::vector<RGBColor>& palette() const { return m_palette; }
    /// `table()[key]` is the palette index of the grid colour `key`.
    [[nodiscard]] const std::array<std::uint8_t, Color15::keyCount>& table() const { return m_table; }

private:
    std::vector<RGBColor> m_palette;
    std::array<std::uint8_t, Color15::keyCount> m_table;
};

} // namespace quillbox
