#include "Capture/RecordingReducer.h"

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
FrameSpill plenty()
{
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    return FrameSpill({.plainBytes = most, .memoryBytes = most, .diskSpaceToLeave = 0}, testing::TempDir());
}

GIFOptimizer::Config configFor(ExportPreset preset)
{
    return {.preset = preset, .sourceFPS = 30, .ditheringOverride = {}};
}

TEST(RecordingReducer, GivesTheGIFOfTheWholeRecording)
{
    const auto frames = recording();
    RecordingReducer reducer(plenty());
    for (const int count : {0, 1, 2, 2, 30, 59}) // the rest is taken in at the end
        reducer.follow(firstOf(frames, count));
    const FrameReducer* const taken = reducer.of(frames);
    ASSERT_NE(taken, nullptr);
    for (const ExportPreset preset : ExportPreset::allCases)
        EXPECT_EQ(GIFOptimizer::optimize(*taken, configFor(preset)), GIFOptimizer::optimize(frames, configFor(preset)));
}

TEST(RecordingReducer, KnowsARecordingThatItNeverFollowed)
{
    RecordingReducer reducer(plenty());
    ASSERT_NE(reducer.of(recording()), nullptr);
    EXPECT_EQ(reducer.of(recording())->frameCount(), 60);
}

TEST(RecordingReducer, KnowsNothingOfARecordingThatWasCut)
{
    RecordingReducer reducer(plenty());
    reducer.follow(recording());
    EXPECT_EQ(reducer.of(firstOf(recording(), 59)), nullptr);
}

TEST(RecordingReducer, KnowsNothingWithoutAFrame)
{
    RecordingReducer reducer(plenty());
    reducer.follow({});
    EXPECT_EQ(reducer.of({}), nullptr);
}

TEST(RecordingReducer, GivesTheSameGIFOfFramesThatWereParked)
{
    const auto frames = support::inBands(recording());
    RecordingReducer reducer(
        FrameSpill({.plainBytes = 0, .memoryBytes = 20'000, .diskSpaceToLeave = 0}, testing::TempDir()));
    reducer.follow(frames);
    const FrameReducer* const taken = reducer.of(frames);
    for (const ExportPreset preset : ExportPreset::allCases) {
        EXPECT_EQ(
            GIFOptimizer::optimize(*taken, configFor(preset)), GIFOptimizer::optimize(recording(), configFor(preset)));
    }
    EXPECT_EQ(reducer.fullReason(), "");
}

TEST(RecordingReducer, SaysOnceThatThereIsNoRoom)
{
    std::atomic<int> calls = 0;
    RecordingReducer reducer(
        FrameSpill({.plainBytes = 0, .memoryBytes = 0, .diskSpaceToLeave = ~std::uint64_t{0}}, testing::TempDir()),
        [&calls] { ++calls; });
    const auto frames = support::inBands(recording());
    reducer.follow(frames);
    const FrameReducer* const taken = reducer.of(frames);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(reducer.fullReason(), "The disk is nearly full");
    EXPECT_EQ(taken->frameCount(), 60) << "what came later is not lost";
}

TEST(RecordingReducerDeathTest, FollowsNothingAfterTheEnd)
{
    RecordingReducer reducer(plenty());
    (void)reducer.of({});
    EXPECT_DEATH(reducer.follow({}), "until its end");
}

} // namespace
} // namespace quillbox
