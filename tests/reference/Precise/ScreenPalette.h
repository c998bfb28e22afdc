#pragma once

#include "Encoding/Precise/Colors/ColorMoments.h"
#include "Encoding/Precise/Colors/KMeans.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// What the stages of `ScreenPalette` must equal: every list is searched whole, everything is worked out anew.
namespace quillbox::reference {

[[nodiscard]] std::vector<ColorMoments> cells(std::span<const WeightedColor> colors, int shift);

[[nodiscard]] std::vector<ColorMoments> split(std::span<const ColorMoments> points, std::size_t count);

/// Where two unions cost the same, `ColorClustering::merge` may choose another.
[[nodiscard]] std::vector<ColorMoments> merge(std::span<const ColorMoments> points, std::size_t count);

[[nodiscard]] std::vector<KMeans::Center> refine(
    std::span<const ColorMoments> points, std::vector<KMeans::Center> centers, int rounds);

[[nodiscard]] std::vector<RGBColor> settle(
    std::span<const ColorMoments> points, std::vector<RGBColor> colors, int rounds);

[[nodiscard]] std::vector<RGBColor> exchange(
    std::span<const ColorMoments> points, std::vector<RGBColor> colors, int trials);

/// The sum over all points of weight times squared distance to the nearest colour.
[[nodiscard]] double errorOf(std::span<const ColorMoments> points, std::span<const RGBColor> colors);

} // namespace quillbox::reference
