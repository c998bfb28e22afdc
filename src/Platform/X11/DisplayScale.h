#pragma once

#include <string_view>

namespace quillbox {

/// Device pixels a point, above 0.
/// @param resources    X resources, one a line; "Xft.dpi:" followed by a tab and a whole number is the resolution in
///                     dots an inch, 96 of which are one pixel a point. Anything else counts as 96.
/// @param scaleFactor  Qt's QT_SCALE_FACTOR: a number that multiplies the scale; null or not a number above 0: 1.
[[nodiscard]] double displayScale(std::string_view resources, const char* scaleFactor);

} // namespace quillbox
