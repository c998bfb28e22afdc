#include "Encoding/FrameReducer.h"

#include "Encoding/GIFOptimizer.h"
#include "reference/GIFOptimizer.h"
#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

using support::gray;
using support::Random;

const std::vector<ExportPreset> allPresets{ExportPreset::slack, ExportPreset::github, ExportPreset::docs};

FrameReducer reducerOf(const std::vector<RGBAFrame>& frames, std::int64_t sourceFPS)
{
    FrameReducer reducer(sourceFPS, allPresets);
    for (const RGBAFrame& frame : frames)
        reducer.append(frame);
    return reducer;
}

TEST(FrameReducer, CountsWhatItTakes)
{
    FrameReducer reducer(24, allPresets);
    EXPECT_EQ(reducer.sourceFPS(), 24);
    EXPECT_EQ(reducer.frameCount(), 0);
    reducer.append(support::solid(2, 2, gray(0)));
    reducer.append(support::solid(2, 2, gray(0)));
    EXPECT_EQ(reducer.frameCount(), 2);
}

TEST(FrameReducer, SelectsForEachPresetFromTheSameFrames)
{
    // Every pixel changes in every frame: 12, 20 and 24 frames a second, so of 30 frames the 0th, 2nd, 5th, …;
    // the 0th, 1st, 3rd, …; the 0th, 1st, 2nd, 3rd, 5th, …
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < 30; ++i)
        frames.push_back(support::solid(2, 2, gray(i * 8)));
    const FrameReducer reducer = reducerOf(frames, 30);
    const auto slack = reducer.selection(ExportPreset::slack);
    EXPECT_EQ(slack.fps, 12);
    ASSERT_EQ(slack.frames.size(), 12U);
    EXPECT_EQ(slack.frames[1], (FrameDeduplicator::Timed{frames[2], 8}));
    const auto github = reducer.selection(ExportPreset::github);
    EXPECT_EQ(github.fps, 20);
    ASSERT_EQ(github.frames.size(), 20U);
    EXPECT_EQ(github.frames[2], (FrameDeduplicator::Timed{frames[3], 5}));
    const auto docs = reducer.selection(ExportPreset::docs);
    EXPECT_EQ(docs.fps, 24);
    ASSERT_EQ(docs.frames.size(), 24U);
    EXPECT_EQ(docs.frames[4], (FrameDeduplicator::Timed{frames[5], 4}));
}

TEST(FrameReducer, MayBeAskedBetweenFrames)
{
    FrameReducer reducer(30, allPresets);
    reducer.append(support::solid(2, 2, gray(0)));
    EXPECT_EQ(reducer.selection(ExportPreset::slack).frames.size(), 1U);
    reducer.append(support::solid(2, 2, gray(100)));
    reducer.append(support::solid(2, 2, gray(200)));
    EXPECT_EQ(reducer.selection(ExportPreset::slack).frames.size(), 2U);
}

TEST(FrameReducer, LetsGoOfFramesThatNoRateKeeps)
{
    // 60 to 24 and below keeps neither the 1st nor the 3rd frame of any preset.
    FrameReducer reducer(60, allPresets);
    const RGBAFrame dropped = support::solid(2, 2, gray(8));
    reducer.append(support::solid(2, 2, gray(0)));
    reducer.append(dropped);
    reducer.append(support::solid(2, 2, gray(16)));
    reducer.append(support::solid(2, 2, gray(24)));
    for (const ExportPreset preset : allPresets) {
        for (const auto& timed : reducer.selection(preset).frames)
            EXPECT_FALSE(timed.frame.sharesPixels(dropped));
    }
}

TEST(FrameReducer, SharesThePixelsOfWhatItKeeps)
{
    const RGBAFrame frame = support::solid(2, 2, gray(0));
    EXPECT_TRUE(reducerOf({frame}, 30).selection(ExportPreset::docs).frames.at(0).frame.sharesPixels(frame));
}

