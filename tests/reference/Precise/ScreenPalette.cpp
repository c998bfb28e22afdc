#include "reference/Precise/ScreenPalette.h"

#include <algorithm>
#include <array>
#include <limits>
#include <map>

namespace quillbox::reference {
namespace {

using Points = std::vector<ColorMoments>;

ColorMoments sumOf(const Points& points)
{
    ColorMoments sum;
    for (const ColorMoments& point : points)
        sum += point;
    return sum;
}

int placeOf(const ColorMoments& point, int direction)
{
    const RGBColor mean = point.mean();
    const std::array places{int{mean.r}, int{mean.g}, int{mean.b}, (2 * mean.r + 5 * mean.g + mean.b) / 8};
    return places[static_cast<std::size_t>(direction)];
}

struct Cut {
    double gain = 0;
    Points below;
    Points above;
};

Cut cutAt(const Points& points, int direction, int lastBelow)
{
    Cut cut;
    for (const ColorMoments& point : points)
        (placeOf(point, direction) <= lastBelow ? cut.below : cut.above).push_back(point);
    if (!cut.below.empty() && !cut.above.empty())
        cut.gain = sumOf(cut.below).squaresSaved() + sumOf(cut.above).squaresSaved() - sumOf(points).squaresSaved();
    return cut;
}

Cut bestCut(const Points& points)
{
    Cut best;
    for (int direction = 0; direction < 4; ++direction) {
        for (int lastBelow = 0; lastBelow < 255; ++lastBelow) {
            const auto isLastBelow = [&](const ColorMoments& point) {
                return placeOf(point, direction) == lastBelow;
            };
            if (std::ranges::none_of(points, isLastBelow))
                continue; // divides them as the one before does
            if (Cut cut = cutAt(points, direction, lastBelow); cut.gain > best.gain)
                best = std::move(cut);
        }
    }
    return best;
}

double costOfUniting(const ColorMoments& a, const ColorMoments& b)
{
    const auto wa = static_cast<double>(a.weight);
    const auto wb = static_cast<double>(b.weight);
    const double dr = static_cast<double>(a.r) / wa - static_cast<double>(b.r) / wb;
    const double dg = static_cast<double>(a.g) / wa - static_cast<double>(b.g) / wb;
    const double db = static_cast<double>(a.b) / wa - static_cast<double>(b.b) / wb;
    return (dr * dr + dg * dg + db * db) * (wa * wb / (wa + wb));
}

float distanceSquared(const KMeans::Center& a, const KMeans::Center& b)
{
    const float dr = a[0] - b[0];
    const float dg = a[1] - b[1];
    const float db = a[2] - b[2];
    return dr * dr + dg * dg + db * db;
}

KMeans::Center centerOf(RGBColor color)
{
    return {static_cast<float>(color.r), static_cast<float>(color.g), static_cast<float>(color.b)};
}

std::vector<KMeans::Center> centersOf(std::span<const RGBColor> colors)
{
    std::vector<KMeans::Center> centers;
    for (const RGBColor color : colors)
        centers.push_back(centerOf(color));
    return centers;
}

struct Nearest {
    std::size_t index = 0;
    float distance = std::numeric_limits<float>::max();
    float second = std::numeric_limits<float>::max();
};

Nearest nearestOf(const ColorMoments& point, const std::vector<KMeans::Center>& centers)
{
    Nearest nearest;
    for (std::size_t i = 0; i < centers.size(); ++i) {
        const float distance = distanceSquared(KMeans::centerOf(point), centers[i]);
        if (distance < nearest.distance) {
            nearest.second = nearest.distance;
            nearest.distance = distance;
            nearest.index = i;
        } else {
            nearest.second = std::min(nearest.second, distance);
        }
    }
    return nearest;
}

/// The points that each centre is the nearest of.
std::vector<Points> served(std::span<const ColorMoments> points, const std::vector<KMeans::Center>& centers)
{
    std::vector<Points> clusters(centers.size());
    for (const ColorMoments& point : points)
        clusters[nearestOf(point, centers).index].push_back(point);
    return clusters;
}

std::vector<std::size_t> eightLargest(const std::vector<double>& values)
{
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < values.size(); ++i)
        order.push_back(i);
    std::ranges::stable_sort(order, [&values](std::size_t a, std::size_t b) { return values[a] > values[b]; });
    order.resize(std::min<std::size_t>(order.size(), 8));
    return order;
}

/// What to try, the most promising first: palettes with one colour less and one parted.
std::vector<std::vector<RGBColor>> trialsOf(std::span<const ColorMoments> points, const std::vector<RGBColor>& colors)
{
    const std::vector<KMeans::Center> centers = centersOf(colors);
    std::vector<double> missed(colors.size());
    std::vector<double> errors(colors.size());
    for (const ColorMoments& point : points) {
        const Nearest nearest = nearestOf(point, centers);
        const double error = static_cast<double>(point.weight) * static_cast<double>(nearest.distance);
        errors[nearest.index] += error;
        missed[nearest.index] += error - static_cast<double>(point.weight) * static_cast<double>(nearest.second);
    }
    const std::vector<std::size_t> removed = eightLargest(missed);
    const std::vector<std::size_t> parted = eightLargest(errors);
    std::vector<Points> halves;
    for (const std::size_t color : parted)
        halves.push_back(split(served(points, centers)[color], 2));
    std::vector<std::vector<RGBColor>> trials;
    for (std::size_t rank = 0; rank < 16; ++rank) {
        for (std::size_t i = 0; i < removed.size(); ++i) {
            for (std::size_t k = 0; k < parted.size(); ++k) {
                if (i + k != rank || removed[i] == parted[k] || halves[k].size() < 2)
                    continue;
                trials.push_back(colors);
                trials.back()[removed[i]] = halves[k][0].mean();
                trials.back()[parted[k]] = halves[k][1].mean();
            }
        }
    }
    return trials;
}

} // namespace

