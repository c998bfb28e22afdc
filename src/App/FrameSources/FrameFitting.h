#pragma once

#include "Encoding/Pixels/PixelSize.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>

namespace quillbox {

/// Brings pictures of different sizes to one. Stateless; thread: any.
namespace FrameFitting {

/// `frame` on a canvas of `size`: shrunk until it fits, keeping its proportions, and centred on `background`. One of
/// that size is passed on with its pixels shared. @pre no side of either is 0.
[[nodiscard]] RGBAFrame onCanvas(const RGBAFrame& frame, PixelSize size, RGBColor background);

/// The part of `frame` that begins at (left, top). @pre it lies in the frame and is not empty.
[[nodiscard]] RGBAFrame cropped(const RGBAFrame& frame, std::int64_t left, std::int64_t top, PixelSize size);

} // namespace FrameFitting
} // namespace quillbox
