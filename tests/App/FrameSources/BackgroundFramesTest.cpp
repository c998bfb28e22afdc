#include "App/FrameSources/BackgroundFrames.h"

#include "Encoding/FrameReducer.h"
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

BackgroundFrames<FrameReducer> reducerFor(ExportPreset preset)
{
    return BackgroundFrames<FrameReducer>([preset](std::int64_t fps) { return FrameReducer::sparing(fps, preset); });
}

TEST(BackgroundFrames, GivesTheGIFOfTheSameFramesAtHand)
{
    const auto frames = colorfulFrames(100); // far more than wait at a time
    auto reducer = reducerFor(ExportPreset::docs);
    reducer.setRate({25, 1});
    for (const RGBAFrame& frame : frames)
        reducer.take(frame);
    const GIFOptimizer::Config config{.preset = ExportPreset::docs, .sourceFPS = 25, .ditheringOverride = {}};
    EXPECT_EQ(GIFOptimizer::optimize(reducer.finished(), config), GIFOptimizer::optimize(frames, config));
}

TEST(BackgroundFrames, TakesTheRateOfTheInput)
{
    auto reducer = reducerFor(ExportPreset::slack);
    reducer.setRate({12, 1});
    reducer.take(colorfulFrames(1).front());
    EXPECT_EQ(reducer.finished().sourceFPS(), 12);
}

TEST(BackgroundFrames, TakesThirtyFramesASecondWhereNobodySays)
{
    auto reducer = reducerFor(ExportPreset::slack);
    reducer.take(colorfulFrames(1).front());
    EXPECT_EQ(reducer.finished().sourceFPS(), 30);
}

TEST(BackgroundFrames, MayBeGivenUpHalfWay)
{
    auto reducer = reducerFor(ExportPreset::slack);
    for (const RGBAFrame& frame : colorfulFrames(20))
        reducer.take(frame);
    // the destructor must not wait for more frames
}

} // namespace
} // namespace quillbox
