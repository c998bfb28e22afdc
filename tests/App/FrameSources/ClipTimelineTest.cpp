#include "App/FrameSources/ClipTimeline.h"
#include "support/SourceClip.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace quillbox {
namespace {

RGBAFrame pixel(int red)
{
    return RGBAFrame(1, 1, Bytes{static_cast<std::uint8_t>(red), 0, 0, 255});
}

/// What `count` frames, told apart by their red, come to at a rate.
support::SourceClip spread(FrameRate rate, int count)
{
    support::SourceClip clip;
    ClipTimeline timeline(rate, clip);
    for (int i = 0; i < count; ++i)
        timeline.take(pixel(i));
    return clip;
}

std::vector<int> redOfEach(const support::SourceClip& clip)
{
    std::vector<int> reds;
    for (const auto& frame : clip.frames)
        reds.push_back(frame.pixels()[0]);
    return reds;
}

TEST(ClipTimeline, ShowsWhatASlowInputShowsAtEachThirtiethOfASecond)
{
    const auto clip = spread({12, 1}, 4); // picture i shows frame floor(i · 0.4)
    EXPECT_EQ(clip.ownRate, (FrameRate{30, 1}));
    EXPECT_EQ(redOfEach(clip), (std::vector{0, 0, 0, 1, 1, 2, 2, 2, 3, 3}));
    EXPECT_TRUE(clip.frames[0].sharesPixels(clip.frames[2]));
}

TEST(ClipTimeline, FollowsTheRuleAtEveryRateBelowThirty)
{
    for (const FrameRate rate : {FrameRate{1, 2}, {1, 1}, {5, 1}, {7, 1}, {24, 1}, {24000, 1001}, {25, 1}, {25, 2},
             {29, 1}, {2997, 100}, {30000, 1001}, {4294967291, 4294967296}}) {
        constexpr int count = 100;
        std::vector<int> expected;
        for (int i = 0;; ++i) { // floor(i × rate ÷ 30) in integers
            const auto shown = static_cast<int>(i * rate.frames / (30 * rate.seconds));
            if (shown >= count)
                break;
            expected.push_back(shown);
        }
        EXPECT_EQ(redOfEach(spread(rate, count)), expected) << rate.frames << '/' << rate.seconds;
    }
}

TEST(ClipTimeline, PassesOnAFastInputFrameByFrame)
{
    for (const FrameRate rate : {FrameRate{30, 1}, {60000, 1001}, {3001, 100}, {1000, 1}}) {
        const auto clip = spread(rate, 50);
        const auto nearest = std::llround(static_cast<double>(rate.frames) / static_cast<double>(rate.seconds));
        EXPECT_EQ(clip.ownRate, (FrameRate{nearest, 1}));
        EXPECT_EQ(clip.frames.size(), 50U);
    }
}

TEST(ClipTimeline, PrefersTheRateThatWasAskedForToTheInputs)
{
    support::SourceClip clip;
    ClipTimeline timeline(FrameRate{10, 1}, clip);
    timeline.setRate({50, 1});
    timeline.take(pixel(1));
    EXPECT_EQ(timeline.rate(), (FrameRate{10, 1}));
    EXPECT_EQ(clip.frames.size(), 3U);
}

TEST(ClipTimeline, TakesTheInputsRateOrElseThirty)
{
    support::SourceClip slow;
    ClipTimeline timeline(std::nullopt, slow);
    timeline.setRate({1, 1});
    timeline.take(pixel(1));
    EXPECT_EQ(slow.frames.size(), 30U);

    support::SourceClip unknown;
    ClipTimeline silent(std::nullopt, unknown);
    silent.take(pixel(1));
    EXPECT_EQ(unknown.ownRate, (FrameRate{30, 1}));
    EXPECT_EQ(unknown.frames.size(), 1U);
}

TEST(ClipTimeline, CountsTheFramesThatDifferFromTheOneBefore)
{
    support::SourceClip clip;
    ClipTimeline timeline(FrameRate{5, 1}, clip);
    for (const int red : {1, 1, 2, 3, 3, 1})
        timeline.take(pixel(red));
    EXPECT_EQ(timeline.distinctCount(), 4);
    EXPECT_EQ(clip.frames.size(), 36U);
}

} // namespace
} // namespace quillbox
