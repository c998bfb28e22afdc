#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace quillbox {

/// Numbers of colours that are tried, each about an eighth larger than the one before. Stateless.
namespace ColorSteps {

inline constexpr std::array<std::int64_t, 31> all{8, 9, 10, 11, 13, 14, 16, 18, 20, 23, 25, 29, 32, 36, 40, 45, 51, 57,
    64, 72, 81, 91, 102, 114, 128, 144, 161, 181, 203, 228, 256};

/// The last step that has at most so many colours, or the first one.
[[nodiscard]] constexpr std::int64_t of(std::int64_t colors)
{
    return std::max<std::int64_t>(std::ranges::upper_bound(all, colors) - all.begin() - 1, 0);
}

} // namespace ColorSteps

/// How a file's size grows with the number of colours, as two sizes tell: by as much with every step, and evenly in
/// between. A value.
class SizeByColors {
public:
    /// @param sizeOfFew   bytes with `few` colours
    /// @param sizeOfMany  bytes with `many`
    SizeByColors(std::int64_t few, double sizeOfFew, std::int64_t many, double sizeOfMany)
        : m_few(ColorSteps::of(few))
        , m_size(sizeOfFew)
    {
        const std::int64_t steps = ColorSteps::of(many) - m_few;
        if (steps > 0 && sizeOfMany > sizeOfFew)
            m_growth = (sizeOfMany - sizeOfFew) / static_cast<double>(steps);
    }

    /// The most colours whose file is no larger; the fewest of all steps if all are.
    [[nodiscard]] std::int64_t colorsFor(double size) const
    {
        const auto sizeOf = [this](std::size_t step) {
            return m_size + m_growth * static_cast<double>(static_cast<std::int64_t>(step) - m_few);
        };
        std::size_t step = 0;
        while (step + 1 < ColorSteps::all.size() && sizeOf(step + 1) <= size)
            ++step;
        const std::int64_t colors = ColorSteps::all[step];
        if (step + 1 == ColorSteps::all.size() || sizeOf(step) > size)
            return colors;
        const double share = (size - sizeOf(step)) / m_growth;
        return colors + static_cast<std::int64_t>(share * static_cast<double>(ColorSteps::all[step + 1] - colors));
    }

private:
    std::int64_t m_few; ///< a step
    double m_size;
    double m_growth = 0; ///< with each step
};

} // namespace quillbox
