#include "Encoding/Precise/Colors/ColorClustering.h"

#include "Encoding/Multiversion.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <queue>

namespace quillbox::ColorClustering {
namespace {

/// A point and where it lies along red, green, blue and luma, 0…255 each.
struct Placed {
    ColorMoments moments;
    std::array<std::uint8_t, 4> places{};

    explicit Placed(const ColorMoments& point)
        : moments(point)
    {
        const RGBColor mean = point.mean();
        places = {mean.r, mean.g, mean.b, static_cast<std::uint8_t>((2 * mean.r + 5 * mean.g + mean.b) / 8)};
    }
};

/// Some of the points, and the best way to part them.
struct Part {
    std::size_t begin = 0;
    std::size_t end = 0;
    ColorMoments sum{};
    double gain = 0; ///< how much less the squared error is when it is parted
    std::size_t direction = 0;
    int lastBelow = 0; ///< the place along `direction` up to which points go to the first part
};

class Splitter {
public:
    explicit Splitter(std::span<const ColorMoments> points)
        : m_points(points.begin(), points.end())
    {
    }

    [[nodiscard]] Part part(std::size_t begin, std::size_t end)
    {
        Part result{.begin = begin, .end = end};
        for (std::size_t i = begin; i < end; ++i)
            result.sum += m_points[i].moments;
        const double whole = result.sum.squaresSaved();
        for (std::size_t direction = 0; direction < 4; ++direction) {
            int first = 255;
            int last = 0;
            for (std::size_t i = begin; i < end; ++i) {
                const int place = m_points[i].places[direction];
                m_bins[static_cast<std::size_t>(place)] += m_points[i].moments;
                first = std::min(first, place);
                last = std::max(last, place);
            }
            ColorMoments below;
            ColorMoments above = result.sum;
            for (int place = first; place <= last; ++place) {
                ColorMoments& bin = m_bins[static_cast<std::size_t>(place)];
                if (bin.weight == 0)
                    continue;
                below += bin;
                above -= bin;
                bin = {};
                if (place == last)
                    break;
                if (const double gain = below.squaresSaved() + above.squaresSaved() - whole; gain > result.gain) {
                    result.gain = gain;
                    result.direction = direction;
                    result.lastBelow = place;
                }
            }
        }
        return result;
    }

    [[nodiscard]] std::array<Part, 2> parted(const Part& part)
    {
        const auto at = [this](std::size_t index) {
            return m_points.begin() + static_cast<std::ptrdiff_t>(index);
        };
        const auto cut = std::stable_partition(at(part.begin), at(part.end),
            [&part](const Placed& point) { return point.places[part.direction] <= part.lastBelow; });
        const auto middle = static_cast<std::size_t>(cut - m_points.begin());
        return {this->part(part.begin, middle), this->part(middle, part.end)};
    }

private:
    std::vector<Placed> m_points;
    std::array<ColorMoments, 256> m_bins{};
};

/// The clusters that still exist, as lists of their properties, so that a pass over all is vectorised.
struct Clusters {
    std::vector<double> weight;
    std::vector<double> r;
    std::vector<double> g;
    std::vector<double> b;
    std::vector<std::size_t> first; ///< the first point of each
    std::vector<ColorMoments> sums;

    void set(std::size_t place, const ColorMoments& sum)
    {
        weight[place] = static_cast<double>(sum.weight);
        r[place] = static_cast<double>(sum.r) / weight[place];
        g[place] = static_cast<double>(sum.g) / weight[place];
        b[place] = static_cast<double>(sum.b) / weight[place];
        sums[place] = sum;
    }

