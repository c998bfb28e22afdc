#include "Encoding/Precise/Colors/NearestColors.h"

#include "Encoding/PaletteMapper.h"
#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

using support::gray;
using support::Random;

TEST(NearestColors, GivesTheNearestEntryAndTheLowestOfSeveral)
{
    NearestColors nearest({gray(10), gray(30), gray(10), gray(20)});
    EXPECT_EQ(nearest.index(gray(10)), 0);
    EXPECT_EQ(nearest.index(gray(24)), 3);
    EXPECT_EQ(nearest.index(gray(25)), 1) << "as far from 20 as from 30";
    EXPECT_EQ(nearest.index(gray(255)), 1);
    EXPECT_EQ(nearest.index(gray(24)), 3) << "remembered";
}

TEST(NearestColors, KnowsBlackFromTheStart)
{
    NearestColors nearest({gray(255), gray(0)});
    EXPECT_EQ(nearest.index(gray(0)), 1);
}

TEST(NearestColors, TellsNeighbouringColoursApart)
{
    NearestColors nearest({RGBColor(100, 100, 100), RGBColor(100, 100, 101), RGBColor(101, 100, 100)});
    EXPECT_EQ(nearest.index({100, 100, 101}), 1);
    EXPECT_EQ(nearest.index({101, 100, 100}), 2);
    EXPECT_EQ(nearest.index({100, 101, 100}), 0);
}

TEST(NearestColors, TakesTheLowestOfEquallyNearEntriesWhicheverIsNearerToOtherColoursAround)
{
    NearestColors nearest(
        {RGBColor(12, 16, 16), RGBColor(16, 20, 16)}); // the second one is nearer to most dark colours
    EXPECT_EQ(nearest.index({16, 16, 16}), 0);
    EXPECT_EQ(nearest.index({17, 16, 16}), 1);
}

TEST(NearestColors, RemembersMoreColoursThanItHasPlacesFor)
{
    Random random(12);
    const std::vector<RGBColor> palette = support::randomPalette(16, random);
    NearestColors nearest(palette);
    for (int round = 0; round < 2; ++round) {
        for (std::uint32_t i = 0; i < 40'000; ++i) {
            const RGBColor color(
                static_cast<std::uint8_t>(i), static_cast<std::uint8_t>(i >> 8U), static_cast<std::uint8_t>(i >> 5U));
            ASSERT_EQ(nearest.index(color), PaletteMapper::nearestIndexLinear(color, palette)) << i;
        }
    }
}

TEST(NearestColors, MapsEveryPixelLikeALinearSearch)
{
    Random random(2);
    for (std::int64_t i = 0; i < support::iterations(300); ++i) {
        const std::vector<RGBColor> palette = support::randomPalette(1 + random.below(256), random);
        NearestColors nearest(palette);
        for (int picture = 0; picture < 2; ++picture) {
            const RGBAFrame frame = support::randomPicture(1 + random.below(30), random.below(30), random);
            const PixelView pixels = frame.pixels();
            Bytes indices(static_cast<std::size_t>(frame.pixelCount()));
            nearest.map({pixels.data(), pixels.size()}, indices);
            for (std::size_t k = 0; k < indices.size(); ++k) {
                const RGBColor color(pixels[4 * k], pixels[4 * k + 1], pixels[4 * k + 2]);
                ASSERT_EQ(indices[k], PaletteMapper::nearestIndexLinear(color, palette)) << "picture " << i;
            }
        }
    }
}

TEST(NearestColorsDeathTest, RejectsBadPalettesAndSizes)
{
    EXPECT_DEATH(NearestColors({}), "1 to 256 colours");
    EXPECT_DEATH(NearestColors(std::vector<RGBColor>(257)), "1 to 256 colours");
    NearestColors nearest({gray(1)});
    Bytes indices(1);
    EXPECT_DEATH(nearest.map(Bytes(8, 0), indices), "four bytes per pixel");
}

} // namespace
} // namespace quillbox
