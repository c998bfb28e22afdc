#pragma once

#include "Encoding/Precise/Colors/ColorCounts.h"

#include <cstdint>

namespace quillbox {

/// The sums over some weighted colours that clustering needs: of the weights, and of each channel times the weight.
/// Exact, so that no result depends on the order of summation. @pre for all: 255 times the weight fits 63 bits.
struct ColorMoments {
    std::int64_t weight = 0;
    std::int64_t r = 0;
    std::int64_t g = 0;
    std::int64_t b = 0;

    ColorMoments() = default;
    explicit ColorMoments(const WeightedColor& entry)
        : weight(entry.weight)
        , r(entry.weight * entry.color.r)
        , g(entry.weight * entry.color.g)
        , b(entry.weight * entry.color.b)
    {
    }

    ColorMoments& operator+=(const ColorMoments& other)
    {
        weight += other.weight;
        r += other.r;
        g += other.g;
        b += other.b;
        return *this;
    }
    ColorMoments& operator-=(const ColorMoments& other)
    {
        weight -= other.weight;
        r -= other.r;
        g -= other.g;
        b -= other.b;
        return *this;
    }

    /// By how much the squared errors of these colours are less than the sum of their squares when their mean stands
    /// for them: the squared length of the sum, divided by the weight. @pre there is weight.
    [[nodiscard]] double squaresSaved() const
    {
        const auto red = static_cast<double>(r);
        const auto green = static_cast<double>(g);
        const auto blue = static_cast<double>(b);
        return (red * red + green * green + blue * blue) / static_cast<double>(weight);
    }

    /// Rounded to the nearest levels. @pre there is weight.
    [[nodiscard]] RGBColor mean() const
    {
        const auto rounded = [this](std::int64_t sum) {
            return static_cast<std::uint8_t>((sum + weight / 2) / weight);
        };
        return {rounded(r), rounded(g), rounded(b)};
    }

    friend bool operator==(const ColorMoments&, const ColorMoments&) = default;
};

} // namespace quillbox
