#include "App/FrameSources/BackgroundIntake.h"

#include "Encoding/GIFOptimizer.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillbox {
namespace {

/// `count` small frames, each of another colour.
std::vector<RGBAFrame> colorfulFrames(int count)
{
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < count; ++i)
        frames.emplace_back(1, 1, Bytes{static_cast<std::uint8_t>(i * 40), static_cast<std::uint8_t>(i), 0, 255});
    return frames;
}

TEST(BackgroundIntake, GivesTheGIFOfTheSameFramesAtHand)
{
    const auto frames = colorfulFrames(100); // far more than wait at a time
    BackgroundIntake intake(ExportPreset::docs, 25);
    for (const RGBAFrame& frame : frames)
        intake.take(frame);
    const GIFOptimizer::Config config{.preset = ExportPreset::docs, .sourceFPS = 25, .ditheringOverride = {}};
    EXPECT_EQ(GIFOptimizer::optimize(intake.finished(), config), GIFOptimizer::optimize(frames, config));
}

TEST(BackgroundIntake, TakesTheRateOfTheInput)
{
    BackgroundIntake intake(ExportPreset::slack, std::nullopt);
    intake.setRate(12);
    intake.take(colorfulFrames(1).front());
    EXPECT_EQ(intake.finished().sourceFPS(), 12);
}

TEST(BackgroundIntake, PrefersTheRateThatWasAskedFor)
{
    BackgroundIntake intake(ExportPreset::slack, 24);
    intake.setRate(12);
    intake.take(colorfulFrames(1).front());
    EXPECT_EQ(intake.finished().sourceFPS(), 24);
}

TEST(BackgroundIntake, TakesThirtyFramesASecondWhereNobodySays)
{
    BackgroundIntake intake(ExportPreset::slack, std::nullopt);
    intake.take(colorfulFrames(1).front());
    EXPECT_EQ(intake.finished().sourceFPS(), 30);
}

TEST(BackgroundIntake, MayBeGivenUpHalfWay)
{
    BackgroundIntake intake(ExportPreset::slack, std::nullopt);
    for (const RGBAFrame& frame : colorfulFrames(20))
        intake.take(frame);
    // the destructor must not wait for more frames
}

} // namespace
} // namespace quillbox
