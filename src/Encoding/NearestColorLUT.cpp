#include "Encoding/NearestColorLUT.h"

#include "Encoding/Multiversion.h"

#include <limits>
#include <utility>

namespace quillbox {
namespace {

constexpr int levels = 32; // of a channel in the 15-bit grid

constexpr std::int32_t squared(std::int32_t value)
{
    return value * value;
}

/// A distance and the palette index it belongs to in one number, so that the smaller number is the nearer colour
/// and, of equally near ones, the lower index.
constexpr std::int32_t candidate(std::int32_t distance, std::int32_t index)
{
    return distance << 8 | index;
}
static_assert(candidate(3 * 255 * 255, 255) > 0, "the largest distance and index fit 31 bits");

/// Nearest index for the 32 grid colours that share red and green.
/// @param rowCandidates   One a colour: its distance in red and green, with its index.
/// @param blueDistances   One row of 32 a colour: its squared distance in blue, shifted like a candidate's distance.
QUILLBOX_MULTIVERSION void nearestInRow(
    const std::int32_t* rowCandidates, const std::int32_t* blueDistances, std::size_t colors, std::uint8_t* nearest)
{
    std::int32_t best[levels];
    for (std::int32_t& value : best)
        value = std::numeric_limits<std::int32_t>::max();
    for (std::size_t color = 0; color < colors; ++color) {
        for (std::size_t blue = 0; blue < levels; ++blue) {
            const std::int32_t value = rowCandidates[color] + blueDistances[levels * color + blue];
            best[blue] = value < best[blue] ? value : best[blue];
        }
    }
    for (std::size_t blue = 0; blue < levels; ++blue)
        nearest[blue] = static_cast<std::uint8_t>(best[blue] & 255);
}

} // namespace

NearestColorLUT::NearestColorLUT(std::vector<RGBColor> palette)
    : m_palette(std::move(palette))
{
    precondition(m_palette.size() <= 256, "a palette has at most 256 colours");
    m_table.fill(0);
    if (m_palette.empty())
        return;

    // The distance is a sum over the channels, so red, green and blue parts are computed once a level, not once a key.
    const std::size_t colors = m_palette.size();
    const auto grid = [](int level) {
        return std::int32_t{Color15::color(static_cast<std::uint16_t>(level)).b};
    };
    std::vector<std::int32_t> blueDistances(colors * levels);
    for (std::size_t color = 0; color < colors; ++color) {
        for (int blue = 0; blue < levels; ++blue)
            blueDistances[color * levels + static_cast<std::size_t>(blue)]
                = candidate(squared(m_palette[color].b - grid(blue)), 0);
    }
    std::vector<std::int32_t> rowCandidates(colors);
    for (int red = 0; red < levels; ++red) {
        for (int green = 0; green < levels; ++green) {
            for (std::size_t color = 0; color < colors; ++color) {
                const std::int32_t distance
                    = squared(m_palette[color].r - grid(red)) + squared(m_palette[color].g - grid(green));
                rowCandidates[color] = candidate(distance, static_cast<std::int32_t>(color));
            }
            std::uint8_t* row = m_table.data() + static_cast<std::ptrdiff_t>(red << 10 | green << 5);
            nearestInRow(rowCandidates.data(), blueDistances.data(), colors, row);
        }
    }
}

} // namespace quillbox
