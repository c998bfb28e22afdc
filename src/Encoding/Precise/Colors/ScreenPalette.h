#pragma once

#include "Encoding/Parallel.h"
#include "Encoding/Precise/Colors/ColorCounts.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quillbox {

/// Chooses palettes for pictures of screens: flat areas keep their exact colour, and the squared error of the rest is
/// small. Stateless; thread: any; equal input gives the same palette on every machine.
namespace ScreenPalette {

inline constexpr std::int64_t maxColorCount = 256; ///< what a colour table of a GIF holds

/// A palette for all that `colors` were counted in: those colours themselves when they are few enough. Otherwise the
/// centres of clusters, found by splits, merging, k-means and exchanging; a colour that makes up more than half of its
/// cluster is its centre, and rare colours that would turn into quite another one get entries of their own. Ordered by
/// weight, heaviest first; equal weights by ascending key.
/// @param colors     Distinct, by ascending `Color24::key`, as `ColorCounts::entries()` gives them. 255 times the sum
/// of
///                   their weights fits 63 bits.
/// @param maxColors  1…256.
/// @return As many distinct colours as there are, at most `maxColors`; black alone if there are none.
/// @pre    Arguments as described; a violation ends the process.
/// @see    ColorClustering, KMeans
[[nodiscard]] std::vector<RGBColor> make(
    std::span<const WeightedColor> colors, std::int64_t maxColors, Parallelism parallelism = {});

/// The same with less refinement, on one thread: for the palette of a single picture, mostly a small one.
[[nodiscard]] std::vector<RGBColor> makeQuickly(std::span<const WeightedColor> colors, std::int64_t maxColors);

} // namespace ScreenPalette
} // namespace quillbox
