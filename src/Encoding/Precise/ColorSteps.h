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
        : m_few(placeOf(few))
        , m_size(sizeOfFew)
    {
        const double steps = placeOf(many) - m_few;
        if (steps > 0 && sizeOfMany > sizeOfFew)
            m_growth = (sizeOfMany - sizeOfFew) / steps;
    }

    /// The most colours whose file is no larger; the fewest of all steps if all are.
    [[nodiscard]] std::int64_t colorsFor(double size) const
    {
        constexpr auto last = static_cast<double>(ColorSteps::all.size() - 1);
        constexpr double rounding = 1e-9;
        const double wanted = m_growth > 0 ? m_few + (size - m_size) / m_growth : (size >= m_size ? last : 0);
        const double place = std::clamp(wanted + rounding, 0.0, last);
        const auto step = static_cast<std::size_t>(place);
        const std::int64_t colors = ColorSteps::all[step];
        if (step + 1 == ColorSteps::all.size())
            return colors;
        const double share = place - static_cast<double>(step);
        return colors + static_cast<std::int64_t>(share * static_cast<double>(ColorSteps::all[step + 1] - colors));
    }

private:
    /// The step that so many colours are, or the place between two of them.
    static double placeOf(std::int64_t colors)
    {
        const auto step = static_cast<std::size_t>(ColorSteps::of(colors));
        if (step + 1 == ColorSteps::all.size())
            return static_cast<double>(step);
        const std::int64_t more = std::max<std::int64_t>(colors - ColorSteps::all[step], 0);
        return static_cast<double>(step)
            + static_cast<double>(more) / static_cast<double>(ColorSteps::all[step + 1] - ColorSteps::all[step]);
    }

    double m_few; ///< a place
    double m_size;
    double m_growth = 0; ///< with each step
};

} // namespace quillbox
