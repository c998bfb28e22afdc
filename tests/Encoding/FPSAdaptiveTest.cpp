#include "Encoding/FPSAdaptive.h"

#include "reference/FPSAdaptive.h"
#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace quillbox {
namespace {

using FPSAdaptive::averageActivity;
using FPSAdaptive::resample;
using support::gray;
using support::Random;
using testing::ElementsAre;

/// `count` frames that tell their index: its low byte is red, its high byte green.
std::vector<RGBAFrame> numbered(std::int64_t count)
{
    std::vector<RGBAFrame> frames;
    for (std::int64_t i = 0; i < count; ++i)
        frames.emplace_back(
            1, 1, Bytes{static_cast<std::uint8_t>(i % 256), static_cast<std::uint8_t>(i / 256), 0, 255});
    return frames;
}

std::vector<std::int64_t> keptIndices(std::int64_t count, std::int64_t sourceFPS, std::int64_t targetFPS)
{
    std::vector<std::int64_t> indices;
    for (const RGBAFrame& frame : resample(numbered(count), sourceFPS, targetFPS))
        indices.push_back(frame.pixels()[0] + 256 * frame.pixels()[1]);
    return indices;
}

std::vector<std::int64_t> allIndices(std::int64_t count)
{
    std::vector<std::int64_t> indices;
    for (std::int64_t i = 0; i < count; ++i)
        indices.push_back(i);
    return indices;
}

TEST(AverageActivity, FewerThanTwoFramesHaveNone)
{
    EXPECT_EQ(averageActivity({}), 0.0);
    EXPECT_EQ(averageActivity(numbered(1)), 0.0);
}

TEST(AverageActivity, AStillPictureHasNone)
{
    EXPECT_EQ(averageActivity(std::vector(5, support::solid(4, 4, gray(7)))), 0.0);
}

TEST(AverageActivity, IsTheMeanOverConsecutivePairs)
{
    // Half of the pixels change, then none, then all: (0.5 + 0 + 1) ÷ 3 = 0.5.
    const RGBAFrame a = support::row(std::vector{gray(0), gray(0)});
    const RGBAFrame b = support::row(std::vector{gray(0), gray(90)});
    const RGBAFrame c = support::row(std::vector{gray(50), gray(0)});
    EXPECT_EQ(averageActivity(std::vector{a, b, b, c}), 0.5);
}

TEST(AverageActivity, ComparesNeighboursNotKeptFrames)
{
    // Each step is within the tolerance, although the last frame is far from the first.
    std::vector<RGBAFrame> frames;
    for (int level = 0; level < 200; level += 2)
        frames.push_back(support::solid(3, 3, gray(level)));
    EXPECT_EQ(averageActivity(frames), 0.0);
}

TEST(AverageActivity, FramesOfDifferentSizeCountAsFullyChanged)
{
    EXPECT_EQ(averageActivity(std::vector{support::solid(1, 2, gray(0)), support::solid(2, 1, gray(0))}), 1.0);
    EXPECT_EQ(averageActivity(std::vector(2, RGBAFrame(0, 0, Bytes()))), 1.0);
}

TEST(AverageActivity, IsTheSameDoubleAsTheReference)
{
    Random random(61);
    for (std::int64_t i = support::iterations(700); i > 0; --i) {
        std::vector<RGBAFrame> frames{support::randomPicture(random.between(1, 23), random.between(1, 23), random)};
        while (std::ssize(frames) < random.between(1, 40))
            frames.push_back(support::randomSuccessor(frames.back(), random));
        const double expected = reference::averageActivity(frames);
        ASSERT_EQ(averageActivity(frames), expected);
    }
}

TEST(Resample, WholeStepsTakeEveryNthFrame)
{
    EXPECT_THAT(keptIndices(9, 30, 15), ElementsAre(0, 2, 4, 6, 8));
    EXPECT_THAT(keptIndices(10, 30, 10), ElementsAre(0, 3, 6, 9));
    EXPECT_THAT(keptIndices(13, 30, 5), ElementsAre(0, 6, 12));
}

TEST(Resample, ABrokenStepIsCarriedOn)
{
    EXPECT_THAT(keptIndices(18, 30, 12), ElementsAre(0, 2, 5, 7, 10, 12, 15, 17)); // 0, 2.5, 5, 7.5, …
    EXPECT_THAT(keptIndices(7, 30, 20), ElementsAre(0, 1, 3, 4, 6));               // 0, 1.5, 3, 4.5, 6
}

TEST(Resample, TheStepIsSummedInDoublesStepByStep)
{
    // 2.4 summed ten times is 23.999999999999996 in doubles (its multiple by ten is 24): the eleventh frame is 23.
    EXPECT_THAT(keptIndices(30, 24, 10), ElementsAre(0, 2, 4, 7, 9, 12, 14, 16, 19, 21, 23, 26, 28));
}

TEST(Resample, TheRateIsNeverRaised)
{
    EXPECT_EQ(keptIndices(6, 20, 24), allIndices(6));
    EXPECT_EQ(keptIndices(6, 24, 24), allIndices(6));
}

TEST(Resample, RatesBelowOneChangeNothing)
{
    EXPECT_EQ(keptIndices(6, 0, 24), allIndices(6));
    EXPECT_EQ(keptIndices(6, 30, 0), allIndices(6));
    EXPECT_EQ(keptIndices(6, 30, -10), allIndices(6));
    EXPECT_EQ(keptIndices(6, -30, -40), allIndices(6));
}

TEST(Resample, FewerThanTwoFramesStay)
{
    EXPECT_EQ(keptIndices(0, 30, 5), allIndices(0));
    EXPECT_EQ(keptIndices(1, 30, 5), allIndices(1));
}

TEST(Resample, TheFirstFrameIsAlwaysTaken)
{
    EXPECT_THAT(keptIndices(5, 1'000'000, 1), ElementsAre(0));
}

TEST(Resample, TakenFramesShareTheirPixels)
{
    const std::vector<RGBAFrame> frames = numbered(5);
    const std::vector<RGBAFrame> taken = resample(frames, 30, 15);
    ASSERT_EQ(taken.size(), 3U);
    for (std::size_t i = 0; i < taken.size(); ++i)
        EXPECT_TRUE(taken[i].sharesPixels(frames[2 * i]));
}

TEST(Resample, EqualsTheReferenceForEveryPairOfCommonRates)
{
    const std::vector<RGBAFrame> frames = numbered(700);
    for (std::int64_t sourceFPS = 1; sourceFPS <= 61; ++sourceFPS) {
        for (std::int64_t targetFPS = 1; targetFPS <= sourceFPS; ++targetFPS)
            ASSERT_EQ(resample(frames, sourceFPS, targetFPS), reference::resample(frames, sourceFPS, targetFPS))
                << sourceFPS << " to " << targetFPS;
    }
}

} // namespace
} // namespace quillbox
