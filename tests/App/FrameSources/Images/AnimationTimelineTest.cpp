#include "App/FrameSources/Images/AnimationTimeline.h"

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

support::SourceClip steadyClip(const std::vector<TimedFrame>& frames)
{
    support::SourceClip clip;
    AnimationTimeline::steady(frames, clip);
    return clip;
}

std::vector<int> redOf(const support::SourceClip& clip)
{
    std::vector<int> reds;
    for (const auto& frame : clip.frames)
        reds.push_back(frame.pixels()[0]);
    return reds;
}

TEST(AnimationTimeline, GivesEquallyLongFramesTheirOwnRate)
{
    const auto clip = steadyClip(animation({70, 70, 70}));
    EXPECT_EQ(clip.ownRate, (FrameRate{1000, 70}));
    EXPECT_EQ(redOf(clip), (std::vector{0, 1, 2}));
}

TEST(AnimationTimeline, TakesFramesThatDoNotSayForATenthOfASecond)
{
    const auto clip = steadyClip(animation({0, 0}));
    EXPECT_EQ(clip.ownRate, (FrameRate{1000, 100}));
    EXPECT_EQ(AnimationTimeline::duration(animation({0, -5, 40})), 240);
}

TEST(AnimationTimeline, RepeatsTheLongerFramesOfAnUnevenAnimation)
{
    const auto clip = steadyClip(animation({100, 200})); // 9 ticks of a 30th: at 0, 33, 67, 100, …
    EXPECT_EQ(clip.ownRate, (FrameRate{30, 1}));
    EXPECT_EQ(redOf(clip), (std::vector{0, 0, 0, 1, 1, 1, 1, 1, 1}));
    EXPECT_TRUE(clip.frames[3].sharesPixels(clip.frames[8]));
}

TEST(AnimationTimeline, SkipsFramesThatAreShorterThanATick)
{
    const auto clip = steadyClip(animation({10, 10, 10, 70}));
    EXPECT_EQ(redOf(clip), (std::vector{0, 3, 3}));
}

TEST(AnimationTimeline, GivesLongFramesTheirOwnRateToo)
{
    const auto clip = steadyClip(animation({2000, 2000}));
    EXPECT_EQ(clip.ownRate, (FrameRate{1000, 2000}));
    EXPECT_EQ(clip.frames.size(), 2U);
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
