#include "Encoding/Precise/Colors/ScreenPalette.h"

#include "Encoding/Precise/Colors/ColorClustering.h"
#include "Encoding/Precise/Colors/KMeans.h"
#include "Encoding/Precise/Colors/NearestColors.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <limits>

namespace quillbox::ScreenPalette {
namespace {

/// How much work a palette is worth.
struct Effort {
    std::size_t mostMerged; ///< points from which clusters are merged; with twice as many, palettes were no better
    int rounds;             ///< of k-means, if it is not done before
    std::size_t trials;     ///< of exchanging colours
};
constexpr Effort full{.mostMerged = 1024, .rounds = 40, .trials = 48};
constexpr Effort quick{.mostMerged = 384, .rounds = 4, .trials = 0};

/// Points that k-means looks at. More of them are put together in cells, where they differ too little to matter.
constexpr std::size_t mostPoints = 32768;

/// With more points than these, exchanges are tried less often: the time stays the same.
constexpr std::size_t wellTriedPoints = 6144;

/// From here on, a colour is another one to every eye: 80 levels. Palettes of 64 colours and more leave
/// none so far behind unless it is rare.
constexpr std::int64_t outlierDistanceSquared = 80 * 80;

/// A palette entry and what it stands for.
struct Cluster {
    ColorMoments sum;
    WeightedColor heaviest{};
    RGBColor color{};
};

std::vector<ColorMoments> pointsOf(std::span<const WeightedColor> colors)
{
    if (colors.size() <= mostPoints)
        return {colors.begin(), colors.end()};
    std::vector<ColorMoments> cells = ColorClustering::cells(colors, 2);
    return cells.size() <= mostPoints ? cells : ColorClustering::cells(colors, 3); // at most 32768 of those
}

RGBColor rounded(const KMeans::Center& center)
{
    const auto level = [](float value) {
        return static_cast<std::uint8_t>(std::lround(value));
    };
    return {level(center[0]), level(center[1]), level(center[2])};
}

void removeRepeated(std::vector<RGBColor>& palette)
{
    std::ranges::sort(palette, {}, Color24::key);
    palette.erase(std::unique(palette.begin(), palette.end()), palette.end());
}

/// The colours that `palette` serves, entry by entry.
std::vector<Cluster> clustersOf(std::span<const WeightedColor> colors, const std::vector<RGBColor>& palette)
{
    NearestColors nearest(palette);
    std::vector<Cluster> clusters(palette.size());
    for (std::size_t i = 0; i < palette.size(); ++i)
        clusters[i].color = palette[i];
    for (const WeightedColor& entry : colors) {
        Cluster& cluster = clusters[nearest.index(entry.color)];
        cluster.sum += ColorMoments(entry);
        if (entry.weight > cluster.heaviest.weight)
            cluster.heaviest = entry;
    }
    return clusters;
}

/// Adds colours that are served badly until there are `count`. @pre there are more colours than that.
void fillUp(std::vector<RGBColor>& palette, std::span<const WeightedColor> colors, std::size_t count)
{
    struct Harm {
        double error = 0;
        RGBColor color;
    };
    while (palette.size() < count) {
        NearestColors nearest(palette);
        std::vector<Harm> worst(palette.size()); // of those that each entry serves
        for (const WeightedColor& entry : colors) {
            const std::uint8_t index = nearest.index(entry.color);
            const std::int64_t distance = entry.color.distanceSquared(palette[index]);
            if (const double error = static_cast<double>(distance) * static_cast<double>(entry.weight);
                error > worst[index].error)
                worst[index] = {error, entry.color};
        }
        std::erase_if(worst, [](const Harm& harm) { return harm.error <= 0; });
        std::ranges::stable_sort(worst, std::greater(), &Harm::error);
        for (const Harm& harm : std::span(worst).first(std::min(worst.size(), count - palette.size())))
            palette.push_back(harm.color);
    }
}

/// The entry that could be missed best: of little weight, and with another one near. The first `kept` ones stay.
std::size_t leastMissed(const std::vector<Cluster>& clusters, std::size_t kept)
{
    std::size_t least = clusters.size() - 1;
    double leastError = std::numeric_limits<double>::max();
    for (std::size_t i = kept; i < clusters.size(); ++i) {
        std::int64_t nearest = std::numeric_limits<std::int64_t>::max();
        for (std::size_t k = 0; k < clusters.size(); ++k) {
            if (k != i)
                nearest = std::min(nearest, clusters[i].color.distanceSquared(clusters[k].color));
        }
        const double error = static_cast<double>(clusters[i].sum.weight) * static_cast<double>(nearest);
        if (error < leastError) {
            leastError = error;
            least = i;
        }
    }
    return least;
}

/// Gives entries to colours that would turn into quite another one, because they are too small or too briefly shown to
/// matter in the sum of errors: a red dot on a photograph, a link, a pointer.
void keepOutliers(std::vector<RGBColor>& palette, std::span<const WeightedColor> colors)
{
    const std::size_t most = 1 + palette.size() / 32;
    for (std::size_t kept = 0; kept < most; ++kept) { // those are the first ones
        NearestColors nearest(palette);
        WeightedColor outlier;
        for (const WeightedColor& entry : colors) {
            if (entry.weight > outlier.weight
                && entry.color.distanceSquared(palette[nearest.index(entry.color)]) > outlierDistanceSquared)
                outlier = entry;
        }
        if (outlier.weight == 0)
            break;
        palette[leastMissed(clustersOf(colors, palette), kept)] = outlier.color;
        std::rotate(palette.begin() + static_cast<std::ptrdiff_t>(kept), std::ranges::find(palette, outlier.color),
            palette.end());
    }
}

std::vector<RGBColor> clustered(
    std::span<const WeightedColor> colors, std::size_t count, Effort effort, Parallelism parallelism)
{
    const std::vector<ColorMoments> points = pointsOf(colors);
    const std::vector<ColorMoments> merged
        = ColorClustering::merge(ColorClustering::split(points, std::max(effort.mostMerged, count)), count);
    std::vector<KMeans::Center> centers;
    std::ranges::transform(merged, std::back_inserter(centers), KMeans::centerOf);
    centers = KMeans::refine(points, std::move(centers), effort.rounds, parallelism);

    std::vector<RGBColor> palette;
    std::ranges::transform(centers, std::back_inserter(palette), rounded);
    const auto trials = static_cast<int>(std::min(effort.trials, effort.trials * wellTriedPoints / points.size()));
    palette = KMeans::exchange(
        points, KMeans::settle(points, std::move(palette), effort.rounds, parallelism), trials, parallelism);
    keepOutliers(palette, colors);
    palette = KMeans::settle(points, std::move(palette), effort.rounds, parallelism);
    // Points can be several colours. Flat areas get back the exact one.
    std::vector<Cluster> clusters = clustersOf(colors, palette);
    palette.clear();
    for (const Cluster& cluster : clusters) {
        if (cluster.sum.weight > 0)
            palette.push_back(
                cluster.heaviest.weight > cluster.sum.weight / 2 ? cluster.heaviest.color : cluster.sum.mean());
    }
    removeRepeated(palette);
    fillUp(palette, colors, count);
    return palette;
}

std::vector<RGBColor> chosen(
    std::span<const WeightedColor> colors, std::int64_t maxColors, Effort effort, Parallelism parallelism)
{
    precondition(maxColors >= 1 && maxColors <= maxColorCount, "a palette has 1 to 256 colours");
    if (colors.empty())
        return {RGBColor(0, 0, 0)};
    const auto count = static_cast<std::size_t>(maxColors);
    std::vector<WeightedColor> entries;
    if (colors.size() <= count) {
        entries.assign(colors.begin(), colors.end());
    } else {
        for (const Cluster& cluster : clustersOf(colors, clustered(colors, count, effort, parallelism)))
            entries.push_back({cluster.color, cluster.sum.weight});
    }
    std::ranges::sort(entries, [](const WeightedColor& a, const WeightedColor& b) {
        return a.weight != b.weight ? a.weight > b.weight : Color24::key(a.color) < Color24::key(b.color);
    });
    std::vector<RGBColor> palette;
    std::ranges::transform(entries, std::back_inserter(palette), &WeightedColor::color);
    return palette;
}

} // namespace

std::vector<RGBColor> make(std::span<const WeightedColor> colors, std::int64_t maxColors, Parallelism parallelism)
{
    return chosen(colors, maxColors, full, parallelism);
}

std::vector<RGBColor> makeQuickly(std::span<const WeightedColor> colors, std::int64_t maxColors)
{
    return chosen(colors, maxColors, quick, {.threads = 1});
}

} // namespace quillbox::ScreenPalette
