#include "Encoding/PaletteMapper.h"

#include "reference/PaletteMapper.h"
#include "reference/PaletteQuantizer.h"
#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace quillbox {
namespace {

using PaletteMapper::map;
using PaletteMapper::mapDithered;
using PaletteMapper::nearestIndexLinear;
using support::gray;
using support::Random;
using testing::Each;
using testing::ElementsAre;

RGBAFrame grayRows(std::int64_t width, const std::vector<int>& levels)
{
    std::vector<RGBColor> colors;
    for (const int level : levels)
        colors.push_back(gray(level));
    return support::rows(width, colors);
}

std::vector<RGBColor> grays(const std::vector<int>& levels)
{
    std::vector<RGBColor> palette;
    for (const int level : levels)
        palette.push_back(gray(level));
    return palette;
}

Bytes dithered(const RGBAFrame& frame, const std::vector<RGBColor>& palette)
{
    return mapDithered(frame, NearestColorLUT(palette), 1).indices;
}

TEST(NearestIndexLinear, FindsTheNearestEntry)
{
    const std::vector<RGBColor> palette{{0, 0, 0}, {255, 0, 0}, {0, 255, 0}, {0, 0, 255}};
    EXPECT_EQ(nearestIndexLinear(RGBColor(200, 30, 30), palette), 1);
    EXPECT_EQ(nearestIndexLinear(RGBColor(30, 200, 30), palette), 2);
    EXPECT_EQ(nearestIndexLinear(RGBColor(30, 30, 200), palette), 3);
    EXPECT_EQ(nearestIndexLinear(RGBColor(30, 30, 30), palette), 0);
}

TEST(NearestIndexLinear, TakesTheLowestOfEquallyNearEntries)
{
    EXPECT_EQ(nearestIndexLinear(gray(10), grays({12, 8, 12, 8})), 0);
    EXPECT_EQ(nearestIndexLinear(gray(10), grays({0, 10, 10})), 1);
    EXPECT_EQ(
        nearestIndexLinear(RGBColor(5, 0, 0), std::vector{RGBColor(5, 3, 0), RGBColor(5, 0, 3), RGBColor(2, 0, 0)}), 0);
}

TEST(NearestIndexLinear, AnEmptyPaletteGivesZero)
{
    EXPECT_EQ(nearestIndexLinear(gray(100), {}), 0);
}

TEST(NearestIndexLinear, SearchesPalettesOfAnyLength)
{
    std::vector<RGBColor> palette(400, gray(0));
    palette[399] = gray(200);
    EXPECT_EQ(nearestIndexLinear(gray(210), palette), 399);
}

TEST(NearestColorLUT, OneColorIsNearestToEverything)
{
    EXPECT_THAT(NearestColorLUT({RGBColor(9, 200, 77)}).table(), Each(0));
}

TEST(NearestColorLUT, AnEmptyPaletteMapsEverythingToZero)
{
    EXPECT_THAT(NearestColorLUT({}).table(), Each(0));
    EXPECT_THAT(NearestColorLUT({}).palette(), testing::IsEmpty());
}

TEST(NearestColorLUT, KeepsThePaletteAsItWasGiven)
{
    const std::vector<RGBColor> palette = grays({3, 1, 2});
    EXPECT_EQ(NearestColorLUT(palette).palette(), palette);
}

TEST(NearestColorLUT, KnowsTheCornersOfTheGrid)
{
    const NearestColorLUT lut(grays({255, 0}));
    EXPECT_EQ(lut.table().at(0), 1);
    EXPECT_EQ(lut.table().at(32767), 0);
    EXPECT_EQ(lut.indexFast(255, 255, 255), 0);
    EXPECT_EQ(lut.index(RGBColor(0, 0, 0)), 1);
}

TEST(NearestColorLUT, LevelsFrom248ShareTheGridLevel255)
{
    // 251 is nearer to 248 than to 255, but what is looked up is the grid colour 255.
    const NearestColorLUT lut(grays({248, 255}));
    for (int level = 248; level < 256; ++level)
        EXPECT_EQ(lut.index(gray(level)), 1) << level;
    EXPECT_EQ(lut.index(gray(247)), 0);
}

TEST(NearestColorLUT, TakesTheLowestOfEquallyNearEntries)
{
    const NearestColorLUT lut(grays({12, 4, 12, 4, 8})); // the grid level 8 lies between 4 and 12, and is an entry
    EXPECT_EQ(lut.index(gray(8)), 4);
    const NearestColorLUT without(grays({12, 4, 12, 4}));
    EXPECT_EQ(without.index(gray(8)), 0);
}

TEST(NearestColorLUT, TellsTheChannelsApart)
{
    const NearestColorLUT lut({{255, 0, 0}, {0, 255, 0}, {0, 0, 255}});
    EXPECT_EQ(lut.indexFast(250, 3, 3), 0);
    EXPECT_EQ(lut.indexFast(3, 250, 3), 1);
    EXPECT_EQ(lut.indexFast(3, 3, 250), 2);
}

TEST(NearestColorLUT, EveryEntryEqualsTheReference)
{
    Random random(31);
    std::vector<std::int64_t> sizes{0, 1, 2, 3, 255, 256};
    for (std::int64_t i = support::iterations(30); i > 0; --i)
        sizes.push_back(random.between(1, 256));
    for (const std::int64_t size : sizes) {
        const std::vector<RGBColor> palette = support::randomPalette(size, random);
        const NearestColorLUT lut(palette);
        for (int key = 0; key < Color15::keyCount; ++key)
            ASSERT_EQ(lut.table().at(static_cast<std::size_t>(key)),
                reference::nearestIndex(reference::gridColor(key), palette))
                << "key " << key << ", " << size << " colours";
    }
}

TEST(NearestColorLUTDeathTest, RejectsMoreThan256Colors)
{
    EXPECT_DEATH(NearestColorLUT(std::vector<RGBColor>(257)), "256");
}

TEST(Map, LooksUpEveryPixelInStorageOrder)
{
    const RGBAFrame frame(2, 2, Bytes{255, 0, 0, 1, 0, 255, 0, 2, 0, 0, 255, 3, 250, 5, 5, 4});
    const std::vector<RGBColor> palette{{255, 0, 0}, {0, 255, 0}, {0, 0, 255}};
    const IndexedFrame expected{2, 2, palette, Bytes{0, 1, 2, 0}, 17};
    EXPECT_EQ(map(frame, NearestColorLUT(palette), 17), expected);
}

TEST(Map, IntoAnArrayReplacesWhatItHeld)
{
    const NearestColorLUT lut(grays({0, 255}));
    Bytes indices{9, 9, 9, 9, 9};
    PaletteMapper::mapInto(indices, support::row(grays({3, 250, 4})), lut);
    EXPECT_THAT(indices, ElementsAre(0, 1, 0));
    PaletteMapper::mapInto(indices, RGBAFrame(0, 0, Bytes()), lut);
    EXPECT_THAT(indices, testing::IsEmpty());
}

TEST(Map, AnEmptyPictureHasNoIndices)
{
    const NearestColorLUT lut(grays({1, 2}));
    EXPECT_EQ(map(RGBAFrame(0, 0, Bytes()), lut, 3), (IndexedFrame{0, 0, lut.palette(), {}, 3}));
    EXPECT_EQ(map(RGBAFrame(5, 0, Bytes()), lut, 3), (IndexedFrame{5, 0, lut.palette(), {}, 3}));
}

TEST(Map, AnEmptyPaletteGivesZeros)
{
    EXPECT_THAT(map(support::solid(3, 2, gray(9)), NearestColorLUT({}), 1).indices, ElementsAre(0, 0, 0, 0, 0, 0));
}

TEST(Map, PassesOnAnyDelay)
{
    const NearestColorLUT lut(grays({1}));
    for (const std::int64_t delay : {std::int64_t{0}, std::int64_t{-4}, std::int64_t{70'000},
             std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
        EXPECT_EQ(map(support::solid(1, 1, gray(9)), lut, delay).delayCentiseconds, delay);
        EXPECT_EQ(mapDithered(support::solid(1, 1, gray(9)), lut, delay).delayCentiseconds, delay);
    }
}

TEST(MapDithered, OnePixelEqualsPlainMapping)
{
    const NearestColorLUT lut(grays({0, 100, 200}));
    for (int level = 0; level < 256; ++level) {
        const RGBAFrame frame = support::solid(1, 1, gray(level));
        EXPECT_EQ(mapDithered(frame, lut, 5), map(frame, lut, 5));
    }
}

TEST(MapDithered, OneColorGivesZeros)
{
    Random random(32);
    EXPECT_THAT(dithered(support::noise(20, 20, random), {RGBColor(250, 3, 9)}), Each(0));
}

TEST(MapDithered, AnEmptyPictureHasNoIndicesEvenWithoutAPalette)
{
    EXPECT_THAT(mapDithered(RGBAFrame(0, 4, Bytes()), NearestColorLUT({}), 1).indices, testing::IsEmpty());
    EXPECT_THAT(dithered(RGBAFrame(0, 0, Bytes()), grays({1})), testing::IsEmpty());
}

TEST(MapDitheredDeathTest, AnEmptyPaletteEndsTheProcess)
{
    EXPECT_DEATH((void)mapDithered(support::solid(1, 1, gray(0)), NearestColorLUT({}), 1), "broken invariant");
}

// The shares of one error of −15, seen through levels at the border between the grid cells 15 (levels 120…127, grid
// colour 123) and 16 (128…135, grid colour 132). The palette is 15, 123, 132. The pixel (1, 0) of level 0 has the
// nearest colour 15, hence the error −15; every other pixel is 15 after its share, and so has no error to pass on,
// except the one under test, which lies around the border.
class ErrorOfMinus15 : public testing::Test {
protected:
    static constexpr int right = 2;
    static constexpr int belowLeft = 3;
    static constexpr int below = 4;
    static constexpr int belowRight = 5;

    /// The index that a pixel of `level` at `place` gets.
    static int indexAt(int place, int level)
    {
        std::vector<int> levels{15, 0, 15 + 6, 15 + 2, 15 + 4, 15};
        levels.at(static_cast<std::size_t>(place)) = level;
        return dithered(grayRows(3, levels), grays({15, 123, 132})).at(static_cast<std::size_t>(place));
    }
};

TEST_F(ErrorOfMinus15, GivesMinus6ToTheRight) // −105 ÷ 16 = −6.56
{
    EXPECT_EQ(indexAt(right, 128 + 5), 1);
    EXPECT_EQ(indexAt(right, 128 + 6), 2);
}

TEST_F(ErrorOfMinus15, GivesMinus2BelowLeft) // −45 ÷ 16 = −2.81
{
    EXPECT_EQ(indexAt(belowLeft, 128 + 1), 1);
    EXPECT_EQ(indexAt(belowLeft, 128 + 2), 2);
}

TEST_F(ErrorOfMinus15, GivesMinus4Below) // −75 ÷ 16 = −4.69
{
    EXPECT_EQ(indexAt(below, 128 + 3), 1);
    EXPECT_EQ(indexAt(below, 128 + 4), 2);
}

TEST_F(ErrorOfMinus15, GivesNothingBelowRight) // −15 ÷ 16 = −0.94
{
    EXPECT_EQ(indexAt(belowRight, 127), 1);
    EXPECT_EQ(indexAt(belowRight, 128), 2);
}

TEST(MapDithered, PositiveSharesAreTruncatedToo)
{
    // Level 15 has the grid colour 8, nearest to 0, and an error of 15: 105 ÷ 16 = 6 to the right.
    EXPECT_THAT(dithered(grayRows(2, {15, 121}), grays({0, 123, 132})), ElementsAre(0, 1)); // 127
    EXPECT_THAT(dithered(grayRows(2, {15, 122}), grays({0, 123, 132})), ElementsAre(0, 2)); // 128
}

TEST(MapDithered, TheErrorIsTakenFromTheUnclampedValue)
{
    // Palette 0 and 255, border between the levels 127 and 128. 127 → 0, error 127, 889 ÷ 16 = 55 to the right:
    // 255 + 55 = 310 is looked up as 255, its error is 310 − 255 = 55, and 385 ÷ 16 = 24 goes on.
    EXPECT_THAT(dithered(grayRows(3, {127, 255, 104}), grays({0, 255})), ElementsAre(0, 1, 1)); // 104 + 24 = 128
    EXPECT_THAT(dithered(grayRows(3, {127, 255, 103}), grays({0, 255})), ElementsAre(0, 1, 0)); // 103 + 24 = 127
}

TEST(MapDithered, AnUndershootIsCarriedOnInFull)
{
    // 128 → 255, error −127, −889 ÷ 16 = −55: 0 − 55 is looked up as 0, its error is −55, and −385 ÷ 16 = −24 goes on.
    EXPECT_THAT(dithered(grayRows(3, {128, 0, 151}), grays({0, 255})), ElementsAre(1, 0, 0)); // 151 − 24 = 127
    EXPECT_THAT(dithered(grayRows(3, {128, 0, 152}), grays({0, 255})), ElementsAre(1, 0, 1)); // 152 − 24 = 128
}

TEST(MapDithered, AColumnPassesFiveSixteenthsDownOnly)
{
    // 127 → 0, error 127, 635 ÷ 16 = 39 down; 88 + 39 = 127 → 0 again, and once more.
    EXPECT_THAT(dithered(grayRows(1, {127, 88, 88}), grays({0, 255})), ElementsAre(0, 0, 0));
    EXPECT_THAT(dithered(grayRows(1, {127, 89, 88}), grays({0, 255})), ElementsAre(0, 1, 0));
}

TEST(MapDithered, SharesThatLeaveThePictureAreDropped)
{
    // The right pixel's error of 127 has no right neighbour: below it gets 39, below-left 381 ÷ 16 = 23, and nothing
    // wraps to the first pixel of the next row beyond that. Level 0 has no error.
    EXPECT_THAT(dithered(grayRows(2, {0, 127, 104, 0}), grays({0, 255})), ElementsAre(0, 0, 0, 0)); // 104 + 23 = 127
    EXPECT_THAT(dithered(grayRows(2, {0, 127, 105, 0}), grays({0, 255})), ElementsAre(0, 0, 1, 0)); // 105 + 23 = 128
}

TEST(MapDithered, RowsAreScannedFromTheLeftEachTime)
{
    // In the second row the left pixel's error of 127 moves the right one by 55; scanned from the right, the right
    // pixel would be looked up first, unmoved, as 0.
    EXPECT_THAT(dithered(grayRows(2, {0, 0, 127, 73}), grays({0, 255})), ElementsAre(0, 0, 0, 1)); // 73 + 55 = 128
}

TEST(MapDithered, ChannelsDoNotMix)
{
    // Only green has an error (127); blue and red of the right pixel stay just below their borders.
    const std::vector<RGBColor> palette{{0, 0, 0}, {0, 255, 0}, {255, 0, 0}, {0, 0, 255}};
    const RGBAFrame frame = support::row(std::vector{RGBColor(0, 127, 0), RGBColor(0, 73, 0)});
    EXPECT_THAT(dithered(frame, palette), ElementsAre(0, 1));
    const RGBAFrame other = support::row(std::vector{RGBColor(0, 127, 0), RGBColor(73, 0, 0)});
    EXPECT_THAT(dithered(other, palette), ElementsAre(0, 0));
}

TEST(MapDithered, AlphaHasNoInfluence)
{
    Random random(33);
    const RGBAFrame frame = support::noise(17, 9, random);
    Bytes opaque(frame.pixels());
    for (std::size_t offset = 3; offset < opaque.size(); offset += 4)
        opaque[offset] = 255;
    const NearestColorLUT lut(support::randomPalette(12, random));
    EXPECT_EQ(mapDithered(frame, lut, 1), mapDithered(RGBAFrame(17, 9, opaque), lut, 1));
    EXPECT_EQ(map(frame, lut, 1), map(RGBAFrame(17, 9, opaque), lut, 1));
}

void expectReference(const RGBAFrame& frame, const std::vector<RGBColor>& palette)
{
    const NearestColorLUT lut(palette);
    ASSERT_EQ(map(frame, lut, 9), reference::map(frame, palette, 9)) << frame.width() << " × " << frame.height();
    ASSERT_EQ(mapDithered(frame, lut, 9), reference::mapDithered(frame, palette, 9))
        << frame.width() << " × " << frame.height() << ", " << palette.size() << " colours";
}

TEST(PaletteMapper, EqualsTheReferenceForEverySmallSize)
{
    Random random(34);
    for (std::int64_t height = 0; height <= 36; ++height) {
        for (std::int64_t width = 0; width <= 36; ++width)
            expectReference(
                support::randomPicture(width, height, random), support::randomPalette(random.between(1, 8), random));
    }
}

TEST(PaletteMapper, EqualsTheReferenceForThousandsOfRandomPictures)
{
    Random random(35);
    for (std::int64_t i = support::iterations(1500); i > 0; --i) {
        expectReference(support::randomPicture(random.between(1, 140), random.between(1, 80), random),
            support::randomPalette(random.pick<std::int64_t>({1, 2, 3, 16, 64, 256}), random));
    }
}

TEST(PaletteMapper, EqualsTheReferenceWhenErrorsGrowWithoutEnd)
{
    // Every pixel is white and every colour black (or the reverse), so each row inherits all errors of the rows above:
    // after 1500 rows they are hundreds of thousands of levels large. The stripe shows the moment they are used.
    for (const RGBColor picture : {gray(255), gray(0)}) {
        const RGBColor wrong = gray(255 - picture.r);
        for (const std::int64_t width : {2, 3, 17, 40})
            expectReference(support::solid(width, 1500, picture), {wrong, gray(wrong.r == 0 ? 1 : 254)});
        const RGBAFrame striped = support::picture(24, 900, [&](std::int64_t x, std::int64_t y) {
            return y < 600 ? picture : RGBColor(wrong.r, static_cast<std::uint8_t>(x * 10), picture.b);
        });
        expectReference(striped, {wrong, RGBColor(128, 128, 128), RGBColor(wrong.r, 100, wrong.b)});
    }
}

TEST(PaletteMapper, EqualsTheReferenceWhenErrorsGrowAndFallAgain)
{
    // White rows are 127 levels too bright for the palette and leave that behind for the next row; black ones take it
    // back. So the errors wander between a few and many thousand levels.
    Random random(39);
    for (std::int64_t i = support::iterations(40); i > 0; --i) {
        std::vector<RGBColor> rowColors;
        while (rowColors.size() < 400) {
            const RGBColor color(random.oneIn(2) ? 255 : 0, random.oneIn(2) ? 255 : 0, random.oneIn(3) ? 255 : 40);
            rowColors.insert(rowColors.end(), static_cast<std::size_t>(random.between(1, 90)), color);
        }
        const RGBAFrame frame = support::picture(random.between(1, 100), 400,
            [&](std::int64_t, std::int64_t y) { return rowColors[static_cast<std::size_t>(y)]; });
        expectReference(frame, {gray(0), gray(128), RGBColor(128, 0, 0), RGBColor(0, 128, 0), RGBColor(0, 0, 128)});
    }
}

TEST(PaletteMapper, EqualsTheReferenceForTheTallestAndWidestPictures)
{
    Random random(36);
    expectReference(support::solid(2, 65535, gray(255)), grays({0, 1}));
    expectReference(support::noise(1, 65535, random), grays({0, 90}));
    expectReference(support::noise(65535, 2, random), grays({0, 90}));
}

TEST(PaletteMapper, EqualsTheReferenceForLargePictures)
{
    Random random(37);
    for (const RGBAFrame& frame :
        {support::textLike(333, 241, 3), support::gradient(333, 241, 77), support::noise(333, 241, random)}) {
        const std::vector frames{frame};
        expectReference(frame, reference::quantize(reference::histogram(frames), 16));
        expectReference(frame, reference::quantize(reference::histogram(frames), 256));
    }
}

} // namespace
} // namespace quillbox
