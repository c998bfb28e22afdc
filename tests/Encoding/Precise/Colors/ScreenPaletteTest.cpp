#include "Encoding/Precise/Colors/ScreenPalette.h"

#include "Encoding/Precise/Colors/ColorClustering.h"
#include "Encoding/Precise/Colors/KMeans.h"
#include "reference/Precise/ScreenPalette.h"
#include "support/ColorPoints.h"
#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <set>

namespace quillbox {
namespace {

using support::countedColors;
using support::gray;
using support::Random;
using testing::Contains;
using testing::ElementsAre;

TEST(ScreenPalette, IsBlackWithoutColours)
{
    EXPECT_THAT(ScreenPalette::make({}, 256), ElementsAre(gray(0)));
}

TEST(ScreenPalette, HoldsTheExactColoursHeaviestFirstWhenTheyAreFewEnough)
{
    const std::vector<WeightedColor> colors{{gray(1), 5}, {gray(2), 9}, {gray(3), 5}};
    EXPECT_THAT(ScreenPalette::make(colors, 3), ElementsAre(gray(2), gray(1), gray(3)));
    EXPECT_THAT(ScreenPalette::makeQuickly(colors, 256), ElementsAre(gray(2), gray(1), gray(3)));
}

TEST(ScreenPalette, OneColourIsTheMeanUnlessOneDominates)
{
    const std::vector<WeightedColor> even{{gray(10), 1}, {gray(21), 1}};
    EXPECT_THAT(ScreenPalette::make(even, 1), ElementsAre(gray(16))) << "15.5, rounded";
    const std::vector<WeightedColor> uneven{{gray(10), 3}, {gray(21), 1}};
    EXPECT_THAT(ScreenPalette::make(uneven, 1), ElementsAre(gray(10)));
}

TEST(ScreenPalette, FlatAreasKeepTheirExactColourAmongNeighbours)
{
    std::vector<WeightedColor> colors;
    for (int level = 0; level < 256; ++level)
        colors.push_back({gray(level), level % 50 == 37 ? 100'000 : 10});
    const std::vector<RGBColor> palette = ScreenPalette::make(colors, 16);
    for (const int level : {37, 87, 137, 187, 237})
        EXPECT_THAT(palette, Contains(gray(level)));
}

TEST(ScreenPalette, HasAsManyColoursAsAllowedAndNoneTwice)
{
    Random random(3);
    for (std::int64_t i = 0; i < support::iterations(100); ++i) {
        const RGBAFrame picture = support::randomPicture(1 + random.below(40), 1 + random.below(40), random);
        const std::vector<WeightedColor> colors = countedColors(picture);
        const std::int64_t maxColors = 1 + random.below(256);
        for (const auto& palette :
            {ScreenPalette::make(colors, maxColors), ScreenPalette::makeQuickly(colors, maxColors)}) {
            std::set<std::uint32_t> keys;
            for (const RGBColor color : palette)
                EXPECT_TRUE(keys.insert(Color24::key(color)).second) << "picture " << i;
            EXPECT_EQ(std::ssize(palette), std::min(std::ssize(colors), maxColors)) << "picture " << i;
        }
    }
}

TEST(ScreenPalette, WastesNoEntryWhereMeansAreAlike)
{
    for (const std::uint64_t seed : {27U, 258U}) { // found by trying: two means are rounded to the same colour
        Random random(seed);
        ColorCounts counts;
        for (int i = 0; i < 60; ++i) {
            const auto r = static_cast<std::uint8_t>(random.below(6));
            const auto g = static_cast<std::uint8_t>(random.below(6));
            counts.add({r, g, static_cast<std::uint8_t>(random.below(6))}, 1);
        }
        std::set<std::uint32_t> keys;
        for (const RGBColor color : ScreenPalette::makeQuickly(counts.entries(), 19))
            keys.insert(Color24::key(color));
        EXPECT_EQ(keys.size(), 19U);
    }
}

/// A palette by splits alone, or by these and merging, then improved by k-means.
std::vector<RGBColor> simplePalette(const std::vector<ColorMoments>& points, std::size_t parts, std::size_t count)
{
    std::vector<RGBColor> palette;
    for (const ColorMoments& cluster : ColorClustering::merge(ColorClustering::split(points, parts), count))
        palette.push_back(cluster.mean());
    return KMeans::settle(points, palette, 40, {.threads = 1});
}

TEST(ScreenPalette, IsBetterThanWithoutAnyOfItsSteps)
{
    double split = 0;
    double merged = 0;
    double made = 0;
    double quick = 0;
    for (int i = 0; i < 6; ++i) {
        const RGBAFrame picture = i % 2 == 0
            ? support::gradient(40, 40, 7 * i)
            : support::picture(40, 40, [i](std::int64_t x, std::int64_t y) {
                  return RGBColor(static_cast<std::uint8_t>(x * x / 7), static_cast<std::uint8_t>(x * y / 7),
                      static_cast<std::uint8_t>((x + y) * (2 + i) / 4));
              });
        const std::vector<WeightedColor> colors = countedColors(picture);
        const std::vector<ColorMoments> points(colors.begin(), colors.end());
        split += reference::errorOf(points, simplePalette(points, 24, 24));
        merged += reference::errorOf(points, simplePalette(points, 1024, 24));
        made += reference::errorOf(points, ScreenPalette::make(colors, 24));
        quick += reference::errorOf(points, ScreenPalette::makeQuickly(colors, 24));
    }
    EXPECT_LT(made, 0.99 * merged) << "exchanging";
    EXPECT_LT(made, 0.98 * quick) << "exchanging, and merging more";
    EXPECT_LT(quick, 0.996 * split) << "merging";
}

TEST(ScreenPalette, IsTheSameWithAnyNumberOfThreads)
{
    Random random(10);
    const RGBAFrame picture = support::noise(200, 200, random); // more colours than are looked at one by one
    const std::vector<WeightedColor> colors = countedColors(picture);
    ASSERT_GT(colors.size(), 32768U);
    const std::vector<RGBColor> palette = ScreenPalette::make(colors, 40, {.threads = 1});
    EXPECT_EQ(palette, ScreenPalette::make(colors, 40, {.threads = 3}));
    const std::vector<ColorMoments> points(colors.begin(), colors.end());
    EXPECT_LT(reference::errorOf(points, palette),
        1.03 * reference::errorOf(points, KMeans::settle(points, palette, 5, {.threads = 3})))
        << "looking at each colour would make little difference";
}

TEST(ScreenPalette, ServesPicturesNearlyAsWellAsManyTriesOfTheBestKnownSearch)
{
    // k-means from 20 random starts, the best of them: what palettes of such small pictures can be.
    Random random(11);
    for (std::int64_t i = 0; i < support::iterations(10); ++i) {
        const std::vector<WeightedColor> colors = countedColors(support::gradient(24, 24, random.below(50)));
        const std::vector<ColorMoments> points(colors.begin(), colors.end());
        double best = std::numeric_limits<double>::max();
        for (int start = 0; start < 20; ++start) {
            std::vector<RGBColor> palette;
            for (int k = 0; k < 16; ++k)
                palette.push_back(colors[static_cast<std::size_t>(random.below(std::ssize(colors)))].color);
            best = std::min(best, reference::errorOf(points, KMeans::settle(points, palette, 30, {.threads = 1})));
        }
        EXPECT_LT(reference::errorOf(points, ScreenPalette::make(colors, 16)), 1.02 * best) << "picture " << i;
        EXPECT_LT(reference::errorOf(points, ScreenPalette::makeQuickly(colors, 16)), 1.1 * best) << "picture " << i;
    }
}

TEST(ScreenPalette, KeepsASmallDotOfAColourOfItsOwn)
{
    const RGBAFrame page = support::picture(400, 300, [](std::int64_t x, std::int64_t y) {
        const bool dot = x >= 200 && x < 203 && y >= 100 && y < 103;
        return dot ? RGBColor(229, 20, 20)
                   : RGBColor(static_cast<std::uint8_t>(100 + x / 4), 150, static_cast<std::uint8_t>(y / 2 + 80));
    });
    const std::vector<WeightedColor> colors = countedColors(page);
    ASSERT_GT(colors.size(), 10'000U);
    for (const std::int64_t maxColors : {16, 64, 256}) {
        EXPECT_THAT(ScreenPalette::make(colors, maxColors), Contains(RGBColor(229, 20, 20))) << maxColors;
        EXPECT_THAT(ScreenPalette::makeQuickly(colors, maxColors), Contains(RGBColor(229, 20, 20))) << maxColors;
    }
}

TEST(ScreenPalette, KeepsAColourThatIsShownForAMomentOnly)
{
    ColorCounts counts;
    for (int x = 0; x < 100; ++x) {
        for (int y = 0; y < 100; ++y)
            counts.add(RGBColor(static_cast<std::uint8_t>(100 + x), 150, static_cast<std::uint8_t>(80 + y)), 300);
    }
    const RGBColor link(0, 90, 255);
    counts.add(link, 1);
    for (const std::int64_t maxColors : {2, 32, 256})
        EXPECT_EQ(std::ranges::count(ScreenPalette::make(counts.entries(), maxColors), link), 1) << maxColors;
    EXPECT_EQ(ScreenPalette::make(counts.entries(), 1).size(), 1U) << "which is for the rest";
}

TEST(ScreenPaletteDeathTest, RejectsSizesThatNoColourTableHas)
{
    const std::vector<WeightedColor> colors{{gray(1), 1}};
    EXPECT_DEATH((void)ScreenPalette::make(colors, 0), "1 to 256 colours");
    EXPECT_DEATH((void)ScreenPalette::make(colors, 257), "1 to 256 colours");
}

} // namespace
} // namespace quillbox