    void resize(std::size_t count)
    {
        weight.resize(count);
        r.resize(count);
        g.resize(count);
        b.resize(count);
        first.resize(count);
        sums.resize(count);
    }
};

/// What it costs to unite the cluster at `place` with each of the first `count`.
QUILLBOX_MULTIVERSION void costsOfUniting(const double* weight, const double* r, const double* g, const double* b,
    std::size_t count, std::size_t place, double* costs)
{
    const double w = weight[place];
    const double red = r[place];
    const double green = g[place];
    const double blue = b[place];
    for (std::size_t i = 0; i < count; ++i) {
        const double dr = r[i] - red;
        const double dg = g[i] - green;
        const double db = b[i] - blue;
        costs[i] = (dr * dr + dg * dg + db * db) * (w * weight[i] / (w + weight[i]));
    }
}

struct Union {
    double cost = 0;
    std::size_t a = 0; ///< the first points of both
    std::size_t b = 0;
};

/// All unions that end in one cluster, in an order in which each can be made.
std::vector<Union> unions(std::span<const ColorMoments> points)
{
    Clusters clusters;
    clusters.resize(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        clusters.set(i, points[i]);
        clusters.first[i] = i;
    }
    std::vector<double> costs(points.size());
    std::vector<Union> result;
    std::vector<std::size_t> chain; // places; each is followed by its nearest
    std::size_t count = points.size();
    while (count > 1) {
        if (chain.empty())
            chain.push_back(0);
        const std::size_t top = chain.back();
        costsOfUniting(
            clusters.weight.data(), clusters.r.data(), clusters.g.data(), clusters.b.data(), count, top, costs.data());
        costs[top] = std::numeric_limits<double>::infinity();
        auto nearest = static_cast<std::size_t>(
            std::min_element(costs.begin(), costs.begin() + static_cast<std::ptrdiff_t>(count)) - costs.begin());
        if (chain.size() < 2 || costs[chain[chain.size() - 2]] > costs[nearest]) {
            chain.push_back(nearest);
            continue;
        }
        // Each is the other's nearest.
        nearest = chain[chain.size() - 2];
        chain.resize(chain.size() - 2);
        const std::size_t kept = std::min(top, nearest);
        const std::size_t gone = std::max(top, nearest);
        result.push_back({costs[nearest], clusters.first[kept], clusters.first[gone]});
        ColorMoments sum = clusters.sums[kept];
        sum += clusters.sums[gone];
        clusters.set(kept, sum);
        clusters.first[kept] = std::min(clusters.first[kept], clusters.first[gone]);
        --count; // the last one takes the place of the one that is gone
        clusters.set(gone, clusters.sums[count]);
        clusters.first[gone] = clusters.first[count];
        std::ranges::replace(chain, count, gone);
    }
    return result;
}

} // namespace

std::vector<ColorMoments> cells(std::span<const WeightedColor> colors, int shift)
{
    precondition(shift >= 1 && shift <= 7, "some bits are left, and some are not");
    // What is kept of a key, without the gaps: the place in a table of all cells.
    const unsigned bits = 8 - static_cast<unsigned>(shift);
    const std::uint32_t levels = (1U << bits) - 1;
    std::vector<ColorMoments> table(std::size_t{1} << 3 * bits);
    for (const WeightedColor& entry : colors) {
        const std::uint32_t key = Color24::key(entry.color) >> static_cast<unsigned>(shift);
        const std::uint32_t place = (key >> 16U & levels) << 2 * bits | (key >> 8U & levels) << bits | (key & levels);
        table[place] += ColorMoments(entry);
    }
    std::erase(table, ColorMoments());
    return table;
}

std::vector<ColorMoments> split(std::span<const ColorMoments> points, std::size_t count)
{
    if (points.empty())
        return {};
    const auto helpsLess = [](const Part& a, const Part& b) {
        return a.gain != b.gain ? a.gain < b.gain : a.begin > b.begin;
    };
    Splitter splitter(points);
    std::priority_queue<Part, std::vector<Part>, decltype(helpsLess)> open(helpsLess);
    std::vector<Part> parts;
    const auto take = [&](const Part& part) {
        if (part.gain > 0)
            open.push(part);
        else
            parts.push_back(part);
    };
    take(splitter.part(0, points.size()));
    while (!open.empty() && open.size() + parts.size() < count) {
        const Part best = open.top();
        open.pop();
        for (const Part& half : splitter.parted(best))
            take(half);
    }
    for (; !open.empty(); open.pop())
        parts.push_back(open.top());
    std::ranges::sort(parts, {}, &Part::begin);
    std::vector<ColorMoments> sums;
    std::ranges::transform(parts, std::back_inserter(sums), &Part::sum);
    return sums;
}

std::vector<ColorMoments> merge(std::span<const ColorMoments> points, std::size_t count)
{
    precondition(count > 0, "some clusters are left");
    if (points.size() <= count)
        return {points.begin(), points.end()};
    std::vector<Union> all = unions(points);
    std::ranges::stable_sort(all, {}, &Union::cost);
    std::vector<std::size_t> owner(points.size()); // of each point, a lower one of its cluster or itself
    std::iota(owner.begin(), owner.end(), std::size_t{0});
    const auto ownerOf = [&owner](std::size_t point) {
        while (owner[point] != point)
            point = owner[point] = owner[owner[point]];
        return point;
    };
    for (const Union& next : std::span(all).first(points.size() - count)) {
        const std::size_t a = ownerOf(next.a);
        const std::size_t b = ownerOf(next.b);
        owner[std::max(a, b)] = std::min(a, b);
    }
    std::vector<ColorMoments> sums(points.size());
    for (std::size_t i = 0; i < points.size(); ++i)
        sums[ownerOf(i)] += points[i];
    std::erase(sums, ColorMoments());
    return sums;
}

} // namespace quillbox::ColorClustering
