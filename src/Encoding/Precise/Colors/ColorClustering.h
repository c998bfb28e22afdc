#pragma once

#include "Encoding/Precise/Colors/ColorMoments.h"

#include <cstddef>
#include <span>
#include <vector>

namespace quillbox {

/// Clusters of colours whose means make a good palette. What is small is the error: the sum over all colours of weight
/// times squared distance to the mean of their cluster. A point is one colour, or several that stay together.
/// Stateless; thread: any; no result depends on the machine.
namespace ColorClustering {

/// Colours whose channels agree but for the lowest `shift` bits, together, by ascending `Color24::key` of what agrees.
/// @pre `shift` is in 1…7.   Time: O(colors + 2^(24 − 3 · shift)).
[[nodiscard]] std::vector<ColorMoments> cells(std::span<const WeightedColor> colors, int shift);

/// Parts the points in two until there are `count` parts or nothing is left to part: always the part, across red,
/// green, blue or luma, at the place where it helps most.
/// @return The sums of the parts.   Time: O(points · log count).
/// @see    X. Wu, "Efficient Statistical Computations for Optimal Color Quantization" (1991).
[[nodiscard]] std::vector<ColorMoments> split(std::span<const ColorMoments> points, std::size_t count);

/// Unites points, always the two clusters that it harms least, until `count` are left.
/// @return The sums of the clusters, in the order of the first point of each.   Time: O(points²).
/// @see    J. Ward, "Hierarchical Grouping to Optimize an Objective Function" (1963); F. Murtagh, "A Survey of Recent
///         Advances in Hierarchical Clustering Algorithms" (1983), for the chain of nearest neighbours.
[[nodiscard]] std::vector<ColorMoments> merge(std::span<const ColorMoments> points, std::size_t count);

} // namespace ColorClustering
} // namespace quillbox
