#include "Encoding/Precise/ScreenPalette.h"

#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace quillbox {
namespace {

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

TEST(ScreenPalette, HasNoMoreThanTheColoursAllowedAndNoneTwice)
{
    Random random(3);
    for (std::int64_t i = 0; i < support::iterations(200); ++i) {
        const RGBAFrame picture = support::randomPicture(1 + random.below(40), 1 + random.below(40), random);
        ColorCounts counts;
        const PixelView pixels = picture.pixels();
        counts.add({pixels.data(), pixels.size()}, 1 + random.below(10));
        const std::vector<WeightedColor> colors = counts.entries();
        const std::int64_t maxColors = 1 + random.below(256);
        for (const auto& palette :
            {ScreenPalette::make(colors, maxColors), ScreenPalette::makeQuickly(colors, maxColors)}) {
            std::set<std::uint32_t> keys;
            for (const RGBColor color : palette)
                EXPECT_TRUE(keys.insert(Color24::key(color)).second) << "picture " << i;
            EXPECT_GE(std::ssize(palette), 1);
            EXPECT_LE(std::ssize(palette), maxColors);
        }
    }
}

TEST(ScreenPaletteDeathTest, RejectsSizesThatNoColourTableHas)
{
    const std::vector<WeightedColor> colors{{gray(1), 1}};
    EXPECT_DEATH((void)ScreenPalette::make(colors, 0), "1 to 256 colours");
    EXPECT_DEATH((void)ScreenPalette::make(colors, 257), "1 to 256 colours");
}

} // namespace
} // namespace quillbox
