#include "Capture/LiveIntake.h"

#include "Encoding/GIFOptimizer.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillbox {
namespace {

/// A recording that moves, rests and moves again.
std::vector<RGBAFrame> recording()
{
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < 60; ++i)
        frames.push_back(support::textLike(64, 48, i < 20 ? i : i < 40 ? 20 : i - 20));
    return frames;
}

std::vector<RGBAFrame> firstOf(const std::vector<RGBAFrame>& frames, int count)
{
    return {frames.begin(), frames.begin() + count};
}

GIFOptimizer::Config configFor(ExportPreset preset)
{
    return {.preset = preset, .sourceFPS = 30, .ditheringOverride = {}};
}

TEST(LiveIntake, GivesTheGIFOfTheWholeRecording)
{
    const auto frames = recording();
    LiveIntake intake;
    for (const int count : {0, 1, 2, 2, 30, 59}) // the rest is taken in at the end
        intake.follow(firstOf(frames, count));
    const FrameIntake* const taken = intake.of(frames);
    ASSERT_NE(taken, nullptr);
    for (const ExportPreset preset : ExportPreset::allCases)
        EXPECT_EQ(GIFOptimizer::optimize(*taken, configFor(preset)), GIFOptimizer::optimize(frames, configFor(preset)));
}

TEST(LiveIntake, KnowsARecordingThatItNeverFollowed)
{
    LiveIntake intake;
    ASSERT_NE(intake.of(recording()), nullptr);
    EXPECT_EQ(intake.of(recording())->frameCount(), 60);
}

TEST(LiveIntake, KnowsNothingOfARecordingThatWasCut)
{
    LiveIntake intake;
    intake.follow(recording());
    EXPECT_EQ(intake.of(firstOf(recording(), 59)), nullptr);
}

TEST(LiveIntake, KnowsNothingWithoutAFrame)
{
    LiveIntake intake;
    intake.follow({});
    EXPECT_EQ(intake.of({}), nullptr);
}

TEST(LiveIntakeDeathTest, FollowsNothingAfterTheEnd)
{
    LiveIntake intake;
    (void)intake.of({});
    EXPECT_DEATH(intake.follow({}), "until its end");
}

} // namespace
} // namespace quillbox
