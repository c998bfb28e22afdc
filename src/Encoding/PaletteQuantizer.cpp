#include "Encoding/PaletteQuantizer.h"

#include "Encoding/Multiversion.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <mutex>
#include <numeric>
#include <ranges>
#include <unordered_map>

namespace quillbox {

void ColorHistogram::add(std::uint16_t key, std::int64_t count)
{
    precondition(key < Color15::keyCount && count >= 0, "a histogram counts occurrences of 15-bit colours");
    std::int64_t& total = m_counts[key];
    const bool isNew = total == 0 && count > 0;
    total = checkedAdd(total, count);
    m_size += isNew ? 1 : 0;
}

void ColorHistogram::add(const ColorHistogram& other)
{
    for (int key = 0; key < Color15::keyCount; ++key)
        add(static_cast<std::uint16_t>(key), other.m_counts[static_cast<std::size_t>(key)]);
}

std::vector<ColorHistogram::Entry> ColorHistogram::entries() const
{
    std::vector<Entry> found;
    found.reserve(static_cast<std::size_t>(m_size));
    for (std::size_t key = 0; key < m_counts.size(); ++key) {
        if (m_counts[key] > 0)
            found.push_back({Color15::color(static_cast<std::uint16_t>(key)), m_counts[key]});
    }
    return found;
}

namespace PaletteQuantizer {
namespace {

using Entry = ColorHistogram::Entry;

// Counting.

constexpr std::size_t keysAtOnce = 2048;

QUILLBOX_MULTIVERSION void pixelKeys(const std::uint8_t* pixels, std::size_t count, std::uint16_t* keys)
{
    Color15::keysOf(pixels, count, keys);
}

/// 32-bit counts of one worker. Equal neighbours, which screens are full of, are counted four at a time.
class PartialCounts {
public:
    /// Counts every pixel `times` over. @pre there is room for them.
    void add(const PixelView& bytes, std::uint32_t times)
    {
        const std::size_t pixels = bytes.size() / 4;
        std::array<std::uint16_t, keysAtOnce> keys{};
        for (std::size_t done = 0; done < pixels; done += keysAtOnce) {
            const std::size_t count = std::min(keysAtOnce, pixels - done);
            pixelKeys(bytes.data() + 4 * done, count, keys.data());
            addKeys({keys.data(), count}, times);
        }
        m_counted += static_cast<std::int64_t>(pixels) * times;
    }

    void flushInto(ColorHistogram& total)
    {
        for (int key = 0; key < Color15::keyCount; ++key)
            total.add(static_cast<std::uint16_t>(key), m_counts[static_cast<std::size_t>(key)]);
        std::ranges::fill(m_counts, 0U);
        m_counted = 0;
    }

    [[nodiscard]] bool hasRoomFor(std::int64_t pixels) const { return m_counted + pixels <= maxPixels; }
    static constexpr std::int64_t maxPixels = 0xFFFF'FFFF;

private:
    void addKeys(std::span<const std::uint16_t> keys, std::uint32_t times)
    {
        std::size_t i = 0;
        for (; i + 4 <= keys.size(); i += 4) {
            std::uint64_t four = 0;
            std::memcpy(&four, &keys[i], sizeof four);
            if (four == 0x0001'0001'0001'0001U * keys[i]) {
                m_counts[keys[i]] += 4 * times;
                continue;
            }
            for (std::size_t k = 0; k < 4; ++k)
                m_counts[keys[i + k]] += times;
        }
        for (; i < keys.size(); ++i)
            m_counts[keys[i]] += times;
    }

    std::vector<std::uint32_t> m_counts = std::vector<std::uint32_t>(Color15::keyCount, 0);
    std::int64_t m_counted = 0;
};

/// A band, and how often it is shown.
struct CountedBand {
    const RGBAFrame* frame;
    std::int64_t index;
    std::int64_t times = 0;
};

/// The bands of all frames, those that are shared once.
std::vector<CountedBand> distinctBands(std::span<const RGBAFrame> frames)
{
    std::vector<CountedBand> bands;
    std::unordered_map<const void*, std::size_t> places;
    for (const RGBAFrame& frame : frames) {
        for (std::int64_t index = 0; frame.width() > 0 && index < frame.bandCount(); ++index) {
            const auto [place, isNew] = places.try_emplace(frame.bandIdentity(index), bands.size());
            if (isNew)
                bands.push_back({.frame = &frame, .index = index});
            ++bands[place->second].times;
        }
    }
    return bands;
}

// Median cut.

std::uint8_t channel(RGBColor color, int axis)
{
    return axis == 0 ? color.r : axis == 1 ? color.g : color.b;
}

/// Distinct colours that will share one palette entry: a piece of the list of all entries.
struct Box {
    std::span<Entry> colors;
    RGBColor minimum{255, 255, 255};
    RGBColor maximum{0, 0, 0};
    std::int64_t population = 0;

    explicit Box(std::span<Entry> entries)
        : colors(entries)
    {
        for (const auto& [color, count] : colors) {
            minimum = {std::min(minimum.r, color.r), std::min(minimum.g, color.g), std::min(minimum.b, color.b)};
            maximum = {std::max(maximum.r, color.r), std::max(maximum.g, color.g), std::max(maximum.b, color.b)};
            population = checkedAdd(population, count);
        }
    }

    struct Axis {
        int index = 0; ///< 0 red, 1 green, 2 blue
        int length = 0;
    };

