#include "Encoding/Precise/Colors/KMeans.h"

#include "Encoding/Multiversion.h"
#include "Encoding/Precise/Colors/ColorClustering.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <optional>
#include <utility>

namespace quillbox::KMeans {
namespace {

constexpr std::size_t blockSize = 64;
constexpr int roundsOfTrial = 5;
constexpr std::size_t mostChoices = 8; ///< colours that a trial takes away, and clusters that it parts

/// The points' means, channel by channel, in whole blocks.
struct Positions {
    std::vector<float> r;
    std::vector<float> g;
    std::vector<float> b;

    explicit Positions(std::span<const ColorMoments> points)
    {
        const std::size_t padded = (points.size() + blockSize - 1) / blockSize * blockSize;
        r.resize(padded);
        g.resize(padded);
        b.resize(padded);
        for (std::size_t i = 0; i < points.size(); ++i) {
            const Center center = centerOf(points[i]);
            r[i] = center[0];
            g[i] = center[1];
            b[i] = center[2];
        }
    }
};

/// For each point the nearest centre, of several the first, and how far away it is, squared.
struct Assignment {
    std::vector<int> indices;
    std::vector<float> distances;
};

/// A centre and its place among all.
struct Numbered {
    Center center;
    int index;
};

/// For `blockSize` points whose nearest centre is known the nearest of that and of some more.
QUILLBOX_MULTIVERSION void nearestOfBlock(const float* r, const float* g, const float* b, const Numbered* centers,
    std::size_t count, int* indices, float* distances)
{
    for (std::size_t center = 0; center < count; ++center) {
        const float red = centers[center].center[0];
        const float green = centers[center].center[1];
        const float blue = centers[center].center[2];
        const int index = centers[center].index;
        for (std::size_t i = 0; i < blockSize; ++i) {
            const float dr = r[i] - red;
            const float dg = g[i] - green;
            const float db = b[i] - blue;
            const float distance = dr * dr + dg * dg + db * db;
            const int ifEqual = index < indices[i] ? index : indices[i];
            const int unlessNearer = distance > distances[i] ? indices[i] : ifEqual;
            indices[i] = distance < distances[i] ? index : unlessNearer;
            distances[i] = distance < distances[i] ? distance : distances[i];
        }
    }
}

/// For `blockSize` points the squared distance of the second nearest centre.
QUILLBOX_MULTIVERSION void secondsOfBlock(
    const float* r, const float* g, const float* b, const Numbered* centers, std::size_t count, float* seconds)
{
    float nearest[blockSize];
    for (std::size_t i = 0; i < blockSize; ++i)
        nearest[i] = seconds[i] = std::numeric_limits<float>::max();
    for (std::size_t center = 0; center < count; ++center) {
        const float red = centers[center].center[0];
        const float green = centers[center].center[1];
        const float blue = centers[center].center[2];
        for (std::size_t i = 0; i < blockSize; ++i) {
            const float dr = r[i] - red;
            const float dg = g[i] - green;
            const float db = b[i] - blue;
            const float distance = dr * dr + dg * dg + db * db;
            const float farther = distance < nearest[i] ? nearest[i] : distance;
            seconds[i] = farther < seconds[i] ? farther : seconds[i];
            nearest[i] = distance < nearest[i] ? distance : nearest[i];
        }
    }
}

std::vector<Numbered> numbered(std::span<const Center> centers)
{
    std::vector<Numbered> result;
    result.reserve(centers.size());
    for (const Center& center : centers)
        result.push_back({center, static_cast<int>(result.size())});
    return result;
}

/// Points with what is worked out of them again and again.
class Points {
public:
    Points(std::span<const ColorMoments> points, Parallelism parallelism)
        : m_points(points)
        , m_positions(points)
        , m_parallelism(parallelism)
    {
    }

    [[nodiscard]] std::size_t size() const { return m_points.size(); }
    [[nodiscard]] const ColorMoments& operator[](std::size_t index) const { return m_points[index]; }

    void assign(Assignment& assignment, std::span<const Center> centers) const
    {
        const std::vector<Numbered> all = numbered(centers);
        assignment.indices.assign(m_positions.r.size(), 0);
        assignment.distances.assign(m_positions.r.size(), std::numeric_limits<float>::max());
        inShares([&](std::size_t begin, std::size_t end) {
            for (std::size_t i = begin; i < end; i += blockSize)
                nearest(all, assignment, i);
        });
    }

    /// The same when `assignment` is that of `before`: only what has to do with centres that moved is looked at.
    void reassign(Assignment& assignment, std::span<const Center> before, std::span<const Center> centers) const
    {
        const std::vector<Numbered> all = numbered(centers);
        std::vector<Numbered> moved;
        std::vector<char> isMoved(centers.size());
        for (std::size_t i = 0; i < centers.size(); ++i) {
            if (centers[i] != before[i]) {
                moved.push_back(all[i]);
                isMoved[i] = 1;
            }
        }
        inShares([&](std::size_t begin, std::size_t end) {
            std::vector<std::size_t> left; // points whose centre moved: any other can be nearer now
            for (std::size_t i = begin; i < end; ++i) {
                if (isMoved[static_cast<std::size_t>(assignment.indices[i])] != 0)
                    left.push_back(i);
            }
            for (std::size_t i = begin; i < end; i += blockSize)
                nearest(moved, assignment, i);
            for (std::size_t i = 0; i < left.size(); i += blockSize)
                nearest(all, assignment, std::span(left).subspan(i, std::min(blockSize, left.size() - i)));
        });
    }

