#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <span>

namespace quillbox::reference {

/// Exhaustive search; the lowest index of several nearest entries; 0 for an empty palette.
[[nodiscard]] int nearestIndex(RGBColor color, std::span<const RGBColor> palette);

/// The entry nearest to the 15-bit grid colour of `color`: what the nearest-colour table must hold.
[[nodiscard]] int gridIndex(RGBColor color, std::span<const RGBColor> palette);

/// A search for every colour: what `PaletteMapper::map` must equal.
[[nodiscard]] IndexedFrame map(
    const RGBAFrame& frame, std::span<const RGBColor> palette, std::int64_t delayCentiseconds);

/// Error diffusion with whole-frame 64-bit error arrays: what `PaletteMapper::mapDithered` must equal.
[[nodiscard]] IndexedFrame mapDithered(
    const RGBAFrame& frame, std::span<const RGBColor> palette, std::int64_t delayCentiseconds);

} // namespace quillbox::reference
