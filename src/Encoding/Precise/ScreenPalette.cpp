#include "Encoding/Precise/ScreenPalette.h"

#include "Encoding/Precise/NearestColors.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quillbox::ScreenPalette {
namespace {

constexpr int fullRounds = 12;
constexpr int quickRounds = 3;

/// Sums over some colours, each times its weight.
struct Moments {
    std::int64_t weight = 0;
    std::int64_t r = 0;
    std::int64_t g = 0;
    std::int64_t b = 0;

    void add(const WeightedColor& entry)
    {
        weight += entry.weight;
        r += entry.weight * entry.color.r;
        g += entry.weight * entry.color.g;
        b += entry.weight * entry.color.b;
    }
    friend Moments operator-(const Moments& a, const Moments& b)
    {
        return {a.weight - b.weight, a.r - b.r, a.g - b.g, a.b - b.b};
    }

    /// The squared length of the sum, divided by the weight: what a cluster saves of the sum of squares.
    [[nodiscard]] double saved() const
    {
        if (weight == 0)
            return 0;
        const auto red = static_cast<double>(r);
        const auto green = static_cast<double>(g);
        const auto blue = static_cast<double>(b);
        return (red * red + green * green + blue * blue) / static_cast<double>(weight);
    }
    [[nodiscard]] RGBColor mean() const
    {
        const auto rounded = [this](std::int64_t sum) {
            return static_cast<std::uint8_t>((sum + weight / 2) / weight);
        };
        return {rounded(r), rounded(g), rounded(b)};
    }
};

/// Where colours lie along red, green, blue and luma.
constexpr std::array<std::array<int, 3>, 4> directions{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {2, 5, 1}}};

int along(RGBColor color, const std::array<int, 3>& direction)
{
    return direction[0] * color.r + direction[1] * color.g + direction[2] * color.b;
}

/// Some of the colours, and the best way to part them.
struct Box {
    std::vector<WeightedColor> colors;
    double gain = 0; ///< how much smaller the squared error is when the box is parted
    std::size_t direction = 0;
    int lastBelow = 0; ///< the place along `direction` up to which colours go to the first part

    explicit Box(std::vector<WeightedColor> entries)
        : colors(std::move(entries))
    {
        Moments all;
        for (const WeightedColor& entry : colors)
            all.add(entry);
        for (std::size_t i = 0; i < directions.size(); ++i) {
            const auto place = [i](const WeightedColor& entry) {
                return along(entry.color, directions[i]);
            };
            std::ranges::stable_sort(colors, {}, place);
            Moments below;
            for (std::size_t k = 0; k + 1 < colors.size(); ++k) {
                below.add(colors[k]);
                if (place(colors[k]) == place(colors[k + 1]))
                    continue;
                if (const double here = below.saved() + (all - below).saved() - all.saved(); here > gain) {
                    gain = here;
                    direction = i;
                    lastBelow = place(colors[k]);
                }
            }
        }
    }
};

std::vector<RGBColor> split(std::span<const WeightedColor> colors, std::size_t maxColors)
{
    std::vector<Box> boxes{Box({colors.begin(), colors.end()})};
    while (boxes.size() < maxColors) {
        const auto widest = std::ranges::max_element(boxes, {}, &Box::gain);
        if (widest->gain <= 0)
            break;
        std::vector<WeightedColor> below = std::move(widest->colors);
        const auto cut = std::stable_partition(below.begin(), below.end(), [&widest](const WeightedColor& entry) {
            return along(entry.color, directions[widest->direction]) <= widest->lastBelow;
        });
        std::vector<WeightedColor> above(cut, below.end());
        below.erase(cut, below.end());
        *widest = Box(std::move(below));
        boxes.emplace_back(std::move(above));
    }
    std::vector<RGBColor> means;
    for (const Box& box : boxes) {
        Moments all;
        for (const WeightedColor& entry : box.colors)
            all.add(entry);
        means.push_back(all.mean());
    }
    return means;
}

/// What the palette's entries stand for.
struct Cluster {
    Moments moments;
    WeightedColor heaviest;
};

std::vector<Cluster> clustersOf(std::span<const WeightedColor> colors, const std::vector<RGBColor>& palette)
{
    NearestColors nearest(palette);
    std::vector<Cluster> clusters(palette.size());
    for (const WeightedColor& entry : colors) {
        Cluster& cluster = clusters[nearest.index(entry.color)];
        cluster.moments.add(entry);
        if (entry.weight > cluster.heaviest.weight)
            cluster.heaviest = entry;
    }
    return clusters;
}

std::vector<RGBColor> chosen(std::span<const WeightedColor> colors, std::int64_t maxColors, int rounds)
{
    precondition(maxColors >= 1 && maxColors <= maxColorCount, "a palette has 1 to 256 colours");
    if (colors.empty())
        return {RGBColor(0, 0, 0)};
    std::vector<WeightedColor> entries;
    if (std::ssize(colors) <= maxColors) {
        entries.assign(colors.begin(), colors.end());
    } else {
        std::vector<RGBColor> palette = split(colors, static_cast<std::size_t>(maxColors));
        for (int round = 0; round <= rounds; ++round) {
            entries.clear();
            for (const Cluster& cluster : clustersOf(colors, palette)) {
                if (cluster.moments.weight == 0)
                    continue;
                const bool flat = round == rounds && 2 * cluster.heaviest.weight > cluster.moments.weight;
                entries.push_back({flat ? cluster.heaviest.color : cluster.moments.mean(), cluster.moments.weight});
            }
            palette.clear();
            for (const WeightedColor& entry : entries)
                palette.push_back(entry.color);
        }
    }
    std::ranges::sort(entries, [](const WeightedColor& a, const WeightedColor& b) {
        return a.weight != b.weight ? a.weight > b.weight : Color24::key(a.color) < Color24::key(b.color);
    });
    std::vector<RGBColor> palette;
    for (const WeightedColor& entry : entries) {
        if (std::ranges::find(palette, entry.color) == palette.end())
            palette.push_back(entry.color);
    }
    return palette;
}

} // namespace

std::vector<RGBColor> make(
    std::span<const WeightedColor> colors, std::int64_t maxColors, [[maybe_unused]] Parallelism parallelism)
{
    return chosen(colors, maxColors, fullRounds);
}

std::vector<RGBColor> makeQuickly(std::span<const WeightedColor> colors, std::int64_t maxColors)
{
    return chosen(colors, maxColors, quickRounds);
}

} // namespace quillbox::ScreenPalette
