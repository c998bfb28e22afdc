#pragma once

#include "Encoding/Pixels/PixelTypes.h"
#include "Encoding/Precise/DistinctFrames.h"

#include <vector>

namespace quillbox {

/// How far what a GIF shows is from a recording. Sums are of squared differences over channels, pixels and frames.
/// Stateless; thread: any.
namespace ShownError {

/// The PSNR of a clip that lacks nothing that an eye could see.
inline constexpr double perfectDecibels = 99;

/// The mean of a sample, from the sum over a recording.
[[nodiscard]] double mean(double sum, const DistinctFrames::Recording& recording);

/// The PSNR of the sum over a recording, `perfectDecibels` at most.
[[nodiscard]] double decibels(double sum, const DistinctFrames::Recording& recording);

/// The sum if every picture is shown with the nearest colours of a table. @param table  1…256 colours.
[[nodiscard]] double ofTable(const DistinctFrames::Recording& recording, const std::vector<RGBColor>& table);

} // namespace ShownError
} // namespace quillbox
