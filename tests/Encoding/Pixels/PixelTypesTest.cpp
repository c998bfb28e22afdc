#include "Encoding/Pixels/PixelTypes.h"

#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <unordered_set>

namespace quillbox {
namespace {

using support::gray;

std::vector<RGBColor> visitedColors(const RGBAFrame& frame)
{
    std::vector<RGBColor> colors;
    frame.forEachColor([&](RGBColor color) { colors.push_back(color); });
    return colors;
}

TEST(RGBAFrame, MayBeEmpty)
{
    const RGBAFrame frame(0, 0, Bytes());
    EXPECT_EQ(frame.pixelCount(), 0);
    EXPECT_THAT(visitedColors(frame), testing::IsEmpty());
}

TEST(RGBAFrame, MayHaveOneSideOfZero)
{
    EXPECT_EQ(RGBAFrame(7, 0, Bytes()).pixelCount(), 0);
    EXPECT_EQ(RGBAFrame(0, 7, Bytes()).height(), 7);
}

TEST(RGBAFrame, KeepsItsSizeAndItsBytes)
{
    const Bytes pixels{1, 2, 3, 4, 5, 6, 7, 8};
    const RGBAFrame frame(2, 1, pixels);
    EXPECT_EQ(frame.width(), 2);
    EXPECT_EQ(frame.height(), 1);
    EXPECT_EQ(frame.pixelCount(), 2);
    EXPECT_EQ(frame.pixels(), pixels);
}

TEST(RGBAFrame, VisitsColorsInStorageOrderWithoutAlpha)
{
    const RGBAFrame frame(2, 2, Bytes{1, 2, 3, 99, 4, 5, 6, 98, 7, 8, 9, 97, 10, 11, 12, 96});
    EXPECT_THAT(visitedColors(frame),
        testing::ElementsAre(RGBColor(1, 2, 3), RGBColor(4, 5, 6), RGBColor(7, 8, 9), RGBColor(10, 11, 12)));
}

TEST(RGBAFrame, ACopySharesItsPixels)
{
    const RGBAFrame frame = support::solid(3, 2, gray(5));
    const RGBAFrame copy = frame; // NOLINT(performance-unnecessary-copy-initialization): the copy is what is tested
    EXPECT_TRUE(copy.sharesPixels(frame));
    EXPECT_EQ(copy, frame);
}

TEST(RGBAFrame, EqualBytesInOtherStorageAreEqual)
{
    const RGBAFrame frame = support::solid(3, 2, gray(5));
    const RGBAFrame other = support::deepCopy(frame);
    EXPECT_FALSE(other.sharesPixels(frame));
    EXPECT_EQ(other, frame);
}

TEST(RGBAFrame, DiffersByOneByteEvenOfAlpha)
{
    EXPECT_NE(RGBAFrame(1, 1, Bytes{1, 2, 3, 4}), RGBAFrame(1, 1, Bytes{1, 2, 3, 5}));
    EXPECT_NE(RGBAFrame(1, 1, Bytes{1, 2, 3, 4}), RGBAFrame(1, 1, Bytes{0, 2, 3, 4}));
}

TEST(RGBAFrame, DiffersByItsShape)
{
    EXPECT_NE(RGBAFrame(2, 1, Bytes(8, 0)), RGBAFrame(1, 2, Bytes(8, 0)));
    EXPECT_NE(RGBAFrame(0, 1, Bytes()), RGBAFrame(1, 0, Bytes()));
}

TEST(RGBAFrameDeathTest, RejectsAMissingByte)
{
    EXPECT_DEATH(RGBAFrame(1, 1, Bytes(3, 0)), "four bytes per pixel");
}

TEST(RGBAFrameDeathTest, RejectsASurplusByte)
{
    EXPECT_DEATH(RGBAFrame(1, 1, Bytes(5, 0)), "four bytes per pixel");
    EXPECT_DEATH(RGBAFrame(0, 0, Bytes(1, 0)), "four bytes per pixel");
}

TEST(RGBAFrameDeathTest, RejectsANegativeArea)
{
    EXPECT_DEATH(RGBAFrame(-1, 1, Bytes(4, 0)), "four bytes per pixel");
}

TEST(RGBAFrameDeathTest, NoticesThatTheSizeOverflows)
{
    // 2^32 · 2^32 · 4 = 2^66 would be 0 in 64 bits, as many as no bytes at all.
    constexpr std::int64_t huge = std::int64_t{1} << 32U;
    EXPECT_DEATH(RGBAFrame(huge, huge, Bytes()), "a product fits");
    EXPECT_DEATH(RGBAFrame(std::int64_t{1} << 62U, 1, Bytes()), "a product fits");
}

TEST(RGBColor, DistanceIsTheSquaredEuclideanOne)
{
    EXPECT_EQ(RGBColor(0, 0, 0).distanceSquared(RGBColor(255, 255, 255)), 3 * 255 * 255);
    EXPECT_EQ(RGBColor(255, 255, 255).distanceSquared(RGBColor(0, 0, 0)), 3 * 255 * 255);
    EXPECT_EQ(RGBColor(10, 20, 30).distanceSquared(RGBColor(11, 18, 33)), 1 + 4 + 9);
    EXPECT_EQ(RGBColor(77, 88, 99).distanceSquared(RGBColor(77, 88, 99)), 0);
}

TEST(RGBColor, DistanceWeighsAllChannelsAlike)
{
    const RGBColor black;
    EXPECT_EQ(black.distanceSquared(RGBColor(9, 0, 0)), 81);
    EXPECT_EQ(black.distanceSquared(RGBColor(0, 9, 0)), 81);
    EXPECT_EQ(black.distanceSquared(RGBColor(0, 0, 9)), 81);
}

TEST(RGBColor, EveryChannelDecidesEquality)
{
    EXPECT_EQ(RGBColor(1, 2, 3), RGBColor(1, 2, 3));
    EXPECT_NE(RGBColor(1, 2, 3), RGBColor(0, 2, 3));
    EXPECT_NE(RGBColor(1, 2, 3), RGBColor(1, 0, 3));
    EXPECT_NE(RGBColor(1, 2, 3), RGBColor(1, 2, 0));
    EXPECT_NE(RGBColor(1, 2, 3), RGBColor(3, 2, 1));
}

TEST(RGBColor, HashesDependOnEachChannelAndOnTheirOrder)
{
    const std::hash<RGBColor> hash;
    EXPECT_EQ(hash(RGBColor(1, 2, 3)), hash(RGBColor(1, 2, 3)));
    const std::vector<RGBColor> colors{{1, 2, 3}, {3, 2, 1}, {1, 2, 4}, {1, 3, 3}, {2, 2, 3}, {0, 0, 0}};
    std::unordered_set<std::size_t> hashes;
    for (const RGBColor color : colors)
        hashes.insert(hash(color));
    EXPECT_EQ(hashes.size(), colors.size());
}

TEST(RGBColor, IsAKeyOfHashedContainers)
{
    std::unordered_set<RGBColor> colors{{1, 2, 3}, {3, 2, 1}, {1, 2, 3}};
    EXPECT_EQ(colors.size(), 2U);
    EXPECT_TRUE(colors.contains(RGBColor(3, 2, 1)));
    EXPECT_FALSE(colors.contains(RGBColor(2, 1, 3)));
}

TEST(RGBColor, TakesThreeBytes)
{
    static_assert(sizeof(RGBColor) == 3);
    static_assert(std::is_trivially_copyable_v<RGBColor>);
}

TEST(IndexedFrame, EveryFieldDecidesEquality)
{
    const IndexedFrame frame{2, 1, {gray(1), gray(2)}, {0, 1}, 10};
    EXPECT_EQ(frame, IndexedFrame(frame));
    EXPECT_NE(frame, (IndexedFrame{1, 1, {gray(1), gray(2)}, {0, 1}, 10}));
    EXPECT_NE(frame, (IndexedFrame{2, 2, {gray(1), gray(2)}, {0, 1}, 10}));
    EXPECT_NE(frame, (IndexedFrame{2, 1, {gray(2), gray(1)}, {0, 1}, 10}));
    EXPECT_NE(frame, (IndexedFrame{2, 1, {gray(1)}, {0, 1}, 10}));
    EXPECT_NE(frame, (IndexedFrame{2, 1, {gray(1), gray(2)}, {1, 1}, 10}));
    EXPECT_NE(frame, (IndexedFrame{2, 1, {gray(1), gray(2)}, {0, 1}, 11}));
}

TEST(Bytes, FilledOnesHoldTheirValue)
{
    EXPECT_THAT(Bytes(3, 7), testing::ElementsAre(7, 7, 7));
    Bytes grown{1};
    grown.resize(3, 9);
    EXPECT_THAT(grown, testing::ElementsAre(1, 9, 9));
}

} // namespace
} // namespace quillbox
