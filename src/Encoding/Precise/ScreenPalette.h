#pragma once

#include "Encoding/Parallel.h"
#include "Encoding/Precise/ColorCounts.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillbox {

/// Chooses palettes for pictures of screens: flat areas keep their exact colour, and the squared error of the rest is
/// small. Stateless; thread: any; equal input gives the same palette on every machine.
namespace ScreenPalette {

inline constexpr std::int64_t maxColorCount = 256; ///< what a colour table of a GIF holds

/// A palette for all that `colors` were counted in: those colours themselves when they are few enough, otherwise
/// splits by variance, improved by k-means. Ordered by weight, heaviest first; equal weights by ascending key.
/// @param colors     Distinct, by ascending `Color24::key`, as `ColorCounts::entries()` gives them.
/// @param maxColors  1…256.
/// @return 1…`maxColors` distinct colours; black alone if there are none.
/// @pre    Arguments as described; a violation ends the process.
/// @see    X. Wu, "Efficient Statistical Computations for Optimal Color Quantization" (1991);
///         S. Lloyd, "Least Squares Quantization in PCM" (1982).
[[nodiscard]] std::vector<RGBColor> make(
    std::span<const WeightedColor> colors, std::int64_t maxColors, Parallelism parallelism = {});

/// The same with less refinement, on one thread: for the palette of a single picture, mostly a small one.
[[nodiscard]] std::vector<RGBColor> makeQuickly(std::span<const WeightedColor> colors, std::int64_t maxColors);

} // namespace ScreenPalette
} // namespace quillbox
