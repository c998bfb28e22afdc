#pragma once

#include "App/FrameSources/FrameRate.h"
#include "Capture/CaptureRegion.h"
#include "Encoding/Pixels/PixelSize.h"
#include "Encoding/Pixels/PixelTypes.h"

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

/// Frames per second, 1000 at most and no fewer than one in 655.35 s, the longest that a GIF shows a picture: whole,
/// with a fraction, or as two whole numbers: "12", "29.97", "30000/1001". None when it is written otherwise.
[[nodiscard]] std::optional<FrameRate> rate(std::string_view text);

/// How long each frame is shown, 0.001 to 655.35 seconds, as the rate that comes to. None when it is written otherwise.
[[nodiscard]] std::optional<FrameRate> delay(std::string_view text);

/// A whole number without sign that fits 64 bits. None when it is written otherwise.
[[nodiscard]] std::optional<std::int64_t> number(std::string_view text);

/// "#RRGGBB", "RRGGBB", "#RGB", or one of the words white, black and gray. None when it is written otherwise.
[[nodiscard]] std::optional<RGBColor> color(std::string_view text);

} // namespace ArgumentText
} // namespace quillbox