    /// The squared distance of each point to the second nearest centre.
    [[nodiscard]] std::vector<float> seconds(std::span<const Center> centers) const
    {
        const std::vector<Numbered> all = numbered(centers);
        std::vector<float> result(m_positions.r.size());
        inShares([&](std::size_t begin, std::size_t end) {
            for (std::size_t i = begin; i < end; i += blockSize)
                secondsOfBlock(
                    &m_positions.r[i], &m_positions.g[i], &m_positions.b[i], all.data(), all.size(), &result[i]);
        });
        return result;
    }

    [[nodiscard]] double error(std::size_t index, const Assignment& assignment) const
    {
        return static_cast<double>(m_points[index].weight) * static_cast<double>(assignment.distances[index]);
    }
    [[nodiscard]] double error(const Assignment& assignment) const
    {
        double sum = 0;
        for (std::size_t i = 0; i < size(); ++i)
            sum += error(i, assignment);
        return sum;
    }

private:
    /// Calls `work(begin, end)` for parts of the points, whole blocks each.
    template <typename Work> void inShares(const Work& work) const
    {
        constexpr std::size_t share = 64 * blockSize; // enough work to be worth a thread
        const std::size_t padded = m_positions.r.size();
        const std::size_t shares = (padded + share - 1) / share;
        parallelFor(m_parallelism, static_cast<std::int64_t>(shares), [&](std::int64_t item, int) {
            const std::size_t begin = static_cast<std::size_t>(item) * share;
            work(begin, std::min(begin + share, padded));
        });
    }

    /// Takes `centers` into account for the block that begins at `begin`.
    void nearest(const std::vector<Numbered>& centers, Assignment& assignment, std::size_t begin) const
    {
        nearestOfBlock(&m_positions.r[begin], &m_positions.g[begin], &m_positions.b[begin], centers.data(),
            centers.size(), &assignment.indices[begin], &assignment.distances[begin]);
    }

    /// Finds the nearest of `centers` for up to `blockSize` points.
    void nearest(const std::vector<Numbered>& centers, Assignment& assignment, std::span<const std::size_t> some) const
    {
        std::array<float, blockSize> r{};
        std::array<float, blockSize> g{};
        std::array<float, blockSize> b{};
        std::array<int, blockSize> indices{};
        std::array<float, blockSize> distances{};
        distances.fill(std::numeric_limits<float>::max());
        for (std::size_t i = 0; i < some.size(); ++i) {
            r[i] = m_positions.r[some[i]];
            g[i] = m_positions.g[some[i]];
            b[i] = m_positions.b[some[i]];
        }
        nearestOfBlock(r.data(), g.data(), b.data(), centers.data(), centers.size(), indices.data(), distances.data());
        for (std::size_t i = 0; i < some.size(); ++i) {
            assignment.indices[some[i]] = indices[i];
            assignment.distances[some[i]] = distances[i];
        }
    }