std::vector<ColorMoments> cells(std::span<const WeightedColor> colors, int shift)
{
    std::map<std::array<int, 3>, ColorMoments> sums;
    for (const WeightedColor& entry : colors)
        sums[{entry.color.r >> shift, entry.color.g >> shift, entry.color.b >> shift}] += ColorMoments(entry);
    std::vector<ColorMoments> result;
    for (const auto& [cell, sum] : sums)
        result.push_back(sum);
    return result;
}

std::vector<ColorMoments> split(std::span<const ColorMoments> points, std::size_t count)
{
    if (points.empty())
        return {};
    std::vector<Points> parts{Points(points.begin(), points.end())};
    while (parts.size() < count) {
        Cut best;
        std::size_t chosen = 0;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if (Cut cut = bestCut(parts[i]); cut.gain > best.gain) {
                best = std::move(cut);
                chosen = i;
            }
        }
        if (best.gain <= 0)
            break;
        parts[chosen] = best.below;
        parts.insert(parts.begin() + static_cast<std::ptrdiff_t>(chosen) + 1, best.above);
    }
    std::vector<ColorMoments> sums;
    for (const Points& part : parts)
        sums.push_back(sumOf(part));
    return sums;
}

std::vector<ColorMoments> merge(std::span<const ColorMoments> points, std::size_t count)
{
    Points clusters(points.begin(), points.end());
    while (clusters.size() > count) {
        std::size_t first = 0;
        std::size_t second = 1;
        for (std::size_t i = 0; i < clusters.size(); ++i) {
            for (std::size_t k = i + 1; k < clusters.size(); ++k) {
                if (costOfUniting(clusters[i], clusters[k]) < costOfUniting(clusters[first], clusters[second])) {
                    first = i;
                    second = k;
                }
            }
        }
        clusters[first] += clusters[second];
        clusters.erase(clusters.begin() + static_cast<std::ptrdiff_t>(second));
    }
    return clusters;
}

std::vector<KMeans::Center> refine(
    std::span<const ColorMoments> points, std::vector<KMeans::Center> centers, int rounds)
{
    for (int round = 0; round < rounds; ++round) {
        const std::vector<Points> clusters = served(points, centers);
        for (std::size_t i = 0; i < centers.size(); ++i) {
            if (!clusters[i].empty())
                centers[i] = KMeans::centerOf(sumOf(clusters[i]));
        }
    }
    return centers;
}

std::vector<RGBColor> settle(std::span<const ColorMoments> points, std::vector<RGBColor> colors, int rounds)
{
    for (int round = 0; round < rounds; ++round) {
        const std::vector<Points> clusters = served(points, centersOf(colors));
        for (std::size_t i = 0; i < colors.size(); ++i) {
            if (clusters[i].empty())
                continue;
            const ColorMoments& heaviest = *std::ranges::max_element(clusters[i], {}, &ColorMoments::weight);
            const ColorMoments sum = sumOf(clusters[i]);
            colors[i] = (heaviest.weight > sum.weight / 2 ? heaviest : sum).mean();
        }
    }
    return colors;
}

double errorOf(std::span<const ColorMoments> points, std::span<const RGBColor> colors)
{
    double sum = 0;
    for (const ColorMoments& point : points)
        sum += static_cast<double>(point.weight) * static_cast<double>(nearestOf(point, centersOf(colors)).distance);
    return sum;
}

std::vector<RGBColor> exchange(std::span<const ColorMoments> points, std::vector<RGBColor> colors, int trials)
{
    for (bool better = true; better;) {
        better = false;
        for (const std::vector<RGBColor>& trial : trialsOf(points, colors)) {
            if (trials-- <= 0)
                return colors;
            const std::vector<RGBColor> next = settle(points, trial, 5);
            if (errorOf(points, next) < errorOf(points, colors)) {
                colors = next;
                better = true;
                break;
            }
        }
    }
    return colors;
}

} // namespace quillbox::reference
