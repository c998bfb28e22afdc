#include "Encoding/Precise/ShownScreen.h"

#include "Encoding/Multiversion.h"
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

constexpr std::size_t blockSize = 4096; // pixels whose squared differences sum up to less than 2^31

std::int32_t squaredDifference(std::uint32_t a, std::uint32_t b)
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

/// What has changed of `count` pixels, at most `blockSize`, is recorded. @return how much more they differ from `shown`
/// @param changes  Four bytes a pixel.
QUILLBOX_MULTIVERSION std::int32_t recordBlock(
    const std::uint8_t* changes, const std::uint32_t* shown, std::uint32_t* recorded, std::size_t count)
{
    std::int32_t more = 0;
    for (std::size_t i = 0; i < count; ++i) {
        std::uint32_t change = 0;
        std::memcpy(&change, changes + i * sizeof change, sizeof change);
        const std::uint32_t after = change > colorMask ? change : recorded[i];
        more += squaredDifference(after, shown[i]) - squaredDifference(recorded[i], shown[i]);
        recorded[i] = after;
    }
    return more;
}

struct MappedBlock {
    std::int32_t error = 0; ///< of pixels that have changed
    std::uint32_t freedoms = 0;
};

/// How each of `count` pixels, at most `blockSize`, may be written. `freedoms` has a bit for each that occurs.
QUILLBOX_MULTIVERSION MappedBlock mapBlock(const std::uint32_t* recorded, const std::uint32_t* shown,
    const std::uint8_t* indices, const std::uint32_t* colors, std::uint8_t* freedoms, std::size_t count)
{
    MappedBlock block;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t color = colors[indices[i]];
        const bool isChanged = recorded[i] > colorMask;
        const std::uint32_t unlessShown = isChanged ? LZWSearch::changed : LZWSearch::kept;
        const std::uint32_t freedom = shown[i] == color ? std::uint32_t{LZWSearch::unchanged} : unlessShown;
        freedoms[i] = static_cast<std::uint8_t>(freedom);
        block.freedoms |= 1U << freedom;
        block.error += isChanged ? squaredDifference(recorded[i], color) : 0;
    }
    return block;
}

/// Of `count` pixels, at most `blockSize`, those that are written are shown, and none counts as changed any more.
/// @return how much more what was recorded differs from `shown`
QUILLBOX_MULTIVERSION std::int32_t showBlock(const std::uint8_t* indices, const std::uint8_t* freedoms,
    const std::uint32_t* colors, std::uint32_t* recorded, std::uint32_t* shown, std::size_t count)
{
    std::int32_t more = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t color = freedoms[i] == LZWSearch::changed ? colors[indices[i]] : shown[i];
        more += squaredDifference(recorded[i], color) - squaredDifference(recorded[i], shown[i]);
        shown[i] = color;
        recorded[i] &= colorMask;
    }
    return more;
}

/// Whether not all 256 indices are those of written pixels.
bool hasRoomForTransparency(const ShownScreen::Mapping& mapping)
{
    std::array<bool, 256> isTaken{};
    for (std::size_t i = 0; i < mapping.indices.size(); ++i) {
        if (mapping.freedoms[i] == LZWSearch::changed)
            isTaken[mapping.indices[i]] = true;
    }
    return std::ranges::find(isTaken, false) != isTaken.end();
}

/// Calls `work(begin, count)` for parts of `count` pixels.
template <typename Work> void inBlocks(std::size_t count, const Work& work)
{
    for (std::size_t begin = 0; begin < count; begin += blockSize)
        work(begin, std::min(blockSize, count - begin));
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
            inBlocks(static_cast<std::size_t>(area.width), [&](std::size_t begin, std::size_t count) {
                m_error += recordBlock(source, &m_shown[first + begin], &m_recorded[first + begin], count);
                source += count * sizeof(std::uint32_t);
            });
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
    std::uint32_t freedoms = 0;
    std::size_t output = 0;
    for (std::int64_t y = m_changedArea.top; y < m_changedArea.top + m_changedArea.height; ++y) {
        const auto first = static_cast<std::size_t>(y * m_size.width + m_changedArea.left);
        table.map({reinterpret_cast<const std::uint8_t*>(m_recorded.data() + first), width * sizeof(std::uint32_t)},
            std::span(result.indices).subspan(output, width));
        inBlocks(width, [&](std::size_t begin, std::size_t pixels) {
            const MappedBlock block = mapBlock(&m_recorded[first + begin], &m_shown[first + begin],
                &result.indices[output + begin], colors.data(), &result.freedoms[output + begin], pixels);
            result.error += block.error;
            freedoms |= block.freedoms;
        });
        output += width;
    }
    const bool hasKept = (freedoms >> LZWSearch::kept & 1U) != 0;
    if (hasKept && !hasRoomForTransparency(result))
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
    const auto width = static_cast<std::size_t>(m_changedArea.width);
    std::size_t input = 0;
    for (std::int64_t y = m_changedArea.top; y < m_changedArea.top + m_changedArea.height; ++y) {
        const auto first = static_cast<std::size_t>(y * m_size.width + m_changedArea.left);
        inBlocks(width, [&](std::size_t begin, std::size_t pixels) {
            m_error += showBlock(&mapping.indices[input + begin], &mapping.freedoms[input + begin], colors.data(),
                &m_recorded[first + begin], &m_shown[first + begin], pixels);
        });
        input += width;
    }
    m_changedArea = {};
}

} // namespace quillbox
