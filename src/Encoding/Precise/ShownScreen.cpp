#include "Encoding/Precise/ShownScreen.h"

#include "Encoding/Precondition.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace quillbox {
namespace {

constexpr std::uint32_t colorMask = 0x00FF'FFFF;
constexpr std::uint32_t nothing = 0xFF00'0000; // no colour equals it, so that the first picture is opaque

std::uint32_t packed(RGBColor color)
{
    return std::uint32_t{color.r} | std::uint32_t{color.g} << 8U | std::uint32_t{color.b} << 16U;
}

std::int64_t squaredDifference(std::uint32_t a, std::uint32_t b)
{
    const auto difference = [a, b](unsigned shift) {
        return static_cast<std::int32_t>(a >> shift & 255U) - static_cast<std::int32_t>(b >> shift & 255U);
    };
    const std::int32_t dr = difference(0);
    const std::int32_t dg = difference(8);
    const std::int32_t db = difference(16);
    return dr * dr + dg * dg + db * db;
}

using PackedTable = std::array<std::uint32_t, 256>;

PackedTable packedTable(std::span<const RGBColor> table)
{
    PackedTable colors{};
    std::ranges::transform(table, colors.begin(), packed);
    return colors;
}

} // namespace

ShownScreen::ShownScreen(PixelSize size)
    : m_size(size)
    , m_recorded(static_cast<std::size_t>(size.width * size.height), 0)
    , m_shown(m_recorded.size(), nothing)
{
}

void ShownScreen::record(const DistinctFrames::Picture& picture)
{
    const PictureArea& area = picture.area;
    std::int64_t row = area.top;
    for (std::int64_t band = 0; band < picture.pixels.bandCount(); ++band) {
        const PixelView pixels = picture.pixels.band(band);
        const std::uint8_t* source = pixels.data();
        for (const std::int64_t end = row + picture.pixels.rowsOfBand(band); row < end; ++row) {
            const auto first = static_cast<std::size_t>(row * m_size.width + area.left);
            for (std::size_t i = first; i < first + static_cast<std::size_t>(area.width); ++i) {
                std::uint32_t pixel = 0;
                std::memcpy(&pixel, source, sizeof pixel);
                source += sizeof pixel;
                if (pixel <= colorMask) // it has not changed
                    continue;
                m_error += squaredDifference(pixel, m_shown[i]) - squaredDifference(m_recorded[i], m_shown[i]);
                m_recorded[i] = pixel;
            }
        }
    }
    m_changedArea = m_changedArea.united(area);
}

ShownScreen::Mapping ShownScreen::mapping(NearestColors& table) const
{
    const PackedTable colors = packedTable(table.palette());
    const auto count = static_cast<std::size_t>(m_changedArea.pixelCount());
    const auto width = static_cast<std::size_t>(m_changedArea.width);
    Mapping result{.indices = Bytes(count), .freedoms = Bytes(count)};
    std::array<bool, 256> isTaken{};
    bool hasKept = false;
    std::size_t output = 0;
    for (std::int64_t y = m_changedArea.top; y < m_changedArea.top + m_changedArea.height; ++y) {
        const auto first = static_cast<std::size_t>(y * m_size.width + m_changedArea.left);
        table.map({reinterpret_cast<const std::uint8_t*>(m_recorded.data() + first), width * sizeof(std::uint32_t)},
            std::span(result.indices).subspan(output, width));
        for (std::size_t i = first; i < first + width; ++i, ++output) {
            const std::uint8_t index = result.indices[output];
            const std::uint32_t color = colors[index];
            const bool isChanged = m_recorded[i] > colorMask;
            LZWSearch::Freedom freedom = isChanged ? LZWSearch::changed : LZWSearch::kept;
            if (m_shown[i] == color)
                freedom = LZWSearch::unchanged;
            result.freedoms[output] = freedom;
            if (freedom == LZWSearch::changed) {
                isTaken[index] = true;
                ++result.writtenPixels;
            }
            hasKept = hasKept || freedom == LZWSearch::kept;
            if (isChanged)
                result.error += squaredDifference(m_recorded[i], color);
        }
    }
    result.hasRoomForTransparency = std::ranges::find(isTaken, false) != isTaken.end();
    if (hasKept && !result.hasRoomForTransparency)
        std::ranges::replace(result.freedoms, std::uint8_t{LZWSearch::kept}, std::uint8_t{LZWSearch::changed});
    return result;
}

ColorCounts ShownScreen::changedColors() const
{
    ColorCounts counts;
    std::uint32_t color = 0;
    std::int64_t run = 0;
    const auto flush = [&] {
        if (run > 0)
            counts.add(RGBColor(static_cast<std::uint8_t>(color), static_cast<std::uint8_t>(color >> 8U),
                           static_cast<std::uint8_t>(color >> 16U)),
                run);
        run = 0;
    };
    for (std::int64_t y = m_changedArea.top; y < m_changedArea.top + m_changedArea.height; ++y) {
        const auto first = static_cast<std::size_t>(y * m_size.width + m_changedArea.left);
        for (std::size_t i = first; i < first + static_cast<std::size_t>(m_changedArea.width); ++i) {
            if (m_recorded[i] <= colorMask)
                continue;
            if (m_recorded[i] != color) {
                flush();
                color = m_recorded[i];
            }
            ++run;
        }
    }
    flush();
    return counts;
}

void ShownScreen::show(const Mapping& mapping, std::span<const RGBColor> table)
{
    precondition(std::ssize(mapping.indices) == m_changedArea.pixelCount(), "the mapping is of the changed area");
    const PackedTable colors = packedTable(table);
    std::size_t input = 0;
    for (std::int64_t y = m_changedArea.top; y < m_changedArea.top + m_changedArea.height; ++y) {
        const auto first = static_cast<std::size_t>(y * m_size.width + m_changedArea.left);
        for (std::size_t i = first; i < first + static_cast<std::size_t>(m_changedArea.width); ++i, ++input) {
            if (mapping.freedoms[input] == LZWSearch::changed) {
                const std::uint32_t color = colors[mapping.indices[input]];
                m_error += squaredDifference(m_recorded[i], color) - squaredDifference(m_recorded[i], m_shown[i]);
                m_shown[i] = color;
            }
            m_recorded[i] &= colorMask;
        }
    }
    m_changedArea = {};
}

} // namespace quillbox