    /// The channel with the widest range; of equal ones red, then green.
    [[nodiscard]] Axis longestAxis() const
    {
        const int red = maximum.r - minimum.r;
        const int green = maximum.g - minimum.g;
        const int blue = maximum.b - minimum.b;
        if (red >= green && red >= blue)
            return {0, red};
        if (green >= blue)
            return {1, green};
        return {2, blue};
    }

    /// The colours' mean weighted by count, each channel rounded down; black for an empty box.
    [[nodiscard]] RGBColor average() const
    {
        if (population <= 0)
            return {};
        const auto mean = [this](int axis) {
            std::int64_t sum = 0;
            for (const auto& [color, count] : colors)
                sum = checkedAdd(sum, checkedMul(count, channel(color, axis)));
            return static_cast<std::uint8_t>(sum / population);
        };
        return {mean(0), mean(1), mean(2)};
    }

    [[nodiscard]] bool canSplit() const { return colors.size() >= 2 && longestAxis().length > 0; }
    [[nodiscard]] std::int64_t score() const { return checkedMul(population, longestAxis().length); }
};

/// Sorts by one channel and keeps the order of equal values: a counting sort over the 32 levels of the grid.
void stableSortByChannel(std::span<Entry> colors, int axis, std::vector<Entry>& scratch)
{
    std::array<std::size_t, 33> starts{};
    const auto level = [axis](const Entry& entry) {
        return std::size_t{channel(entry.color, axis)} >> 3U;
    };
    for (const Entry& entry : colors)
        ++starts[level(entry) + 1];
    std::partial_sum(starts.begin(), starts.end(), starts.begin());
    scratch.assign(colors.begin(), colors.end());
    for (const Entry& entry : scratch)
        colors[starts[level(entry)]++] = entry;
}

/// Cuts at the weighted median of the longest axis; both sides keep at least one colour.
std::pair<Box, Box> split(const Box& box, std::vector<Entry>& scratch)
{
    const std::span<Entry> colors = box.colors;
    stableSortByChannel(colors, box.longestAxis().index, scratch);
    const std::int64_t half = box.population / 2;
    std::int64_t running = 0;
    std::size_t cut = 0;
    do
        running += colors[cut++].count;
    while (running < half && cut < colors.size());
    cut = std::min(cut, colors.size() - 1);
    return {Box(colors.first(cut)), Box(colors.subspan(cut))};
}

std::vector<RGBColor> medianCut(std::vector<Entry> entries, std::size_t limit)
{
    std::vector<Entry> scratch;
    std::vector<Box> boxes{Box(entries)};
    boxes.reserve(limit);
    while (boxes.size() < limit) {
        auto chosen = boxes.end();
        for (auto box = boxes.begin(); box != boxes.end(); ++box) {
            if (box->canSplit() && (chosen == boxes.end() || box->score() > chosen->score()))
                chosen = box;
        }
        if (chosen == boxes.end())
            break;
        auto [first, second] = split(*chosen, scratch);
        *chosen = first;
        boxes.push_back(second);
    }
    std::ranges::stable_sort(boxes, std::ranges::greater{}, &Box::population);
    std::vector<RGBColor> palette;
    palette.reserve(boxes.size());
    std::ranges::transform(boxes, std::back_inserter(palette), &Box::average);
    return palette;
}

} // namespace

struct Counter::Worker {
    PartialCounts counts;
};

Counter::Counter(int workers)
    : m_workers(static_cast<std::size_t>(workers))
{
}
Counter::~Counter() = default;

void Counter::add(const RGBAFrame& frame, int worker)
{
    for (std::int64_t index = 0; frame.width() > 0 && index < frame.bandCount(); ++index)
        add(frame, index, 1, worker);
}

void Counter::add(const RGBAFrame& frame, std::int64_t index, std::int64_t times, int worker)
{
    PartialCounts& counts = m_workers[static_cast<std::size_t>(worker)].counts;
    const std::int64_t pixels = frame.width() * frame.rowsOfBand(index);
    const PixelView band = frame.band(index);
    while (times > 0) {
        const std::int64_t atOnce = std::min(times, PartialCounts::maxPixels / pixels);
        if (!counts.hasRoomFor(atOnce * pixels)) {
            const std::scoped_lock lock(m_mutex);
            counts.flushInto(m_total);
        }
        counts.add(band, static_cast<std::uint32_t>(atOnce));
        times -= atOnce;
    }
}

ColorHistogram Counter::total()
{
    for (Worker& worker : m_workers)
        worker.counts.flushInto(m_total);
    return m_total;
}

ColorHistogram histogram(std::span<const RGBAFrame> frames, Parallelism parallelism)
{
    const std::vector<CountedBand> bands = distinctBands(frames);
    Counter counter(workerCount(parallelism, std::ssize(bands)));
    parallelFor(parallelism, std::ssize(bands), [&](std::int64_t item, int worker) {
        const auto [frame, index, times] = bands[static_cast<std::size_t>(item)];
        counter.add(*frame, index, times, worker);
    });
    return counter.total();
}

std::vector<RGBColor> quantize(const ColorHistogram& histogram, std::int64_t maxColors)
{
    const auto limit = static_cast<std::size_t>(std::clamp<std::int64_t>(maxColors, 1, 256));
    std::vector<Entry> entries = histogram.entries();
    if (entries.empty())
        return {RGBColor(0, 0, 0)};
    if (entries.size() > limit)
        return medianCut(std::move(entries), limit);

    std::ranges::stable_sort(entries, std::ranges::greater{}, &Entry::count);
    std::vector<RGBColor> palette;
    palette.reserve(entries.size());
    std::ranges::transform(entries, std::back_inserter(palette), &Entry::color);
    return palette;
}

} // namespace PaletteQuantizer
} // namespace quillbox
