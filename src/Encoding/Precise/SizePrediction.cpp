#include "Encoding/Precise/SizePrediction.h"

#include "Encoding/Precise/Codes/LZWSearch.h"
#include "Encoding/Precise/Colors/NearestColors.h"
#include "Encoding/Precise/PictureArea.h"
#include "Encoding/Precondition.h"

#include <algorithm>
#include <cstring>
#include <numeric>

namespace quillbox {
namespace {

constexpr std::int64_t stripPixels = 6144;        // about
constexpr std::int64_t sampledPixels = 2'500'000; // at most, about
constexpr std::size_t wholePictures = 4;
constexpr std::int64_t bytesBesideCodes = 20; // a picture's descriptor and control extension

/// What a picture that is shown overwrites, with that of those before it that are not.
struct Step {
    std::size_t picture = 0;
    PictureArea area;
};

std::vector<Step> stepsOf(const DistinctFrames::Recording& recording, const std::vector<bool>& leavesOut)
{
    std::vector<Step> steps;
    PictureArea area;
    for (std::size_t i = 0; i < recording.pictures.size(); ++i) {
        area = area.united(recording.pictures[i].area);
        if (leavesOut[i])
            continue;
        steps.push_back({i, area});
        area = {};
    }
    return steps;
}

/// The steps in the middle of equal shares of all pixels.
std::vector<std::size_t> typicalSteps(const std::vector<Step>& steps, std::int64_t pixelCount)
{
    std::vector<std::size_t> chosen;
    std::int64_t passed = 0;
    for (std::size_t i = 0; i < steps.size() && chosen.size() < wholePictures; ++i) {
        passed += steps[i].area.pixelCount();
        const auto share = static_cast<std::int64_t>(2 * chosen.size() + 1);
        if (passed * std::int64_t{2 * wholePictures} >= share * pixelCount)
            chosen.push_back(i);
    }
    return chosen;
}

using Pixels = std::vector<std::uint32_t>; // of a screen

void apply(const DistinctFrames::Picture& picture, Pixels& screen, std::int64_t screenWidth)
{
    const auto rowBytes = static_cast<std::size_t>(picture.area.width) * sizeof(std::uint32_t);
    std::int64_t row = picture.area.top;
    for (std::int64_t band = 0; band < picture.pixels.bandCount(); ++band) {
        const PixelView pixels = picture.pixels.band(band);
        const std::uint8_t* source = pixels.data();
        for (const std::int64_t end = row + picture.pixels.rowsOfBand(band); row < end; ++row) {
            std::memcpy(screen.data() + row * screenWidth + picture.area.left, source, rowBytes);
            source += rowBytes;
        }
    }
}

Pixels copyOf(const PictureArea& area, const Pixels& screen, std::int64_t screenWidth)
{
    Pixels pixels;
    pixels.reserve(static_cast<std::size_t>(area.pixelCount()));
    for (std::int64_t y = area.top; y < area.top + area.height; ++y) {
        const auto row = screen.begin() + y * screenWidth + area.left;
        pixels.insert(pixels.end(), row, row + area.width);
    }
    return pixels;
}

/// Shows the area's pixels. @return about as many units as its codes are long: they are as many as there are changes of
/// colour along the rows where something changes in time, more or less; and areas of one colour are not for nothing.
std::int64_t update(const PictureArea& area, const Pixels& screen, Pixels& shown, std::int64_t screenWidth)
{
    constexpr std::uint32_t colorMask = 0x00FF'FFFF;
    constexpr std::int64_t flatPixels = 24; // are worth one change
    std::int64_t changes = 0;
    for (std::int64_t y = area.top; y < area.top + area.height; ++y) {
        const std::uint32_t* const after = screen.data() + y * screenWidth + area.left;
        std::uint32_t* const before = shown.data() + y * screenWidth + area.left;
        std::uint32_t inRow = 0;
        for (std::int64_t x = 1; x < area.width; ++x) {
            inRow += static_cast<std::uint32_t>(((after[x] ^ after[x - 1]) & colorMask) != 0)
                & static_cast<std::uint32_t>(((after[x] ^ before[x]) & colorMask) != 0);
        }
        changes += inRow;
        std::memcpy(before, after, static_cast<std::size_t>(area.width) * sizeof(std::uint32_t));
    }
    return changes + area.pixelCount() / flatPixels + 1;
}

std::vector<PictureArea> stripsOf(const PictureArea& area)
{
    const std::int64_t count = std::clamp<std::int64_t>(area.pixelCount() / stripPixels, 1, area.height);
    std::vector<PictureArea> strips;
    for (std::int64_t i = 0; i < count; ++i) {
        const std::int64_t top = area.height * i / count;
        strips.push_back({area.left, area.top + top, area.width, area.height * (i + 1) / count - top});
    }
    return strips;
}

std::span<const std::uint8_t> bytesOf(std::span<const std::uint32_t> pixels)
{
    return {reinterpret_cast<const std::uint8_t*>(pixels.data()), pixels.size_bytes()};
}

/// Codes strips or parts of them, one after another, with one table.
class Coder {
public:
    explicit Coder(const std::vector<RGBColor>& table)
        : m_nearest(table)
    {
    }