TEST(FrameReducer, NamesTheFirstFrameThatIsTooLargeWhenAsked)
{
    const FrameReducer reducer
        = reducerOf({support::solid(2, 2, gray(0)), RGBAFrame(65536, 0, Bytes()), RGBAFrame(0, 70'000, Bytes())}, 30);
    try {
        (void)reducer.selection(ExportPreset::slack);
        FAIL() << "nothing was thrown";
    } catch (const GIFEncodingError& error) {
        EXPECT_EQ(error, GIFEncodingError({65536, 0}));
    }
}

TEST(FrameReducerDeathTest, NeedsAFrameAndAKnownPreset)
{
    EXPECT_DEATH((void)FrameReducer(30, allPresets).selection(ExportPreset::slack), "there is a frame");
    EXPECT_DEATH(FrameReducer(30, {}), "at least one preset");
}

TEST(FrameReducerDeathTest, TheSourceRateMustBeTheOneOfTheConfiguration)
{
    const FrameReducer reducer = reducerOf({support::solid(1, 1, gray(0))}, 30);
    EXPECT_DEATH(
        (void)GIFOptimizer::optimize(reducer, {.preset = ExportPreset::slack, .sourceFPS = 24}), "source's rate");
}

TEST(FrameReducer, OneReducerForAllPresetsGivesTheFilesOfTheReference)
{
    Random random(131);
    for (std::int64_t i = support::iterations(150); i > 0; --i) {
        std::vector<RGBAFrame> frames{support::randomPicture(random.below(30), random.below(30), random)};
        for (std::int64_t count = random.below(40); count > 0; --count)
            frames.push_back(support::randomSuccessor(frames.back(), random));
        const std::int64_t sourceFPS = random.pick<std::int64_t>({30, 60, 25, 10, 0});
        const FrameReducer reducer = reducerOf(frames, sourceFPS);
        for (const ExportPreset preset : allPresets) {
            const GIFOptimizer::Config config{.preset = preset, .sourceFPS = sourceFPS};
            ASSERT_EQ(GIFOptimizer::optimize(reducer, config), reference::optimize(frames, config).result);
        }
    }
}

TEST(FrameReducer, KeepsFramesSmallWhenItIsToldToSpareMemory)
{
    FrameReducer reducer = FrameReducer::sparing(30, ExportPreset::slack);
    reducer.append(support::solid(1920, 4, gray(0)));
    const RGBAFrame narrow = support::solid(960, 2, gray(100));
    for (int i = 0; i < 5; ++i)
        reducer.append(narrow);
    const auto frames = reducer.selection(ExportPreset::slack).frames;
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_EQ(frames[0].frame, support::solid(960, 2, gray(0)));
    EXPECT_TRUE(frames[1].frame.sharesPixels(narrow)) << "what is small enough is passed on";
}

TEST(FrameReducer, TellsOfEachPictureKeptOnce)
{
    std::vector<RGBAFrame> told;
    FrameReducer reducer = FrameReducer::sparing(
        30, ExportPreset::slack, [&told](const RGBAFrame& picture) { told.push_back(picture); });
    reducer.append(support::solid(1920, 4, gray(0))); // the first of every rate
    reducer.append(support::solid(1920, 4, gray(0)));
    reducer.append(support::solid(1920, 4, gray(100))); // of 12 a second
    ASSERT_EQ(told, (std::vector{support::solid(960, 2, gray(0)), support::solid(960, 2, gray(100))}));
    const auto frames = reducer.selection(ExportPreset::slack).frames;
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_TRUE(frames[1].frame.sharesPixels(told[1]));
    EXPECT_NE(frames[1].frame.ownBand(0), nullptr) << "it can be evicted";
}

TEST(FrameReducer, KeptPicturesShareTheBandsThatStayTheSame)
{
    FrameReducer reducer = FrameReducer::sparing(30, ExportPreset::slack, [](const RGBAFrame&) {});
    const RGBAFrame first = support::solid(10, 40, gray(0));
    Bytes pixels(first.pixels());
    std::fill(pixels.end() - 10 * 4, pixels.end(), std::uint8_t{200});
    reducer.append(first);
    for (int i = 0; i < 5; ++i)
        reducer.append(RGBAFrame(10, 40, pixels));
    const auto frames = reducer.selection(ExportPreset::slack).frames;
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_TRUE(frames[0].frame.sharesBand(frames[1].frame, 0));
    EXPECT_FALSE(frames[0].frame.sharesBand(frames[1].frame, 1));
}

/// Counts how often pixels are read again.
class CountingStore final : public BackingStore {
public:
    CountingStore(Bytes bytes, std::atomic<int>& visits)
        : m_bytes(std::move(bytes))
        , m_visits(visits)
    {
    }
    [[nodiscard]] std::shared_ptr<const Bytes> read() const override
    {
        ++m_visits;
        return std::make_shared<const Bytes>(m_bytes);
    }

private:
    Bytes m_bytes;
    std::atomic<int>& m_visits;
};

/// The frame in bands that have a backing store, and share what they can with those of `before`.
RGBAFrame backed(const RGBAFrame& frame, const std::optional<RGBAFrame>& before, std::atomic<int>& visits)
{
    std::vector<RGBAFrame::Band> bands;
    const RGBAFrame banded = frame.inBands(before);
    const bool isLikeBefore = before && before->width() == frame.width() && before->height() == frame.height();
    for (std::int64_t index = 0; index < frame.bandCount(); ++index) {
        const bool isShared = isLikeBefore && banded.sharesBand(*before, index);
        const Bytes pixels(frame.band(index));
        bands.push_back(isShared ? before->ownBand(index)
                                 : std::make_shared<const PixelBand>(std::make_shared<const Bytes>(pixels),
                                     std::make_unique<CountingStore>(pixels, visits)));
    }
    return RGBAFrame::ofBands(frame.width(), frame.height(), std::move(bands));
}

TEST(FrameReducer, EvictsPicturesThatHaveABackingStore)
{
    std::atomic<int> visits = 0;
    int told = 0;
    std::vector<RGBAFrame> frames{support::solid(1920, 40, gray(0)), support::solid(1920, 40, gray(0)),
        support::solid(1920, 40, gray(100)), support::solid(1920, 40, gray(100))};
    frames.resize(16, support::solid(1920, 40, gray(200))); // so many that no rate compares with the first ones
    FrameReducer reducer
        = FrameReducer::sparing(30, ExportPreset::slack, [&told](const RGBAFrame& /*picture*/) { ++told; });
    for (const RGBAFrame& frame : frames)
        reducer.append(backed(frame, std::nullopt, visits));
    EXPECT_EQ(visits, 0) << "pixels that the next frame is compared with stay at hand";
    EXPECT_EQ(told, 0) << "they take up no memory";
    const auto kept = reducer.selection(ExportPreset::slack).frames;
    ASSERT_EQ(kept.size(), 3U);
    EXPECT_EQ(kept[0].frame, frames[0]);
    EXPECT_EQ(kept[1].frame, frames[2]);
    EXPECT_EQ(kept[2].frame, frames[4]);
    EXPECT_GT(visits, 0);
    const GIFOptimizer::Config config{.preset = ExportPreset::slack, .sourceFPS = 30};
    EXPECT_EQ(GIFOptimizer::optimize(reducer, config), reference::optimize(frames, config).result);
}

TEST(FrameReducer, ReadsNoPixelsAgainToCompareFrames)
{
    Random random(133);
    for (std::int64_t i = support::iterations(40); i > 0; --i) {
        std::atomic<int> visits = 0;
        const ExportPreset preset = allPresets[static_cast<std::size_t>(random.below(std::ssize(allPresets)))];
        FrameReducer reducer = FrameReducer::sparing(30, preset);
        std::vector<RGBAFrame> frames{support::randomPicture(1 + random.below(30), 1 + random.below(90), random)};
        RGBAFrame latest = backed(frames.front(), std::nullopt, visits);
        std::vector<PixelView> pinned = latest.pinned(); // as a reader does that compares the next one with it
        reducer.append(latest);
        for (std::int64_t count = random.below(40); count > 0; --count) {
            frames.push_back(support::randomSuccessor(frames.back(), random));
            if (frames.back().pixelCount() == 0)
                frames.back() = frames[frames.size() - 2];
            latest = backed(frames.back(), latest, visits);
            pinned = latest.pinned();
            reducer.append(latest);
        }
        ASSERT_EQ(visits, 0);
        const GIFOptimizer::Config config{.preset = preset, .sourceFPS = 30};
        ASSERT_EQ(GIFOptimizer::optimize(reducer, config), reference::optimize(frames, config).result);
    }
}

TEST(FrameReducer, PassesOnWhyAPictureCannotBeKept)
{
    FrameReducer reducer
        = FrameReducer::sparing(30, ExportPreset::slack, [](const RGBAFrame&) { throw std::runtime_error("no room"); });
    EXPECT_THROW(reducer.append(support::solid(2, 2, gray(0))), std::runtime_error);
}

TEST(FrameReducer, ShrinkingAtOnceGivesTheFilesOfTheReference)
{
    Random random(132);
    for (std::int64_t i = support::iterations(20); i > 0; --i) {
        std::vector<RGBAFrame> frames{support::randomPicture(900 + random.below(400), 1 + random.below(6), random)};
        for (std::int64_t count = random.below(12); count > 0; --count)
            frames.push_back(support::randomSuccessor(frames.back(), random));
        for (const ExportPreset preset : allPresets) {
            FrameReducer reducer = FrameReducer::sparing(30, preset);
            for (const RGBAFrame& frame : frames)
                reducer.append(frame);
            const GIFOptimizer::Config config{.preset = preset, .sourceFPS = 30};
            ASSERT_EQ(GIFOptimizer::optimize(reducer, config), reference::optimize(frames, config).result);
        }
    }
}

} // namespace
} // namespace quillbox
