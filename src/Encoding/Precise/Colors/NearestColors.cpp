#include "Encoding/Precise/Colors/NearestColors.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>
#include <utility>

namespace quillbox {
namespace {

static_assert(std::endian::native == std::endian::little, "red is the low byte of a loaded pixel");

constexpr std::uint32_t colorMask = 0xFFFFFF; // of a loaded pixel: all but alpha
constexpr unsigned cacheBits = 14;            // 64 KiB: more would not stay in the nearest caches
constexpr int cellLevels = 16;                // of each channel: 4096 cells

std::size_t cachePlace(std::uint32_t loaded)
{
    return loaded * 2654435769U >> (32 - cacheBits); // multiplicative hashing, as in ColorCounts
}

constexpr std::uint32_t loaded(RGBColor color)
{
    return std::uint32_t{color.r} | std::uint32_t{color.g} << 8U | std::uint32_t{color.b} << 16U;
}

constexpr RGBColor unloaded(std::uint32_t pixel)
{
    return {static_cast<std::uint8_t>(pixel & 255U), static_cast<std::uint8_t>(pixel >> 8U & 255U),
        static_cast<std::uint8_t>(pixel >> 16U & 255U)};
}

std::size_t cellOf(std::uint32_t pixel)
{
    return (pixel >> 4U & 15U) | (pixel >> 8U & 0xF0U) | (pixel >> 12U & 0xF00U);
}

constexpr std::int32_t squared(std::int32_t value)
{
    return value * value;
}

/// A distance and the index it belongs to in one number: the smaller one is nearer, or as near and of lower index.
constexpr std::int32_t candidate(std::int32_t distance, std::int32_t index)
{
    return distance << 8 | index;
}
static_assert(candidate(3 * 255 * 255, 255) > 0, "the largest distance and index fit 31 bits");

/// Squared distances of a level to the nearest and the farthest of the `cellLevels` levels from `first` on.
std::pair<std::int32_t, std::int32_t> fromLevels(std::int32_t level, std::int32_t first)
{
    const std::int32_t last = first + cellLevels - 1;
    const std::int32_t outside = std::max({first - level, level - last, 0});
    return {squared(outside), squared(std::max(level - first, last - level))};
}

} // namespace

NearestColors::NearestColors(std::vector<RGBColor> palette)
    : m_palette(std::move(palette))
    , m_cache(std::size_t{1} << cacheBits, 0)
    , m_cells(4096)
{
    precondition(!m_palette.empty() && m_palette.size() <= 256, "a palette has 1 to 256 colours");
    m_cache[cachePlace(0)] = std::uint32_t{search(0)}
        << 24U; // elsewhere, zero means a colour that is never sought there
}

void NearestColors::findCandidates(Cell& cell, std::uint32_t loaded)
{
    const RGBColor low = unloaded(loaded & 0xF0F0F0U);
    std::array<std::int32_t, 256> nearest{};
    std::int32_t limit = std::numeric_limits<std::int32_t>::max(); // some entry is no farther from any of the colours
    for (std::size_t i = 0; i < m_palette.size(); ++i) {
        const auto [rNear, rFar] = fromLevels(m_palette[i].r, low.r);
        const auto [gNear, gFar] = fromLevels(m_palette[i].g, low.g);
        const auto [bNear, bFar] = fromLevels(m_palette[i].b, low.b);
        nearest[i] = rNear + gNear + bNear;
        limit = std::min(limit, rFar + gFar + bFar);
    }
    cell.begin = static_cast<std::uint32_t>(m_candidates.size());
    for (std::size_t i = 0; i < m_palette.size(); ++i) {
        if (nearest[i] <= limit)
            m_candidates.push_back({nearest[i], m_palette[i], static_cast<std::uint8_t>(i)});
    }
    cell.end = static_cast<std::uint32_t>(m_candidates.size());
    std::sort(m_candidates.begin() + cell.begin, m_candidates.end(), [](const Candidate& a, const Candidate& b) {
        return std::pair(a.fromCell, a.index) < std::pair(b.fromCell, b.index);
    });
}

std::uint8_t NearestColors::search(std::uint32_t loaded)
{
    Cell& cell = m_cells[cellOf(loaded)];
    if (cell.begin == cell.end)
        findCandidates(cell, loaded);
    const RGBColor color = unloaded(loaded);
    std::int32_t best = std::numeric_limits<std::int32_t>::max();
    for (std::uint32_t i = cell.begin; i < cell.end; ++i) {
        const Candidate& entry = m_candidates[i];
        if (candidate(entry.fromCell, 0) > best)
            break;
        const std::int32_t distance
            = squared(entry.color.r - color.r) + squared(entry.color.g - color.g) + squared(entry.color.b - color.b);
        best = std::min(best, candidate(distance, entry.index));
    }
    return static_cast<std::uint8_t>(best & 255);
}

std::uint8_t NearestColors::remembered(std::uint32_t loaded)
{
    std::uint32_t& entry = m_cache[cachePlace(loaded)];
    if ((entry & colorMask) != loaded)
        entry = loaded | std::uint32_t{search(loaded)} << 24U;
    return static_cast<std::uint8_t>(entry >> 24U);
}

std::uint8_t NearestColors::index(RGBColor color)
{
    return remembered(loaded(color));
}

void NearestColors::map(std::span<const std::uint8_t> pixels, std::span<std::uint8_t> indices)
{
    precondition(pixels.size() % 4 == 0 && pixels.size() / 4 == indices.size(), "four bytes per pixel");
    std::uint32_t last = 0;
    std::uint8_t index = remembered(0);
    for (std::size_t i = 0; i < indices.size(); ++i) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, pixels.data() + 4 * i, sizeof pixel);
        pixel &= colorMask;
        if (pixel != last) {
            index = remembered(pixel);
            last = pixel;
        }
        indices[i] = index;
    }
}

} // namespace quillbox
