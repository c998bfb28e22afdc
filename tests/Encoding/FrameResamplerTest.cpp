#include "Encoding/FrameResampler.h"

#include "reference/FrameResampler.h"
#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace quillbox {
namespace {

using FrameResampler::boxFiltered;
using FrameResampler::cappedToWidth;
using FrameResampler::fittedSize;
using support::gray;
using support::Random;

RGBAFrame redRows(std::int64_t width, const std::vector<int>& reds)
{
    Bytes pixels;
    for (const int red : reds)
        pixels.insert(pixels.end(), {static_cast<std::uint8_t>(red), 0, 0, 255});
    return {width, std::ssize(reds) / width, std::move(pixels)};
}

std::vector<int> redsOf(const RGBAFrame& frame)
{
    std::vector<int> reds;
    frame.forEachColor([&](RGBColor color) { reds.push_back(color.r); });
    return reds;
}

RGBAFrame capped(const RGBAFrame& frame, std::int64_t maxWidth)
{
    return cappedToWidth(std::vector{frame}, maxWidth).at(0);
}

TEST(FittedSize, KeepsTheAspectRatio)
{
    EXPECT_EQ(fittedSize(1920, 1080, 960), (PixelSize{960, 540}));
    EXPECT_EQ(fittedSize(1000, 333, 960), (PixelSize{960, 320})); // 319.68
    EXPECT_EQ(fittedSize(4, 2, 2), (PixelSize{2, 1}));
    EXPECT_EQ(fittedSize(3, 3, 2), (PixelSize{2, 2}));
}

TEST(FittedSize, RoundsHalvesAwayFromZero)
{
    EXPECT_EQ(fittedSize(4, 1, 2), (PixelSize{2, 1})); // 0.5
    EXPECT_EQ(fittedSize(4, 3, 2), (PixelSize{2, 2})); // 1.5
    EXPECT_EQ(fittedSize(4, 5, 2), (PixelSize{2, 3})); // 2.5
}

TEST(FittedSize, DividesBeforeItMultiplies)
{
    // 960 ÷ 1408 · 11 is 7.499999999999999 in doubles in this order; 960 · 11 ÷ 1408 would be 7.5 and give 8.
    EXPECT_EQ(fittedSize(1408, 11, 960), (PixelSize{960, 7}));
}

TEST(FittedSize, IsAtLeastOneHigh)
{
    EXPECT_EQ(fittedSize(2000, 1, 960), (PixelSize{960, 1})); // 0.48
    EXPECT_EQ(fittedSize(65535, 1, 1), (PixelSize{1, 1}));
}

TEST(FittedSize, NarrowPicturesStay)
{
    EXPECT_EQ(fittedSize(960, 5000, 960), (PixelSize{960, 5000}));
    EXPECT_EQ(fittedSize(959, 1, 960), (PixelSize{959, 1}));
    EXPECT_EQ(fittedSize(0, 0, 960), (PixelSize{0, 0}));
    EXPECT_EQ(fittedSize(-4, 3, 960), (PixelSize{-4, 3}));
}

TEST(FittedSize, ImpossibleLimitsAndHeightsChangeNothing)
{
    EXPECT_EQ(fittedSize(100, 100, 0), (PixelSize{100, 100}));
    EXPECT_EQ(fittedSize(100, 100, -5), (PixelSize{100, 100}));
    EXPECT_EQ(fittedSize(100, 0, 50), (PixelSize{100, 0}));
    EXPECT_EQ(fittedSize(100, -1, 50), (PixelSize{100, -1}));
}

TEST(FittedSize, EqualsTheReference)
{
    Random random(71);
    for (std::int64_t i = support::iterations(100'000); i > 0; --i) {
        const std::int64_t width = random.between(-2, 65535);
        const std::int64_t height = random.between(-2, 65535);
        const std::int64_t maxWidth = random.pick<std::int64_t>({960, random.between(-2, 3000)});
        ASSERT_EQ(fittedSize(width, height, maxWidth), reference::fittedSize(width, height, maxWidth))
            << width << " × " << height << " at " << maxWidth;
    }
}

TEST(BoxFilter, AveragesBlocksAndTruncates)
{
    // (10 + 11 + 11 + 11) ÷ 4 = 10.75; (0 + 255 + 0 + 0) ÷ 4 = 63.75
    EXPECT_EQ(redsOf(capped(redRows(4, {10, 11, 0, 255, 11, 11, 0, 0}), 2)), (std::vector{10, 63}));
}

TEST(BoxFilter, UnevenSpansGrowTowardsTheEnd)
{
    // 3 to 2: columns [0,1) and [1,3), rows likewise; blocks of 1, 2, 2 and 4 pixels.
    const RGBAFrame frame = redRows(3, {10, 20, 31, 40, 50, 60, 71, 80, 92});
    const RGBAFrame shrunk = capped(frame, 2);
    EXPECT_EQ(shrunk.width(), 2);
    EXPECT_EQ(shrunk.height(), 2);
    // 10; (20+31) ÷ 2 = 25.5; (40+71) ÷ 2 = 55.5; (50+60+80+92) ÷ 4 = 70.5
    EXPECT_EQ(redsOf(shrunk), (std::vector{10, 25, 55, 70}));
}

TEST(BoxFilter, AveragesAllFourChannelsAlike)
{
    const RGBAFrame frame(2, 1, Bytes{10, 20, 30, 40, 13, 24, 35, 47});
    EXPECT_EQ(capped(frame, 1).pixels(), (Bytes{11, 22, 32, 43})); // 11.5, 22, 32.5, 43.5
}

TEST(BoxFilter, KeepsASolidPictureSolid)
{
    Random random(72);
    for (const int level : {0, 1, 127, 254, 255})
        EXPECT_EQ(capped(support::solid(97, 61, gray(level)), 13), support::solid(13, 8, gray(level)));
}

TEST(BoxFilter, AtTheSameSizeCopies)
{
    Random random(73);
    const RGBAFrame frame = support::noise(9, 5, random);
    EXPECT_EQ(boxFiltered(frame, {9, 5}), frame);
}

TEST(BoxFilterDeathTest, NeverEnlarges)
{
    EXPECT_DEATH((void)boxFiltered(support::solid(2, 2, gray(0)), {3, 2}), "broken invariant");
    EXPECT_DEATH((void)boxFiltered(support::solid(2, 2, gray(0)), {2, 3}), "broken invariant");
    EXPECT_DEATH((void)boxFiltered(support::solid(2, 2, gray(0)), {-1, 2}), "broken invariant");
}

TEST(BoxFilter, EqualsTheReferenceForEverySizeUpToTwelve)
{
    Random random(74);
    for (std::int64_t width = 1; width <= 12; ++width) {
        for (std::int64_t height = 1; height <= 12; ++height) {
            const RGBAFrame frame = support::noise(width, height, random);
            for (std::int64_t newWidth = 1; newWidth <= width; ++newWidth) {
                for (std::int64_t newHeight = 1; newHeight <= height; ++newHeight)
                    ASSERT_EQ(boxFiltered(frame, {newWidth, newHeight}),
                        reference::boxFiltered(frame, {newWidth, newHeight}));
            }
        }
    }
}

TEST(BoxFilter, EqualsTheReferenceForRandomSizes)
{
    Random random(75);
    ForkJoinThread side;
    for (std::int64_t i = support::iterations(1500); i > 0; --i) {
        const std::int64_t width = random.between(1, 150);
        const std::int64_t height = random.between(1, 80);
        const RGBAFrame frame = support::randomPicture(width, height, random);
        const PixelSize size{random.between(1, width), random.between(1, height)};
        ASSERT_EQ(boxFiltered(frame, size), reference::boxFiltered(frame, size));
        ASSERT_EQ(boxFiltered(frame, size, &side), reference::boxFiltered(frame, size));
    }
}

TEST(BoxFilter, EqualsTheReferenceForBrightAndDarkBlocksOfEveryArea)
{
    // Sums that are a multiple of the count, one less and one more: where a shortcut for the division would go wrong.
    for (std::int64_t length = 1; length <= 400; ++length) {
        for (const int level : {254, 255}) {
            Bytes pixels(static_cast<std::size_t>(length * 4), static_cast<std::uint8_t>(level));
            pixels.front() = static_cast<std::uint8_t>(level - 1);
            pixels[1] = level == 254 ? 255 : 0;
            const RGBAFrame row(length, 1, pixels);
            ASSERT_EQ(boxFiltered(row, {1, 1}), reference::boxFiltered(row, {1, 1})) << length;
            const RGBAFrame column(1, length, pixels);
            ASSERT_EQ(boxFiltered(column, {1, 1}), reference::boxFiltered(column, {1, 1})) << length;
        }
    }
}

TEST(BoxFilter, EqualsTheReferenceForAWholePictureInOnePixel)
{
    Random random(76);
    const RGBAFrame frame = support::noise(1500, 700, random);
    EXPECT_EQ(boxFiltered(frame, {1, 1}), reference::boxFiltered(frame, {1, 1}));
    EXPECT_EQ(boxFiltered(frame, {2, 3}), reference::boxFiltered(frame, {2, 3}));
}

TEST(BoxFilter, ABlockOfMoreThanSixteenMillionPixelsHasItsMeanToo)
{
    constexpr std::int64_t width = 4096;
    constexpr std::int64_t bands = 129;
    static_assert(width * RGBAFrame::rowsPerBand * bands > 0xFFFF'FFFF / 255, "the sums do not fit 32 bits");
    Bytes pixels;
    for (std::int64_t i = 0; i < width * RGBAFrame::rowsPerBand; ++i)
        pixels.insert(pixels.end(), {255, static_cast<std::uint8_t>(254 + i % 2), 7, 255});
    const auto band = std::make_shared<const PixelBand>(std::move(pixels));
    const auto frame = RGBAFrame::ofBands(
        width, RGBAFrame::rowsPerBand * bands, std::vector<RGBAFrame::Band>(static_cast<std::size_t>(bands), band));
    EXPECT_EQ(boxFiltered(frame, {1, 1}), RGBAFrame(1, 1, Bytes{255, 254, 7, 255}));
    EXPECT_EQ(capped(frame, 1), RGBAFrame(1, 1, Bytes{255, 254, 7, 255}));
}

TEST(CappedToWidth, WithoutALimitAllFramesPassShared)
{
    const std::vector frames{support::solid(2000, 2, gray(1)), support::solid(3, 2, gray(2))};
    const std::vector<RGBAFrame> result = cappedToWidth(frames, std::nullopt);
    ASSERT_EQ(result, frames);
    EXPECT_TRUE(result[0].sharesPixels(frames[0]));
    EXPECT_TRUE(result[1].sharesPixels(frames[1]));
}

TEST(CappedToWidth, NarrowFirstFramesLetAllPass)
{
    // The second frame is wider than the limit, but only the first one decides.
    const std::vector frames{support::solid(960, 2, gray(1)), support::solid(2000, 2, gray(2))};
    const std::vector<RGBAFrame> result = cappedToWidth(frames, 960);
    ASSERT_EQ(result, frames);
    EXPECT_TRUE(result[1].sharesPixels(frames[1]));
}

TEST(CappedToWidth, NoFramesStayNone)
{
    EXPECT_THAT(cappedToWidth({}, 960), testing::IsEmpty());
}

TEST(CappedToWidth, AStripKeepsARow)
{
    const RGBAFrame shrunk = capped(support::solid(2000, 1, gray(9)), 960);
    EXPECT_EQ(shrunk.width(), 960);
    EXPECT_EQ(shrunk.height(), 1);
}

TEST(CappedToWidth, SmallerLaterFramesPassShared)
{
    const std::vector frames{
        support::solid(8, 4, gray(1)), support::solid(4, 2, gray(2)), support::solid(1, 1, gray(3))};
    const std::vector<RGBAFrame> result = cappedToWidth(frames, 4);
    EXPECT_EQ(result[0], support::solid(4, 2, gray(1)));
    EXPECT_TRUE(result[1].sharesPixels(frames[1]));
    EXPECT_TRUE(result[2].sharesPixels(frames[2]));
}

TEST(CappedToWidth, LaterFramesAreCutInTheSideThatIsTooLong)
{
    const std::vector frames{
        support::solid(8, 4, gray(1)), support::solid(3, 9, gray(2)), support::solid(9, 1, gray(3))};
    const std::vector<RGBAFrame> result = cappedToWidth(frames, 4);
    EXPECT_EQ(result[1], support::solid(3, 2, gray(2)));
    EXPECT_EQ(result[2], support::solid(4, 1, gray(3)));
}

TEST(CappedToWidth, AnImpossibleLimitShrinksLaterFramesToTheFirst)
{
    const std::vector frames{support::solid(4, 4, gray(1)), support::solid(8, 8, gray(2))};
    const std::vector<RGBAFrame> result = cappedToWidth(frames, 0);
    EXPECT_TRUE(result[0].sharesPixels(frames[0]));
    EXPECT_EQ(result[1], support::solid(4, 4, gray(2)));
}

TEST(CappedToWidth, AFirstFrameWithoutHeightLetsAllPass)
{
    const std::vector frames{RGBAFrame(2000, 0, Bytes()), support::solid(2000, 3, gray(2))};
    EXPECT_EQ(cappedToWidth(frames, 960), frames);
}

TEST(CappedToWidth, EqualsTheReference)
{
    Random random(77);
    for (std::int64_t i = support::iterations(1500); i > 0; --i) {
        std::vector<RGBAFrame> frames;
        for (std::int64_t count = random.below(5); count > 0; --count)
            frames.push_back(support::randomPicture(random.below(40), random.below(40), random));
        const std::int64_t maxWidth = random.between(-1, 45);
        ASSERT_EQ(cappedToWidth(frames, maxWidth, {static_cast<int>(random.between(1, 8))}),
            reference::cappedToWidth(frames, maxWidth));
    }
}

TEST(CappedToWidth, EqualsTheReferenceForScreenSizes)
{
    Random random(78);
    const std::vector frames{
        support::textLike(1920, 300, 0), support::gradient(1367, 211, 4), support::noise(1025, 99, random)};
    for (const RGBAFrame& frame : frames)
        EXPECT_EQ(cappedToWidth(std::vector{frame}, 960), reference::cappedToWidth(std::vector{frame}, 960));
}

} // namespace
} // namespace quillbox
