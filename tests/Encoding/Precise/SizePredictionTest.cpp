#include "Encoding/Precise/SizePrediction.h"

#include "Encoding/Precise/ClipAttempt.h"
#include "Encoding/Precise/Colors/ScreenPalette.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

using Recording = DistinctFrames::Recording;

constexpr std::int64_t passes = 12;

Recording recordingOf(const std::vector<RGBAFrame>& frames)
{
    DistinctFrames distinct(DistinctFrames::Options{});
    for (const RGBAFrame& frame : frames)
        distinct.append(frame);
    return distinct.recording();
}

/// Noise above, nothing below: strips differ much in what they come to.
std::vector<RGBAFrame> halfNoisy(std::int64_t width, std::int64_t height, int count)
{
    support::Random random(3);
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < count; ++i) {
        frames.push_back(support::picture(width, height, [&](std::int64_t, std::int64_t y) {
            return support::gray(y < height / 2 ? static_cast<int>(random.below(64)) * 4 : i * 5 % 256);
        }));
    }
    return frames;
}

double made(const Recording& recording, const std::vector<bool>& leavesOut, const std::vector<RGBColor>& table)
{
    const ClipPlan plan{.table = table, .leavesOut = leavesOut, .passes = passes};
    return static_cast<double>(ClipAttempt::make(recording, plan, {2}, {}, {}).byteCount);
}

TEST(SizePrediction, TellsWhatAFileComesToFromASampleOfIt)
{
    const Recording recording = recordingOf(halfNoisy(640, 400, 24)); // six million pixels
    const std::vector<bool> all(recording.pictures.size(), false);
    const SizePrediction prediction(recording, all);
    EXPECT_EQ(prediction.pixelCount(), std::int64_t{640} * 400 * 24);
    for (const std::int64_t colors : {16, 64}) {
        const auto table = ScreenPalette::make(recording.colors, colors, {2});
        const double predicted = prediction.roughSize(table, {2}) * prediction.correction(table, passes, {2});
        const double size = made(recording, all, table);
        EXPECT_NEAR(predicted, size, 0.05 * size) << colors;
    }
}

TEST(SizePrediction, CountsWhatIsLeftOutWithThePictureAfterIt)
{
    const Recording recording = recordingOf(halfNoisy(100, 60, 12));
    std::vector<bool> some(recording.pictures.size(), false);
    for (const std::size_t i : {2U, 3U, 7U})
        some[i] = true;
    const SizePrediction prediction(recording, some);
    const auto table = ScreenPalette::make(recording.colors, 32, {2});
    const double predicted = prediction.roughSize(table, {2}) * prediction.correction(table, passes, {2});
    const double size = made(recording, some, table);
    EXPECT_EQ(prediction.pixelCount(), 100 * 60 * 9);
    EXPECT_NEAR(predicted, size, 0.1 * size);
}

TEST(SizePrediction, DoesNotDependOnTheNumberOfThreads)
{
    const Recording recording = recordingOf(halfNoisy(90, 70, 9));
    const SizePrediction prediction(recording, std::vector<bool>(recording.pictures.size(), false));
    const auto table = ScreenPalette::make(recording.colors, 20, {1});
    for (const int threads : {2, 5}) {
        EXPECT_EQ(prediction.roughSize(table, {threads}), prediction.roughSize(table, {1}));
        EXPECT_EQ(prediction.correction(table, passes, {threads}), prediction.correction(table, passes, {1}));
    }
}

TEST(SizePrediction, TakesARecordingOfOnePixel)
{
    const Recording recording = recordingOf({support::solid(1, 1, support::gray(9))});
    const SizePrediction prediction(recording, {false});
    EXPECT_EQ(prediction.pixelCount(), 1);
    EXPECT_GT(prediction.roughSize({RGBColor(9, 9, 9)}, {1}), 0);
    EXPECT_GT(prediction.correction({RGBColor(9, 9, 9)}, 1, {1}), 0);
}

} // namespace
} // namespace quillbox
