#include "Encoding/Precise/Colors/ColorClustering.h"

#include "reference/Precise/ScreenPalette.h"
#include "support/ColorPoints.h"
#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbox {
namespace {

using support::countedColors;
using support::gray;
using support::point;
using support::Random;
using testing::ElementsAre;
using testing::IsEmpty;

ColorMoments united(ColorMoments a, const ColorMoments& b)
{
    a += b;
    return a;
}

/// Colours anywhere, whose weights differ so much that no two unions cost the same.
std::vector<ColorMoments> unevenPoints(std::int64_t count, Random& random)
{
    ColorCounts counts;
    for (std::int64_t i = 0; i < count; ++i)
        counts.add({random.byte(), random.byte(), random.byte()}, random.between(1, 1'000'000'000));
    const std::vector<WeightedColor> colors = counts.entries();
    return {colors.begin(), colors.end()};
}

TEST(ColorMoments, RoundTheMeanToTheNearestLevels)
{
    EXPECT_EQ(united(point({10, 20, 30}, 3), point({14, 21, 30}, 1)).mean(), RGBColor(11, 20, 30));
    EXPECT_EQ(united(point(gray(10), 1), point(gray(11), 1)).mean(), gray(11));
    EXPECT_EQ(united(point(gray(0), 1), point(gray(2), 3)).squaresSaved(), 3 * 6.0 * 6 / 4);
}

TEST(Cells, HoldColoursThatDifferInTheLowestBitsOnly)
{
    const std::vector<WeightedColor> colors{
        {RGBColor(0, 0, 3), 1}, {RGBColor(0, 0, 4), 2}, {RGBColor(0, 3, 0), 4}, {RGBColor(4, 0, 0), 8}};
    EXPECT_THAT(ColorClustering::cells(colors, 2),
        ElementsAre(united(point({0, 0, 3}, 1), point({0, 3, 0}, 4)), point({0, 0, 4}, 2), point({4, 0, 0}, 8)));
    EXPECT_THAT(ColorClustering::cells({}, 2), IsEmpty());
}

TEST(Cells, EqualThePlainVersion)
{
    Random random(4);
    for (std::int64_t i = 0; i < support::iterations(40); ++i) {
        const auto colors = countedColors(support::randomPicture(1 + random.below(40), 1 + random.below(40), random));
        const auto shift = static_cast<int>(random.between(2, 7));
        EXPECT_EQ(ColorClustering::cells(colors, shift), reference::cells(colors, shift));
    }
}

TEST(Split, PartsWhereItHelpsMost)
{
    const std::vector<ColorMoments> points{
        point(gray(0), 1), point(gray(10), 1), point(gray(100), 1), point({100, 100, 120}, 1)};
    EXPECT_THAT(
        ColorClustering::split(points, 2), ElementsAre(united(points[0], points[1]), united(points[2], points[3])));
    EXPECT_THAT(ColorClustering::split(points, 3), ElementsAre(united(points[0], points[1]), points[2], points[3]))
        << "20² in blue is more than 3 · 10²";
    EXPECT_THAT(ColorClustering::split(points, 9), ElementsAre(points[0], points[1], points[2], points[3]));
    EXPECT_THAT(ColorClustering::split(points, 1), testing::SizeIs(1));
    EXPECT_THAT(ColorClustering::split({}, 3), IsEmpty());
}

TEST(Split, EqualsThePlainVersion)
{
    Random random(5);
    for (std::int64_t i = 0; i < support::iterations(40); ++i) {
        const auto colors = countedColors(support::randomPicture(1 + random.below(7), 1 + random.below(7), random));
        const std::vector<ColorMoments> points(colors.begin(), colors.end());
        const auto count = static_cast<std::size_t>(1 + random.below(12));
        EXPECT_EQ(ColorClustering::split(points, count), reference::split(points, count)) << "picture " << i;
    }
}

TEST(Merge, UnitesWhatIsAlikeOrLight)
{
    const std::vector<ColorMoments> points{
        point(gray(0), 100), point(gray(40), 100), point(gray(43), 100), point(gray(90), 1)};
    EXPECT_THAT(ColorClustering::merge(points, 3), ElementsAre(points[0], united(points[1], points[2]), points[3]));
    EXPECT_THAT(
        ColorClustering::merge(points, 2), ElementsAre(points[0], united(united(points[1], points[2]), points[3])));
    EXPECT_EQ(ColorClustering::merge(points, 4), points);
    EXPECT_EQ(ColorClustering::merge(points, 9), points);
    EXPECT_THAT(ColorClustering::merge({}, 1), IsEmpty());
}

TEST(Merge, EqualsThePlainVersionWhereNoTwoUnionsCostTheSame)
{
    Random random(6);
    for (std::int64_t i = 0; i < support::iterations(60); ++i) {
        const std::vector<ColorMoments> points = unevenPoints(1 + random.below(50), random);
        const auto count = static_cast<std::size_t>(1 + random.below(std::ssize(points)));
        EXPECT_EQ(ColorClustering::merge(points, count), reference::merge(points, count)) << "case " << i;
    }
}

TEST(Merge, LosesNothingWhereManyUnionsCostTheSame)
{
    std::vector<ColorMoments> points;
    ColorMoments all;
    for (int level = 0; level < 256; ++level) {
        points.push_back(point(gray(level), 1));
        all += points.back();
    }
    for (const std::size_t count : {1U, 2U, 100U, 255U}) {
        const std::vector<ColorMoments> clusters = ColorClustering::merge(points, count);
        ColorMoments total;
        for (const ColorMoments& cluster : clusters)
            total += cluster;
        EXPECT_EQ(clusters.size(), count);
        EXPECT_EQ(total, all);
    }
}

} // namespace
} // namespace quillbox
