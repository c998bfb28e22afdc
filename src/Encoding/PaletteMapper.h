#pragma once

#include "Encoding/PaletteQuantizer.h"
#include "Encoding/PixelTypes.h"

#include <array>
#include <cstdint>
#include <span>
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

/// Turns pictures into palette indices. Stateless; thread: any.
namespace PaletteMapper {

/// Index of the palette entry nearest to `color`; the lowest one of several; 0 for an empty palette.
[[nodiscard]] int nearestIndexLinear(RGBColor color, std::span<const RGBColor> palette);

/// Sets `indices` to each pixel's table entry, rows top-down.
void mapInto(Bytes& indices, const RGBAFrame& frame, const NearestColorLUT& lut);

/// Each pixel's table entry. The delay (1/100 s) is passed on as it is.
[[nodiscard]] IndexedFrame map(const RGBAFrame& frame, const NearestColorLUT& lut, std::int64_t delayCentiseconds);

/// Floyd–Steinberg error diffusion, left to right in every row, shares of 7, 3, 5 and 1 sixteenths each truncated
/// toward zero; the error is taken from the unclamped value, so an overshoot is carried on in full.
/// @pre the palette is not empty unless the frame is.
/// @see R. Floyd, L. Steinberg, "An Adaptive Algorithm for Spatial Greyscale" (1976).
[[nodiscard]] IndexedFrame mapDithered(
    const RGBAFrame& frame, const NearestColorLUT& lut, std::int64_t delayCentiseconds);

} // namespace PaletteMapper
} // namespace quillbox
