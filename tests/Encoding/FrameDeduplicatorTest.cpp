#include "Encoding/FrameDeduplicator.h"

#include "Encoding/FrameComparisons.h"

#include "reference/FrameDeduplicator.h"
#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quillbox {
namespace {

using FrameDeduplicator::changesMoreThan;
using FrameDeduplicator::deduplicate;
using FrameDeduplicator::fractionChanged;
using FrameDeduplicator::Timed;
using support::gray;
using support::Random;

constexpr std::int64_t tolerance = FrameDeduplicator::defaultPerPixelTolerance;

RGBAFrame onePixel(std::uint8_t r, std::uint8_t g, std::uint8_t b, std::uint8_t alpha = 255)
{
    return {1, 1, Bytes{r, g, b, alpha}};
}

/// 100 × 100 black pixels, the first `count` of them white.
RGBAFrame withWhitePixels(std::int64_t count)
{
    return support::picture(
        100, 100, [=](std::int64_t x, std::int64_t y) { return gray(y * 100 + x < count ? 255 : 0); });
}

std::vector<std::int64_t> delaysOf(const std::vector<Timed>& entries)
{
    std::vector<std::int64_t> delays;
    for (const Timed& entry : entries)
        delays.push_back(entry.delayCentiseconds);
    return delays;
}

TEST(FractionChanged, TheToleranceIsASquaredDistance)
{
    EXPECT_EQ(tolerance, 12);
    EXPECT_EQ(fractionChanged(onePixel(0, 0, 0), onePixel(2, 2, 2), 12), 0.0); // 4 + 4 + 4 = 12
    EXPECT_EQ(fractionChanged(onePixel(0, 0, 0), onePixel(0, 0, 4), 12), 1.0); // 16
    EXPECT_EQ(fractionChanged(onePixel(0, 0, 0), onePixel(0, 0, 3), 12), 0.0); // 9
    EXPECT_EQ(fractionChanged(onePixel(9, 9, 9), onePixel(6, 8, 8), 12), 0.0); // 9 + 1 + 1 = 11
    EXPECT_EQ(fractionChanged(onePixel(9, 9, 9), onePixel(6, 7, 9), 12), 1.0); // 9 + 4 = 13
}

TEST(FractionChanged, EveryChannelCounts)
{
    EXPECT_EQ(fractionChanged(onePixel(4, 0, 0), onePixel(0, 0, 0), 12), 1.0);
    EXPECT_EQ(fractionChanged(onePixel(0, 4, 0), onePixel(0, 0, 0), 12), 1.0);
    EXPECT_EQ(fractionChanged(onePixel(0, 0, 4), onePixel(0, 0, 0), 12), 1.0);
}

TEST(FractionChanged, AlphaDoesNotCount)
{
    EXPECT_EQ(fractionChanged(onePixel(1, 2, 3, 0), onePixel(1, 2, 3, 255), 0), 0.0);
}

TEST(FractionChanged, AtToleranceZeroAnyDifferenceCounts)
{
    EXPECT_EQ(fractionChanged(onePixel(0, 0, 0), onePixel(0, 0, 1), 0), 1.0);
    EXPECT_EQ(fractionChanged(onePixel(0, 0, 0), onePixel(0, 0, 0), 0), 0.0);
}

TEST(FractionChanged, BelowToleranceZeroEvenEqualPixelsCount)
{
    const RGBAFrame frame = support::solid(3, 3, gray(5));
    EXPECT_EQ(fractionChanged(frame, frame, -1), 1.0);
    EXPECT_EQ(fractionChanged(frame, support::deepCopy(frame), -1), 1.0);
}

TEST(FractionChanged, AtTheGreatestDistanceNothingCounts)
{
    EXPECT_EQ(fractionChanged(onePixel(0, 0, 0), onePixel(255, 255, 255), 3 * 255 * 255 - 1), 1.0);
    EXPECT_EQ(fractionChanged(onePixel(0, 0, 0), onePixel(255, 255, 255), 3 * 255 * 255), 0.0);
    EXPECT_EQ(
        fractionChanged(onePixel(0, 0, 0), onePixel(255, 255, 255), std::numeric_limits<std::int64_t>::max()), 0.0);
}

TEST(FractionChanged, IsTheShareOfAllPixels)
{
    EXPECT_EQ(fractionChanged(withWhitePixels(0), withWhitePixels(100), 12), 0.01);
    EXPECT_EQ(fractionChanged(withWhitePixels(2500), withWhitePixels(0), 12), 0.25);
    EXPECT_EQ(fractionChanged(withWhitePixels(0), withWhitePixels(10'000), 12), 1.0);
}

TEST(FractionChanged, OtherSizesAreEntirelyDifferent)
{
    EXPECT_EQ(fractionChanged(support::solid(2, 3, gray(0)), support::solid(3, 2, gray(0)), 12), 1.0);
    EXPECT_EQ(fractionChanged(support::solid(2, 3, gray(0)), support::solid(2, 4, gray(0)), 12), 1.0);
    EXPECT_EQ(fractionChanged(support::solid(2, 3, gray(0)), support::solid(1, 3, gray(0)), 12), 1.0);
}

TEST(FractionChanged, FramesWithoutPixelsAreEntirelyDifferent)
{
    const RGBAFrame empty(0, 5, Bytes());
    EXPECT_EQ(fractionChanged(empty, empty, 12), 1.0);
    EXPECT_EQ(fractionChanged(RGBAFrame(0, 0, Bytes()), RGBAFrame(0, 0, Bytes()), 12), 1.0);
}

TEST(FractionChanged, EqualsTheReference)
{
    Random random(51);
    for (std::int64_t i = support::iterations(5000); i > 0; --i) {
        const RGBAFrame a = support::randomPicture(random.below(40), random.below(40), random);
        const RGBAFrame b = random.oneIn(9) ? support::randomPicture(random.below(40), random.below(40), random)
                                            : support::randomSuccessor(a, random);
        const std::int64_t limit = random.pick<std::int64_t>({12, 12, 0, -1, 3, 195'074, 1'000'000'000'000});
        ASSERT_EQ(fractionChanged(a, b, limit), reference::fractionChanged(a, b, limit));
    }
}

TEST(ChangesMoreThan, SaysWhatTheFractionSays)
{
    Random random(53);
    for (std::int64_t i = support::iterations(5000); i > 0; --i) {
        const RGBAFrame a = support::randomPicture(random.below(90), random.below(90), random);
        const RGBAFrame b = random.oneIn(9) ? support::randomPicture(random.below(90), random.below(90), random)
            : random.oneIn(9)               ? a
                                            : support::randomSuccessor(a, random);
        const std::int64_t limit = random.pick<std::int64_t>({12, 12, 0, -1, 195'074});
        const double fraction = reference::fractionChanged(a, b, limit);
        for (const double threshold :
            {fraction, std::nextafter(fraction, -1), std::nextafter(fraction, 2), 0.01, 0.0, 1.0, -1.0, 2.0})
            ASSERT_EQ(changesMoreThan(a, b, limit, threshold), fraction > threshold) << fraction << ' ' << threshold;
    }
}

TEST(FractionChanged, EqualsTheReferenceForLargePictures)
{
    Random random(52);
    const RGBAFrame text = support::textLike(641, 480, 0);
    const RGBAFrame grown = support::gradient(641, 480, 0);
    EXPECT_EQ(fractionChanged(text, support::textLike(641, 480, 1), 12),
        reference::fractionChanged(text, support::textLike(641, 480, 1), 12));
    EXPECT_EQ(fractionChanged(grown, support::gradient(641, 480, 1), 12),
        reference::fractionChanged(grown, support::gradient(641, 480, 1), 12));
    EXPECT_EQ(fractionChanged(text, grown, 12), reference::fractionChanged(text, grown, 12));
    const RGBAFrame random1 = support::noise(641, 480, random);
    const RGBAFrame random2 = support::noise(641, 480, random);
    EXPECT_EQ(fractionChanged(random1, random2, 12), reference::fractionChanged(random1, random2, 12));
}

TEST(ChangedPixels, CountsPixelsOverTheTolerance)
{
    EXPECT_EQ(FrameDeduplicator::changedPixels(withWhitePixels(0), withWhitePixels(101), 12), 101);
    EXPECT_EQ(FrameDeduplicator::changedPixels(withWhitePixels(7), withWhitePixels(7), 12), 0);
}

TEST(ChangedPixelsDeathTest, RefusesFramesOfDifferentSize)
{
    EXPECT_DEATH(
        (void)FrameDeduplicator::changedPixels(support::solid(1, 2, gray(0)), support::solid(2, 1, gray(0)), 1),
        "broken invariant");
}

TEST(Deduplicate, NothingStaysNothing)
{
    EXPECT_THAT(deduplicate({}, 10, 0.01), testing::IsEmpty());
}

TEST(Deduplicate, OneFrameKeepsTheDelay)
{
    const std::vector frames{onePixel(1, 2, 3)};
    EXPECT_EQ(deduplicate(frames, 7, 0.01), (std::vector{Timed{frames[0], 7}}));
}

TEST(Deduplicate, EqualFramesBecomeOneThatIsShownLonger)
{
    const std::vector frames(10, onePixel(1, 2, 3));
    EXPECT_EQ(deduplicate(frames, 10, 0.01), (std::vector{Timed{frames[0], 100}}));
}

TEST(Deduplicate, DelaysStopAt65535)
{
    const std::vector frames(10'000, onePixel(1, 2, 3));
    EXPECT_EQ(deduplicate(frames, 10, 0.01), (std::vector{Timed{frames[0], 65535}}));
    const std::vector two(2, onePixel(1, 2, 3));
    EXPECT_EQ(delaysOf(deduplicate(two, 32767, 0.01)), (std::vector<std::int64_t>{65534}));
    EXPECT_EQ(delaysOf(deduplicate(two, 32768, 0.01)), (std::vector<std::int64_t>{65535}));
}

TEST(Deduplicate, ALongerDelayIsStoredUnlessItGrows)
{
    const std::vector frames{onePixel(0, 0, 0), onePixel(99, 0, 0), onePixel(99, 0, 0)};
    EXPECT_EQ(delaysOf(deduplicate(frames, 70'000, 0.01)), (std::vector<std::int64_t>{70'000, 65535}));
}

TEST(Deduplicate, AnOverflowingDelayBecomes65535)
{
    const std::vector frames(2, onePixel(0, 0, 0));
    EXPECT_EQ(delaysOf(deduplicate(frames, std::numeric_limits<std::int64_t>::max(), 0.01)),
        (std::vector<std::int64_t>{65535}));
    EXPECT_EQ(delaysOf(deduplicate(frames, std::numeric_limits<std::int64_t>::min(), 0.01)),
        (std::vector<std::int64_t>{65535}));
    EXPECT_EQ(delaysOf(deduplicate(frames, -3, 0.01)), (std::vector<std::int64_t>{-6}));
}

TEST(Deduplicate, AShareOfExactlyTheThresholdIsMerged)
{
    const std::vector merged{withWhitePixels(0), withWhitePixels(100)};
    EXPECT_EQ(delaysOf(deduplicate(merged, 5, 0.01)), (std::vector<std::int64_t>{10}));
    const std::vector kept{withWhitePixels(0), withWhitePixels(101)};
    EXPECT_EQ(delaysOf(deduplicate(kept, 5, 0.01)), (std::vector<std::int64_t>{5, 5}));
}

TEST(Deduplicate, FramesAreComparedWithTheLastOneKept)
{
    // Each frame differs from the one before by 60 pixels, which is under 1 %, but from the first by 120 after two.
    std::vector<RGBAFrame> frames;
    for (std::int64_t i = 0; i < 5; ++i)
        frames.push_back(withWhitePixels(60 * i));
    EXPECT_EQ(
        deduplicate(frames, 5, 0.01), (std::vector{Timed{frames[0], 10}, Timed{frames[2], 10}, Timed{frames[4], 5}}));
}

TEST(Deduplicate, TheFirstFrameOfARunIsKept)
{
    const std::vector frames{onePixel(10, 10, 10), onePixel(11, 11, 11), onePixel(200, 0, 0), onePixel(201, 0, 0)};
    EXPECT_EQ(deduplicate(frames, 4, 0.01), (std::vector{Timed{frames[0], 8}, Timed{frames[2], 8}}));
}

TEST(Deduplicate, ReturningToAnEarlierPictureMakesANewEntry)
{
    const std::vector frames{onePixel(0, 0, 0), onePixel(255, 0, 0), onePixel(0, 0, 0)};
    EXPECT_EQ(delaysOf(deduplicate(frames, 4, 0.01)), (std::vector<std::int64_t>{4, 4, 4}));
}

TEST(Deduplicate, KeptFramesShareTheirPixels)
{
    const std::vector frames{support::solid(3, 3, gray(0)), support::solid(3, 3, gray(99))};
    const std::vector<Timed> entries = deduplicate(frames, 4, 0.01);
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_TRUE(entries[0].frame.sharesPixels(frames[0]));
    EXPECT_TRUE(entries[1].frame.sharesPixels(frames[1]));
}

TEST(Deduplicate, FramesWithoutPixelsAreNeverMerged)
{
    const std::vector frames(3, RGBAFrame(0, 4, Bytes()));
    EXPECT_EQ(delaysOf(deduplicate(frames, 4, 0.01)), (std::vector<std::int64_t>{4, 4, 4}));
}

TEST(Deduplicate, FramesOfDifferentSizeAreNeverMerged)
{
    const std::vector frames{support::solid(2, 1, gray(0)), support::solid(1, 2, gray(0))};
    EXPECT_EQ(deduplicate(frames, 4, 0.99).size(), 2U);
}

TEST(Deduplicate, EqualsTheReference)
{
    Random random(53);
    for (std::int64_t i = support::iterations(1500); i > 0; --i) {
        std::vector<RGBAFrame> frames{support::randomPicture(random.below(25), random.below(25), random)};
        while (std::ssize(frames) < random.below(12))
            frames.push_back(random.oneIn(9) ? support::randomPicture(random.below(25), random.below(25), random)
                                             : support::randomSuccessor(frames.back(), random));
        const std::int64_t delay
            = random.pick<std::int64_t>({1, 4, 20, 0, -7, 30'000, 65'536, std::numeric_limits<std::int64_t>::max()});
        const double threshold = random.pick({0.01, 0.01, 0.0, 0.3, 1.0, -1.0, 2.0});
        ASSERT_EQ(deduplicate(frames, delay, threshold), reference::deduplicate(frames, delay, threshold));
    }
}

TEST(Deduplicator, ComparesWithWhatCameAndNotWithItsSubstitute)
{
    FrameDeduplicator::Deduplicator deduplicator(8, 0.01);
    FrameComparisons comparisons;
    const RGBAFrame original = support::solid(2, 2, gray(0));
    const RGBAFrame substitute = support::solid(1, 1, gray(200));
    const RGBAFrame repeat = support::solid(2, 2, gray(0));
    comparisons.turnTo(original);
    EXPECT_TRUE(deduplicator.append(original, comparisons));
    deduplicator.replaceLast(substitute);
    comparisons.turnTo(repeat);
    EXPECT_FALSE(deduplicator.append(repeat, comparisons));
    EXPECT_EQ(deduplicator.kept(), (std::vector{Timed{substitute, 16}}));
}

} // namespace
} // namespace quillbox
