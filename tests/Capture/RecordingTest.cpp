#include "Capture/Recording.h"

#include "Encoding/FrameReducer.h"
#include "Encoding/GIFOptimizer.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <optional>
#include <thread>
#include <vector>

namespace quillbox {
namespace {

std::vector<RGBAFrame> typingFrames()
{
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < 20; ++i)
        frames.push_back(support::textLike(64, 48, i));
    return frames;
}

constexpr GIFOptimizer::Config docsConfig{.preset = ExportPreset::docs, .sourceFPS = 30, .ditheringOverride = {}};

TEST(Recording, OfFramesGivesTheirGIF)
{
    const Recording recording(typingFrames());
    EXPECT_EQ(recording.frames(), typingFrames());
    EXPECT_EQ(
        GIFOptimizer::optimize(recording.reduced(), docsConfig), GIFOptimizer::optimize(typingFrames(), docsConfig));
}

TEST(Recording, CopiesShareTheFramesAndWhatIsKnownOfThem)
{
    std::optional<Recording> recording(typingFrames());
    const Recording copy = *recording;
    EXPECT_EQ(&copy.frames(), &recording->frames());
    EXPECT_EQ(&copy.reduced(), &recording->reduced());
    recording.reset();
    EXPECT_EQ(copy.frames().size(), 20U);
    EXPECT_EQ(copy.reduced().frameCount(), 20);
}

TEST(Recording, MayBeEncodedByTwoThreadsAtOnce)
{
    const Recording recording(typingFrames());
    GIFOptimizer::Result other;
    std::thread thread([copy = recording, &other] { other = GIFOptimizer::optimize(copy.reduced(), docsConfig); });
    const auto result = GIFOptimizer::optimize(recording.reduced(), docsConfig);
    thread.join();
    EXPECT_EQ(result, other);
}

TEST(Recording, MayHaveNoFrame)
{
    EXPECT_TRUE(Recording().frames().empty());
    EXPECT_TRUE(Recording(std::vector<RGBAFrame>()).frames().empty());
}

TEST(RecordingDeathTest, IsNotEncodedWithoutAFrame)
{
    EXPECT_DEATH((void)Recording().reduced(), "has a frame");
}

} // namespace
} // namespace quillbox
