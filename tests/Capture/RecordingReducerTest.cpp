#include "Capture/RecordingReducer.h"

#include "Capture/Spill/CompressedBand.h"
#include "Capture/Spill/SpillFile.h"
#include "Encoding/GIFOptimizer.h"
#include "support/Pictures.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <fcntl.h>
#include <filesystem>
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
    for (const int count : {0, 1, 2, 2, 30, 59, 60})
        reducer.follow(firstOf(frames, count));
    const FrameReducer& taken = reducer.finished();
    EXPECT_EQ(taken.frameCount(), 60);
    for (const ExportPreset preset : ExportPreset::allCases)
        EXPECT_EQ(GIFOptimizer::optimize(taken, configFor(preset)), GIFOptimizer::optimize(frames, configFor(preset)));
}

TEST(RecordingReducer, GivesTheSameGIFOfFramesThatWereParked)
{
    const auto frames = support::inBands(recording());
    RecordingReducer reducer(
        FrameSpill({.plainBytes = 0, .memoryBytes = 20'000, .diskSpaceToLeave = 0}, testing::TempDir()));
    reducer.follow(frames);
    const FrameReducer& taken = reducer.finished();
    for (const ExportPreset preset : ExportPreset::allCases) {
        EXPECT_EQ(
            GIFOptimizer::optimize(taken, configFor(preset)), GIFOptimizer::optimize(recording(), configFor(preset)));
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
    const FrameReducer& taken = reducer.finished();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(reducer.fullReason(), "The disk is nearly full");
    EXPECT_EQ(taken.frameCount(), 60) << "what came later is not lost";
}

TEST(RecordingReducer, TellsThatAFileCannotBeReadAnyMore)
{
    const support::TemporaryFolder folder;
    const auto path = folder.path() / "spill";
    const auto file = std::make_shared<SpillFile>(
        FileDescriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)), std::uint64_t{0});
    const auto frames = support::inBands(firstOf(recording(), 3));
    for (std::int64_t index = 0; index < frames[1].bandCount(); ++index) {
        const auto band = frames[1].ownBand(index);
        const PixelView pixels = band->pixels();
        Bytes compressed;
        (void)CompressedBand::append(compressed, {pixels.data(), pixels.size()});
        const auto place = file->append(compressed);
        band->evict(std::make_unique<CompressedInFile>(file, place, compressed.size(), band->byteCount()));
    }
    std::filesystem::resize_file(path, 0);
    std::atomic<int> calls = 0;
    RecordingReducer reducer(plenty(), [&calls] { ++calls; });
    reducer.follow(frames);
    EXPECT_THROW((void)reducer.finished(), SpillError);
    EXPECT_TRUE(reducer.hasFailed());
    EXPECT_FALSE(reducer.isBehind(frames)) << "nobody waits for what nobody does";
    EXPECT_EQ(calls, 1);
}

TEST(RecordingReducerDeathTest, FollowsNothingAfterTheEnd)
{
    RecordingReducer reducer(plenty());
    reducer.follow(firstOf(recording(), 1));
    (void)reducer.finished();
    EXPECT_DEATH(reducer.follow(firstOf(recording(), 2)), "no frame follows the last one");
}

TEST(RecordingReducerDeathTest, IsNotFinishedWithoutAFrame)
{
    RecordingReducer reducer(plenty());
    EXPECT_DEATH((void)reducer.finished(), "has a frame");
}

} // namespace
} // namespace quillbox
