#pragma once

#include "Encoding/Parallel.h"
#include "Encoding/Precise/Colors/ColorMoments.h"

#include <array>
#include <span>
#include <vector>

namespace quillbox {

/// Improves the centres of clusters of colours. A point is one colour, or several that stay together; its error is its
/// weight times its squared distance to the nearest centre, of several the first one. Stateless; thread: any; no result
/// depends on the machine or on the number of threads.
namespace KMeans {

/// In levels, not rounded to whole ones.
using Center = std::array<float, 3>;

/// The mean of a cluster's colours. @pre there is weight.
[[nodiscard]] Center centerOf(const ColorMoments& cluster);

/// Moves each centre to the mean of the points that it is nearest to, up to `rounds` times or until no point changes
/// its centre. A centre without points stays where it is.
/// @see S. Lloyd, "Least Squares Quantization in PCM" (1982).
[[nodiscard]] std::vector<Center> refine(
    std::span<const ColorMoments> points, std::vector<Center> centers, int rounds, Parallelism parallelism);

/// The same with colours as centres: each becomes the rounded mean or, where one point has more than half of the
/// weight, that point's colour, because such a point is a flat area, mostly, and there exactness is seen.
[[nodiscard]] std::vector<RGBColor> settle(
    std::span<const ColorMoments> points, std::vector<RGBColor> colors, int rounds, Parallelism parallelism);

/// Tries up to `trials` times to take away the colour that is missed least and to part the points of the one with the
/// largest error instead, or others that are nearly as good for that; what makes the sum of the errors smaller, after
/// some rounds of `settle`, stays.
/// @see P. Fränti, "Efficiency of random swap clustering" (2018), where the choice is random.
[[nodiscard]] std::vector<RGBColor> exchange(
    std::span<const ColorMoments> points, std::vector<RGBColor> colors, int trials, Parallelism parallelism);

} // namespace KMeans
} // namespace quillbox
