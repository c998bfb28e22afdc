#pragma once

#include "Encoding/NearestColorLUT.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <span>

namespace quillbox {

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
