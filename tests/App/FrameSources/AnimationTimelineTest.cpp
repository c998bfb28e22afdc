#include "App/FrameSources/AnimationTimeline.h"

#include "support/SourceClip.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillbox {
namespace {

using AnimationTimeline::TimedFrame;
using support::SourceClip;

/// One-pixel frames, told apart by their red, with these display times.
std::vector<TimedFrame> animation(const std::vector<std::int64_t>& milliseconds)
{
    std::vector<TimedFrame> frames;
    for (const auto duration : milliseconds)
        frames.push_back({RGBAFrame(1, 1, Bytes{static_cast<std::uint8_t>(frames.size()), 0, 0, 255}), duration});
    return frames;
}

SourceClip steadyClip(const std::vector<TimedFrame>& frames)
{
    SourceClip clip;
    AnimationTimeline::steady(frames, clip);
    return clip;
}

std::vector<int> redOf(const SourceClip& clip)
{
    std::vector<int> reds;
    for (const auto& frame : clip.frames)
        reds.push_back(frame.pixels()[0]);
    return reds;
}

TEST(AnimationTimeline, GivesEquallyLongFramesTheirOwnRate)
{
    const auto clip = steadyClip(animation({70, 70, 70}));
    EXPECT_EQ(clip.framesPerSecond, 14) << "1000 ÷ 70 is 14.3";
    EXPECT_EQ(redOf(clip), (std::vector{0, 1, 2}));
}

TEST(AnimationTimeline, TakesFramesThatDoNotSayForATenthOfASecond)
{
    const auto clip = steadyClip(animation({0, 0}));
    EXPECT_EQ(clip.framesPerSecond, 10);
    EXPECT_EQ(AnimationTimeline::duration(animation({0, -5, 40})), 240);
}

TEST(AnimationTimeline, RepeatsTheLongerFramesOfAnUnevenAnimation)
{
    const auto clip = steadyClip(animation({100, 200})); // 9 ticks of a 30th: at 0, 33, 67, 100, …
    EXPECT_EQ(clip.framesPerSecond, 30);
    EXPECT_EQ(redOf(clip), (std::vector{0, 0, 0, 1, 1, 1, 1, 1, 1}));
    EXPECT_TRUE(clip.frames[3].sharesPixels(clip.frames[8]));
}

TEST(AnimationTimeline, SkipsFramesThatAreShorterThanATick)
{
    const auto clip = steadyClip(animation({10, 10, 10, 70}));
    EXPECT_EQ(redOf(clip), (std::vector{0, 3, 3}));
}

TEST(AnimationTimeline, SpreadsFramesOfMoreThanASecondAsNoRateIsSoSlow)
{
    const auto clip = steadyClip(animation({2000, 2000}));
    EXPECT_EQ(clip.framesPerSecond, 30);
    EXPECT_EQ(clip.frames.size(), 120U);
    EXPECT_EQ(steadyClip(animation({1000, 1000})).framesPerSecond, 1);
}

TEST(AnimationTimeline, KeepsAtLeastOneFrame)
{
    EXPECT_EQ(redOf(steadyClip(animation({1, 2}))), (std::vector{0}));
}

TEST(AnimationTimelineDeathTest, RejectsAnAnimationOfMoreThanADay)
{
    EXPECT_DEATH((void)steadyClip(animation({AnimationTimeline::maximumMilliseconds, 1})), "short enough");
}

} // namespace
} // namespace quillbox
