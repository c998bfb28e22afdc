#pragma once

#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <span>

namespace quillbox {

/// What shows through pixels that are not opaque. Stateless; thread: any.
namespace Transparency {

/// White, as the page that a picture is looked at on.
inline constexpr RGBColor defaultBackground{255, 255, 255};

/// Mixes each pixel with `background` by its alpha, rounded to nearest, and makes it opaque.
/// @param pixels  RGBA, not premultiplied; a multiple of four bytes.
void layOn(RGBColor background, std::span<std::uint8_t> pixels);

} // namespace Transparency
} // namespace quillbox
