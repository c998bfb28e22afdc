#include "reference/PaletteQuantizer.h"

#include <algorithm>
#include <utility>

namespace quillbox::reference {

namespace {

struct Weighted {
    RGBColor color;
    std::int64_t count = 0;
};

std::uint8_t channel(RGBColor color, int axis)
{
    return axis == 0 ? color.r : axis == 1 ? color.g : color.b;
}

struct Axis {
    int axis = 0;
    int length = 0;
};

struct Box {
    std::vector<Weighted> colors;
    int rMin = 255;
    int rMax = 0;
    int gMin = 255;
    int gMax = 0;
    int bMin = 255;
    int bMax = 0;
    std::int64_t population = 0;

    explicit Box(std::vector<Weighted> entries)
        : colors(std::move(entries))
    {
        for (const auto& [color, count] : colors) {
            rMin = std::min<int>(rMin, color.r);
            rMax = std::max<int>(rMax, color.r);
            gMin = std::min<int>(gMin, color.g);
            gMax = std::max<int>(gMax, color.g);
            bMin = std::min<int>(bMin, color.b);
            bMax = std::max<int>(bMax, color.b);
            population = checkedAdd(population, count);
        }
    }

    [[nodiscard]] Axis longestAxis() const
    {
        const int red = rMax - rMin;
        const int green = gMax - gMin;
        const int blue = bMax - bMin;
        if (red >= green && red >= blue)
            return {0, red};
        if (green >= blue)
            return {1, green};
        return {2, blue};
    }

    [[nodiscard]] RGBColor average() const
    {
        if (population <= 0)
            return {0, 0, 0};
        std::int64_t red = 0;
        std::int64_t green = 0;
        std::int64_t blue = 0;
        for (const auto& [color, count] : colors) {
            red = checkedAdd(red, checkedMul(count, color.r));
            green = checkedAdd(green, checkedMul(count, color.g));
            blue = checkedAdd(blue, checkedMul(count, color.b));
        }
        return {static_cast<std::uint8_t>(red / population), static_cast<std::uint8_t>(green / population),
            static_cast<std::uint8_t>(blue / population)};
    }
};

std::pair<Box, Box> split(const Box& box)
{
    const int axis = box.longestAxis().axis;
    std::vector<Weighted> sorted = box.colors;
    std::stable_sort(sorted.begin(), sorted.end(),
        [axis](const Weighted& a, const Weighted& b) { return channel(a.color, axis) < channel(b.color, axis); });
    const std::int64_t half = box.population / 2;
    const std::int64_t entryCount = std::ssize(sorted);
    std::int64_t cut = entryCount / 2;
    std::int64_t sum = 0;
    for (std::int64_t i = 0; i < entryCount; ++i) {
        sum += sorted[static_cast<std::size_t>(i)].count;
        if (sum >= half) {
            cut = std::clamp<std::int64_t>(i + 1, 1, entryCount - 1);
            break;
        }
    }
    std::vector<Weighted> first(sorted.begin(), sorted.begin() + cut);
    std::vector<Weighted> second(sorted.begin() + cut, sorted.end());
    if (first.empty())
        first.push_back(sorted.front());
    if (second.empty())
        second.push_back(sorted.back());
    return {Box(std::move(first)), Box(std::move(second))};
}

std::uint8_t reduced(std::uint8_t value)
{
    return static_cast<std::uint8_t>((value & 0xF8U) | (value >> 5U));
}

} // namespace

RGBColor reduceTo15Bit(RGBColor color)
{
    return {reduced(color.r), reduced(color.g), reduced(color.b)};
}

int keyOf(RGBColor color)
{
    return color.r / 8 * 1024 + color.g / 8 * 32 + color.b / 8;
}

RGBColor gridColor(int key)
{
    const auto widened = [](int level) {
        return static_cast<std::uint8_t>(level * 8 + level / 4);
    };
    return {widened(key / 1024), widened(key / 32 % 32), widened(key % 32)};
}

Histogram histogram(std::span<const RGBAFrame> frames)
{
    Histogram counts;
    for (const RGBAFrame& frame : frames) {
        for (std::size_t offset = 0; offset + 3 < frame.pixels().size(); offset += 4) {
            const PixelView pixels = frame.pixels();
            counts[keyOf({pixels[offset], pixels[offset + 1], pixels[offset + 2]})] += 1;
        }
    }
    return counts;
}

std::vector<RGBColor> quantize(const Histogram& histogram, std::int64_t maxColors)
{
    const std::int64_t limit = std::clamp<std::int64_t>(maxColors, 1, 256);
    std::vector<Weighted> entries;
    for (const auto& [key, count] : histogram)
        entries.push_back({gridColor(key), count});
    if (entries.empty())
        return {RGBColor(0, 0, 0)};

    std::vector<RGBColor> palette;
    if (std::ssize(entries) <= limit) {
        std::stable_sort(
            entries.begin(), entries.end(), [](const Weighted& a, const Weighted& b) { return a.count > b.count; });
        for (const Weighted& entry : entries)
            palette.push_back(entry.color);
        return palette;
    }

    std::vector<Box> boxes{Box(entries)};
    while (std::ssize(boxes) < limit) {
        std::ptrdiff_t chosen = -1;
        std::int64_t bestScore = 0;
        for (std::ptrdiff_t i = 0; i < std::ssize(boxes); ++i) {
            const Box& box = boxes[static_cast<std::size_t>(i)];
            if (box.colors.size() < 2 || box.longestAxis().length <= 0)
                continue;
            const std::int64_t score = checkedMul(box.population, box.longestAxis().length);
            if (chosen < 0 || score > bestScore) {
                chosen = i;
                bestScore = score;
            }
        }
        if (chosen < 0)
            break;
        auto halves = split(boxes[static_cast<std::size_t>(chosen)]);
        boxes[static_cast<std::size_t>(chosen)] = halves.first;
        boxes.push_back(halves.second);
    }
    std::stable_sort(
        boxes.begin(), boxes.end(), [](const Box& a, const Box& b) { return a.population > b.population; });
    for (const Box& box : boxes)
        palette.push_back(box.average());
    return palette;
}

} // namespace quillbox::reference