    [[nodiscard]] std::int64_t roughBytes(
        std::int64_t width, std::span<const std::uint32_t> before, std::span<const std::uint32_t> after)
    {
        return (m_search.roughBits(mapped(width, before, after)) + 7) / 8;
    }
    [[nodiscard]] std::int64_t bytes(std::int64_t width, std::span<const std::uint32_t> before,
        std::span<const std::uint32_t> after, std::int64_t passes)
    {
        return std::ssize(m_search.best(mapped(width, before, after), {.passes = passes}).data);
    }

private:
    LZWSearch::Picture mapped(
        std::int64_t width, std::span<const std::uint32_t> before, std::span<const std::uint32_t> after)
    {
        m_indices.resize(after.size());
        m_nearest.map(bytesOf(after), m_indices);
        if (before.empty())
            return {.width = width, .indices = m_indices};
        m_freedoms.resize(before.size());
        m_nearest.map(bytesOf(before), m_freedoms);
        for (std::size_t i = 0; i < m_freedoms.size(); ++i)
            m_freedoms[i] = m_freedoms[i] == m_indices[i] ? LZWSearch::unchanged : LZWSearch::changed;
        return {.width = width, .indices = m_indices, .freedoms = m_freedoms};
    }

    NearestColors m_nearest;
    LZWSearch::Search m_search;
    Bytes m_indices;
    Bytes m_freedoms;
};

/// The sum of `bytesOf(coder, item)` over `count` items.
template <typename BytesOf>
std::int64_t summed(
    const std::vector<RGBColor>& table, std::size_t count, Parallelism parallelism, const BytesOf& bytesOfItem)
{
    const auto items = static_cast<std::int64_t>(count);
    const auto workers = static_cast<std::size_t>(workerCount(parallelism, items));
    std::vector<Coder> coders;
    coders.reserve(workers);
    for (std::size_t i = 0; i < workers; ++i)
        coders.emplace_back(table);
    std::vector<std::int64_t> bytes(count);
    parallelFor(parallelism, items, [&](std::int64_t item, int worker) {
        bytes[static_cast<std::size_t>(item)]
            = bytesOfItem(coders[static_cast<std::size_t>(worker)], static_cast<std::size_t>(item));
    });
    return std::accumulate(bytes.begin(), bytes.end(), std::int64_t{0});
}

} // namespace

SizePrediction::SizePrediction(const DistinctFrames::Recording& recording, const std::vector<bool>& leavesOut)
{
    precondition(leavesOut.size() == recording.pictures.size() && !leavesOut.front(),
        "every picture is shown or not, and the first one is");
    const std::vector<Step> steps = stepsOf(recording, leavesOut);
    m_pictureCount = std::ssize(steps);
    for (const Step& step : steps)
        m_pixelCount += step.area.pixelCount();
    const std::vector<std::size_t> typical = typicalSteps(steps, m_pixelCount);
    // A share of the strips, by multiplicative hashing: hits of such a sequence lie evenly.
    const std::int64_t everyNth = 1 + std::max<std::int64_t>(m_pixelCount - 1, 0) / sampledPixels;
    const auto threshold = static_cast<std::uint32_t>(0xFFFF'FFFFLL / everyNth);
    std::uint32_t hash = 0;

    const std::int64_t width = recording.size.width;
    Pixels screen(static_cast<std::size_t>(width * recording.size.height), 0);
    Pixels shown = screen;
    std::size_t next = 0; // picture of the recording
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const Step& step = steps[i];
        for (; next <= step.picture; ++next)
            apply(recording.pictures[next], screen, width);
        const auto strip = [&](const PictureArea& area) -> Strip {
            return {area.width, i == 0 ? Pixels() : copyOf(area, shown, width), copyOf(area, screen, width)};
        };
        if (std::ranges::find(typical, i) != typical.end())
            m_whole.push_back(strip(step.area));
        for (const PictureArea& area : stripsOf(step.area)) {
            const bool isSampled = hash <= threshold;
            hash += 0x9E37'79B1U; // 2^32 ÷ the golden ratio
            if (isSampled)
                m_strips.push_back(strip(area));
            const std::int64_t units = update(area, screen, shown, width);
            m_units += units;
            m_sampledUnits += isSampled ? units : 0;
        }
    }
}

double SizePrediction::roughSize(const std::vector<RGBColor>& table, Parallelism parallelism) const
{
    const std::int64_t bytes = summed(table, m_strips.size(), parallelism, [&](Coder& coder, std::size_t i) {
        return coder.roughBytes(m_strips[i].width, m_strips[i].before, m_strips[i].after);
    });
    return static_cast<double>(bytes) * static_cast<double>(m_units) / static_cast<double>(m_sampledUnits)
        + static_cast<double>(bytesBesideCodes * m_pictureCount);
}

double SizePrediction::correction(
    const std::vector<RGBColor>& table, std::int64_t passes, Parallelism parallelism) const
{
    const std::int64_t rough = summed(table, m_whole.size(), parallelism, [&](Coder& coder, std::size_t i) {
        const Strip& picture = m_whole[i];
        const auto width = static_cast<std::size_t>(picture.width);
        std::int64_t bytes = 0;
        for (const PictureArea& area : stripsOf({0, 0, picture.width, std::ssize(picture.after) / picture.width})) {
            const std::size_t begin = static_cast<std::size_t>(area.top) * width;
            const auto count = static_cast<std::size_t>(area.pixelCount());
            bytes += coder.roughBytes(picture.width,
                picture.before.empty() ? std::span<const std::uint32_t>()
                                       : std::span(picture.before).subspan(begin, count),
                std::span(picture.after).subspan(begin, count));
        }
        return bytes;
    });
    const std::int64_t whole = summed(table, m_whole.size(), parallelism, [&](Coder& coder, std::size_t i) {
        return coder.bytes(m_whole[i].width, m_whole[i].before, m_whole[i].after, passes);
    });
    return rough == 0 ? 1 : static_cast<double>(whole) / static_cast<double>(rough);
}

} // namespace quillbox
