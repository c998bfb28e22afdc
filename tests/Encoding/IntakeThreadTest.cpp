#include "Encoding/IntakeThread.h"

#include "Encoding/GIFOptimizer.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillbox {
namespace {

std::vector<RGBAFrame> grayFrames(int count)
{
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < count; ++i)
        frames.push_back(support::solid(3, 2, support::gray(static_cast<std::uint8_t>(i))));
    return frames;
}

TEST(IntakeThread, TakesInWhatAnIntakeWould)
{
    const auto frames = grayFrames(200);
    for (const std::size_t queue : {IntakeThread::unlimited, std::size_t{1}, std::size_t{5}}) {
        IntakeThread thread(FrameIntake::forAnyPreset(30), queue);
        for (const RGBAFrame& frame : frames)
            thread.take(frame);
        EXPECT_EQ(thread.takenCount(), 200);
        for (const ExportPreset preset : ExportPreset::allCases) {
            const GIFOptimizer::Config config{.preset = preset, .sourceFPS = 30, .ditheringOverride = {}};
            EXPECT_EQ(GIFOptimizer::optimize(thread.finished(), config), GIFOptimizer::optimize(frames, config));
        }
    }
}

TEST(IntakeThread, MayBeAskedTwice)
{
    IntakeThread thread(FrameIntake::forAnyPreset(30));
    thread.take(grayFrames(1).front());
    EXPECT_EQ(&thread.finished(), &thread.finished());
}

TEST(IntakeThread, MayBeGivenUp)
{
    IntakeThread thread(FrameIntake::forAnyPreset(30));
    for (const RGBAFrame& frame : grayFrames(200))
        thread.take(frame);
    // the destructor does not wait for them
}

TEST(IntakeThreadDeathTest, TakesNothingAfterTheEnd)
{
    const RGBAFrame frame = grayFrames(1).front();
    EXPECT_DEATH(
        {
            IntakeThread thread(FrameIntake::forAnyPreset(30));
            (void)thread.finished();
            thread.take(frame);
        },
        "no frame follows the last one");
}

} // namespace
} // namespace quillbox
