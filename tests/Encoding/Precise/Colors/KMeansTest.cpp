#include "Encoding/Precise/Colors/KMeans.h"

#include "reference/Precise/ScreenPalette.h"
#include "support/ColorPoints.h"
#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbox {
namespace {

using support::gray;
using support::point;
using support::Random;
using testing::ElementsAre;

constexpr Parallelism oneThread{.threads = 1};

std::vector<ColorMoments> randomPoints(std::int64_t count, std::int64_t levels, Random& random)
{
    std::vector<ColorMoments> points;
    for (std::int64_t i = 0; i < count; ++i) {
        const auto level = [&] {
            return static_cast<std::uint8_t>(random.below(levels));
        };
        points.push_back(point({level(), level(), level()}, random.between(1, 50)));
    }
    return points;
}

std::vector<RGBColor> someOf(const std::vector<ColorMoments>& points, std::int64_t count, Random& random)
{
    std::vector<RGBColor> colors;
    for (std::int64_t i = 0; i < count; ++i)
        colors.push_back(points[static_cast<std::size_t>(random.below(std::ssize(points)))].mean());
    return colors;
}

std::vector<KMeans::Center> centersOf(const std::vector<RGBColor>& colors)
{
    std::vector<KMeans::Center> centers;
    for (const RGBColor color : colors)
        centers.push_back(KMeans::centerOf(point(color, 1)));
    return centers;
}

TEST(Refine, MovesCentresToTheMeansOfTheirPoints)
{
    const std::vector<ColorMoments> points{point(gray(10), 1), point(gray(13), 3), point(gray(200), 1)};
    const auto centers = KMeans::refine(points, centersOf({gray(0), gray(255), gray(128)}), 9, oneThread);
    using Center = KMeans::Center;
    EXPECT_THAT(centers, ElementsAre(Center{12.25F, 12.25F, 12.25F}, Center{200, 200, 200}, Center{128, 128, 128}))
        << "the last one has no points";
}

TEST(Refine, EqualsThePlainVersionWithAnyNumberOfThreads)
{
    Random random(7);
    for (std::int64_t i = 0; i < support::iterations(20); ++i) {
        const auto points = randomPoints(1 + random.below(9000), random.pick<std::int64_t>({3, 256}), random);
        const auto centers = centersOf(someOf(points, 1 + random.below(12), random));
        const auto rounds = static_cast<int>(random.below(6));
        const auto refined = KMeans::refine(points, centers, rounds, oneThread);
        EXPECT_EQ(refined, reference::refine(points, centers, rounds)) << "case " << i;
        EXPECT_EQ(refined, KMeans::refine(points, centers, rounds, {.threads = 3})) << "case " << i;
    }
}

TEST(Settle, KeepsTheColourThatHasMoreThanHalfOfTheWeight)
{
    const std::vector<ColorMoments> flat{point(gray(10), 5), point(gray(20), 4)};
    EXPECT_THAT(KMeans::settle(flat, {gray(0)}, 1, oneThread), ElementsAre(gray(10)));
    const std::vector<ColorMoments> even{point(gray(10), 5), point(gray(20), 5)};
    EXPECT_THAT(KMeans::settle(even, {gray(0)}, 1, oneThread), ElementsAre(gray(15)));
    EXPECT_THAT(KMeans::settle(even, {gray(0)}, 0, oneThread), ElementsAre(gray(0)));
}

TEST(Settle, EqualsThePlainVersion)
{
    Random random(8);
    for (std::int64_t i = 0; i < support::iterations(40); ++i) {
        const auto points = randomPoints(1 + random.below(400), random.pick<std::int64_t>({3, 256}), random);
        const auto colors = someOf(points, 1 + random.below(20), random);
        const auto rounds = static_cast<int>(random.below(8));
        EXPECT_EQ(KMeans::settle(points, colors, rounds, oneThread), reference::settle(points, colors, rounds))
            << "case " << i;
    }
}

TEST(Exchange, TakesAColourFromWhereTwoAreTooManyToWhereOneIsTooFew)
{
    const std::vector<ColorMoments> points{
        point(gray(10), 1), point(gray(11), 1), point(gray(100), 1), point(gray(200), 1)};
    EXPECT_THAT(KMeans::exchange(points, {gray(10), gray(11), gray(150)}, 1, oneThread),
        testing::UnorderedElementsAre(gray(11), gray(100), gray(200)));
    EXPECT_THAT(KMeans::exchange(points, {gray(10), gray(11), gray(150)}, 0, oneThread),
        ElementsAre(gray(10), gray(11), gray(150)));
}

TEST(Exchange, EqualsThePlainVersionAndNeverHarms)
{
    Random random(9);
    for (std::int64_t i = 0; i < support::iterations(20); ++i) {
        const auto points = randomPoints(1 + random.below(100), random.pick<std::int64_t>({3, 256}), random);
        const auto colors = someOf(points, 1 + random.below(12), random);
        const auto trials = static_cast<int>(random.below(8));
        const auto exchanged = KMeans::exchange(points, colors, trials, oneThread);
        EXPECT_EQ(exchanged, reference::exchange(points, colors, trials)) << "case " << i;
        EXPECT_LE(reference::errorOf(points, exchanged), reference::errorOf(points, colors)) << "case " << i;
    }
}

} // namespace
} // namespace quillbox