    std::span<const ColorMoments> m_points;
    Positions m_positions;
    Parallelism m_parallelism;
};

std::vector<Center> centersOf(std::span<const RGBColor> colors)
{
    std::vector<Center> centers;
    centers.reserve(colors.size());
    for (const RGBColor color : colors)
        centers.push_back({static_cast<float>(color.r), static_cast<float>(color.g), static_cast<float>(color.b)});
    return centers;
}

/// Colours and which points they serve.
struct State {
    std::vector<RGBColor> colors;
    Assignment assignment{};
    double error = 0;
};

void moveToMeans(State& state, const Points& points)
{
    struct Served {
        ColorMoments sum;
        std::size_t heaviest = 0;
    };
    std::vector<Served> served(state.colors.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        Served& cluster = served[static_cast<std::size_t>(state.assignment.indices[i])];
        if (cluster.sum.weight == 0 || points[i].weight > points[cluster.heaviest].weight)
            cluster.heaviest = i;
        cluster.sum += points[i];
    }
    for (std::size_t color = 0; color < served.size(); ++color) {
        const auto& [sum, heaviest] = served[color];
        if (sum.weight > 0)
            state.colors[color] = points[heaviest].weight > sum.weight / 2 ? points[heaviest].mean() : sum.mean();
    }
}

/// `state.assignment` is that of `before` or, if that is empty, not known.
void settle(State& state, const Points& points, int rounds, std::vector<Center> before)
{
    for (int round = 0; true; ++round) {
        std::vector<Center> centers = centersOf(state.colors);
        if (before == centers)
            break;
        if (before.empty())
            points.assign(state.assignment, centers);
        else
            points.reassign(state.assignment, before, centers);
        if (round == rounds)
            break;
        before = std::move(centers);
        moveToMeans(state, points);
    }
    state.error = points.error(state.assignment);
}

/// The `mostChoices` indices of the largest values, the largest first; of equal ones the first.
std::vector<std::size_t> largest(const std::vector<double>& values)
{
    std::vector<std::size_t> order(values.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const std::size_t count = std::min(mostChoices, order.size());
    std::partial_sort(order.begin(), order.begin() + static_cast<std::ptrdiff_t>(count), order.end(),
        [&values](std::size_t a, std::size_t b) { return values[a] != values[b] ? values[a] > values[b] : a < b; });
    order.resize(count);
    return order;
}

/// One colour is taken away, and the points of another are parted between two colours.
struct Trial {
    std::size_t removed = 0;
    std::size_t parted = 0;
    std::array<RGBColor, 2> halves;
};

/// What is worth trying, the most promising first.
std::vector<Trial> trialsOf(const State& state, const Points& points)
{
    std::vector<double> missed(state.colors.size(), 0); // negative: how much more error there is without each colour
    std::vector<double> errors(state.colors.size(), 0);
    const std::vector<float> seconds = points.seconds(centersOf(state.colors));
    for (std::size_t i = 0; i < points.size(); ++i) {
        const auto color = static_cast<std::size_t>(state.assignment.indices[i]);
        const double error = points.error(i, state.assignment);
        errors[color] += error;
        missed[color] += error - static_cast<double>(points[i].weight) * static_cast<double>(seconds[i]);
    }
    const std::vector<std::size_t> removed = largest(missed);
    const std::vector<std::size_t> parted = largest(errors);
    std::vector<std::optional<std::array<RGBColor, 2>>> halves;
    for (const std::size_t color : parted) {
        std::vector<ColorMoments> own;
        for (std::size_t i = 0; i < points.size(); ++i) {
            if (state.assignment.indices[i] == static_cast<int>(color))
                own.push_back(points[i]);
        }
        const std::vector<ColorMoments> two = ColorClustering::split(own, 2);
        halves.push_back(two.size() == 2 ? std::optional(std::array{two[0].mean(), two[1].mean()}) : std::nullopt);
    }
    std::vector<Trial> trials;
    for (std::size_t rank = 0; rank + 1 < removed.size() + parted.size(); ++rank) {
        for (std::size_t i = 0; i <= rank && i < removed.size(); ++i) {
            const std::size_t k = rank - i;
            if (k < parted.size() && halves[k] && removed[i] != parted[k])
                trials.push_back({removed[i], parted[k], *halves[k]});
        }
    }
    return trials;
}

} // namespace

Center centerOf(const ColorMoments& cluster)
{
    const auto weight = static_cast<double>(cluster.weight);
    return {static_cast<float>(static_cast<double>(cluster.r) / weight),
        static_cast<float>(static_cast<double>(cluster.g) / weight),
        static_cast<float>(static_cast<double>(cluster.b) / weight)};
}

std::vector<Center> refine(
    std::span<const ColorMoments> points, std::vector<Center> centers, int rounds, Parallelism parallelism)
{
    const Points all(points, parallelism);
    Assignment assignment;
    std::vector<Center> before;
    for (int round = 0; round < rounds && centers != before; ++round) {
        if (before.empty())
            all.assign(assignment, centers);
        else
            all.reassign(assignment, before, centers);
        before = centers;
        std::vector<ColorMoments> sums(centers.size());
        for (std::size_t i = 0; i < points.size(); ++i)
            sums[static_cast<std::size_t>(assignment.indices[i])] += points[i];
        for (std::size_t center = 0; center < centers.size(); ++center) {
            if (sums[center].weight > 0)
                centers[center] = centerOf(sums[center]);
        }
    }
    return centers;
}

std::vector<RGBColor> settle(
    std::span<const ColorMoments> points, std::vector<RGBColor> colors, int rounds, Parallelism parallelism)
{
    State state{.colors = std::move(colors)};
    settle(state, Points(points, parallelism), rounds, {});
    return std::move(state.colors);
}

std::vector<RGBColor> exchange(
    std::span<const ColorMoments> points, std::vector<RGBColor> colors, int trials, Parallelism parallelism)
{
    const Points all(points, parallelism);
    State best{.colors = std::move(colors)};
    settle(best, all, 0, {});
    while (trials > 0) {
        const double before = best.error;
        for (const Trial& trial : trialsOf(best, all)) {
            if (trials-- == 0)
                return std::move(best.colors);
            State next = best;
            next.colors[trial.removed] = trial.halves[0];
            next.colors[trial.parted] = trial.halves[1];
            settle(next, all, roundsOfTrial, centersOf(best.colors));
            if (next.error < best.error) {
                best = std::move(next);
                break;
            }
        }
        if (best.error >= before)
            break; // nothing helps any more
    }
    return std::move(best.colors);
}

} // namespace quillbox::KMeans
