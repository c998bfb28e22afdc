#pragma once

#include "Capture/CaptureRegion.h"
#include "Encoding/PixelSize.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace quillbox {

/// Reads what users write as arguments. Stateless; thread: any.
namespace ArgumentText {

/// "WIDTHxHEIGHT": two numbers without signs. Numbers that don't fit 64 bits become the largest that does, so that
/// an absurd size is reported as a size and not as bad spelling. None when it is written otherwise.
[[nodiscard]] std::optional<PixelSize> size(std::string_view text);

/// "X,Y,WIDTHxHEIGHT": X and Y may be negative; width and height are at least 1; all fit 32 bits.
/// None when it is written otherwise.
[[nodiscard]] std::optional<CaptureRegion> region(std::string_view text);

/// A number of seconds above 0 and at most 86400, with or without a fraction. None when it is written otherwise.
[[nodiscard]] std::optional<double> duration(std::string_view text);

/// A number of bytes, at least 1: "750000", "750K" or "1.5M", the units being 1000 and 1000000. None when it is written
/// otherwise.
[[nodiscard]] std::optional<std::int64_t> byteCount(std::string_view text);

} // namespace ArgumentText
} // namespace quillbox
