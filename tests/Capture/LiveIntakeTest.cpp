#include "Capture/LiveIntake.h"

#include "Encoding/GIFOptimizer.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <atomic>
#include <limits>
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

/// Room that no test uses up.
BandStore plenty()
{
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    return BandStore({.plainBytes = most, .memoryBytes = most, .diskSpaceToLeave = 0}, testing::TempDir());
}

GIFOptimizer::Config configFor(ExportPreset preset)
{
    return {.preset = preset, .sourceFPS = 30, .ditheringOverride = {}};
}

TEST(LiveIntake, GivesTheGIFOfTheWholeRecording)
{
    const auto frames = recording();
    LiveIntake intake(plenty());
    for (const int count : {0, 1, 2, 2, 30, 59}) // the rest is taken in at the end
        intake.follow(firstOf(frames, count));
    const FrameIntake* const taken = intake.of(frames);
    ASSERT_NE(taken, nullptr);
    for (const ExportPreset preset : ExportPreset::allCases)
        EXPECT_EQ(GIFOptimizer::optimize(*taken, configFor(preset)), GIFOptimizer::optimize(frames, configFor(preset)));
}

TEST(LiveIntake, KnowsARecordingThatItNeverFollowed)
{
    LiveIntake intake(plenty());
    ASSERT_NE(intake.of(recording()), nullptr);
    EXPECT_EQ(intake.of(recording())->frameCount(), 60);
}

TEST(LiveIntake, KnowsNothingOfARecordingThatWasCut)
{
    LiveIntake intake(plenty());
    intake.follow(recording());
    EXPECT_EQ(intake.of(firstOf(recording(), 59)), nullptr);
}

TEST(LiveIntake, KnowsNothingWithoutAFrame)
{
    LiveIntake intake(plenty());
    intake.follow({});
    EXPECT_EQ(intake.of({}), nullptr);
}

TEST(LiveIntake, GivesTheSameGIFOfFramesThatWereParked)
{
    const auto frames = support::inBands(recording());
    LiveIntake intake(BandStore({.plainBytes = 0, .memoryBytes = 20'000, .diskSpaceToLeave = 0}, testing::TempDir()));
    intake.follow(frames);
    const FrameIntake* const taken = intake.of(frames);
    for (const ExportPreset preset : ExportPreset::allCases) {
        EXPECT_EQ(
            GIFOptimizer::optimize(*taken, configFor(preset)), GIFOptimizer::optimize(recording(), configFor(preset)));
    }
    EXPECT_EQ(intake.fullReason(), "");
}

TEST(LiveIntake, SaysOnceThatThereIsNoRoom)
{
    std::atomic<int> calls = 0;
    LiveIntake intake(
        BandStore({.plainBytes = 0, .memoryBytes = 0, .diskSpaceToLeave = ~std::uint64_t{0}}, testing::TempDir()),
        [&calls] { ++calls; });
    const auto frames = support::inBands(recording());
    intake.follow(frames);
    const FrameIntake* const taken = intake.of(frames);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(intake.fullReason(), "The disk is nearly full");
    EXPECT_EQ(taken->frameCount(), 60) << "what came later is not lost";
}

TEST(LiveIntakeDeathTest, FollowsNothingAfterTheEnd)
{
    LiveIntake intake(plenty());
    (void)intake.of({});
    EXPECT_DEATH(intake.follow({}), "until its end");
}

} // namespace
} // namespace quillbox
