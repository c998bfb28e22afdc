#include "Encoding/FrameIntake.h"

#include "Encoding/GIFOptimizer.h"
#include "reference/GIFOptimizer.h"
#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

using support::gray;
using support::Random;

const std::vector<ExportPreset> allPresets{ExportPreset::slack, ExportPreset::github, ExportPreset::docs};

FrameIntake intakeOf(const std::vector<RGBAFrame>& frames, std::int64_t sourceFPS)
{
    FrameIntake intake(sourceFPS, allPresets);
    for (const RGBAFrame& frame : frames)
        intake.append(frame);
    return intake;
}

TEST(FrameIntake, CountsWhatItTakes)
{
    FrameIntake intake(24, allPresets);
    EXPECT_EQ(intake.sourceFPS(), 24);
    EXPECT_EQ(intake.frameCount(), 0);
    intake.append(support::solid(2, 2, gray(0)));
    intake.append(support::solid(2, 2, gray(0)));
    EXPECT_EQ(intake.frameCount(), 2);
}

TEST(FrameIntake, SelectsForEachPresetFromTheSameFrames)
{
    // Every pixel changes in every frame: 12, 20 and 24 frames a second, so of 30 frames the 0th, 2nd, 5th, …;
    // the 0th, 1st, 3rd, …; the 0th, 1st, 2nd, 3rd, 5th, …
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < 30; ++i)
        frames.push_back(support::solid(2, 2, gray(i * 8)));
    const FrameIntake intake = intakeOf(frames, 30);
    const auto slack = intake.selection(ExportPreset::slack);
    EXPECT_EQ(slack.fps, 12);
    ASSERT_EQ(slack.frames.size(), 12U);
    EXPECT_EQ(slack.frames[1], (FrameDeduplicator::Timed{frames[2], 8}));
    const auto github = intake.selection(ExportPreset::github);
    EXPECT_EQ(github.fps, 20);
    ASSERT_EQ(github.frames.size(), 20U);
    EXPECT_EQ(github.frames[2], (FrameDeduplicator::Timed{frames[3], 5}));
    const auto docs = intake.selection(ExportPreset::docs);
    EXPECT_EQ(docs.fps, 24);
    ASSERT_EQ(docs.frames.size(), 24U);
    EXPECT_EQ(docs.frames[4], (FrameDeduplicator::Timed{frames[5], 4}));
}

TEST(FrameIntake, MayBeAskedBetweenFrames)
{
    FrameIntake intake(30, allPresets);
    intake.append(support::solid(2, 2, gray(0)));
    EXPECT_EQ(intake.selection(ExportPreset::slack).frames.size(), 1U);
    intake.append(support::solid(2, 2, gray(100)));
    intake.append(support::solid(2, 2, gray(200)));
    EXPECT_EQ(intake.selection(ExportPreset::slack).frames.size(), 2U);
}

TEST(FrameIntake, LetsGoOfFramesThatNoRateKeeps)
{
    // 60 to 24 and below keeps neither the 1st nor the 3rd frame of any preset.
    FrameIntake intake(60, allPresets);
    const RGBAFrame dropped = support::solid(2, 2, gray(8));
    intake.append(support::solid(2, 2, gray(0)));
    intake.append(dropped);
    intake.append(support::solid(2, 2, gray(16)));
    intake.append(support::solid(2, 2, gray(24)));
    for (const ExportPreset preset : allPresets) {
        for (const auto& timed : intake.selection(preset).frames)
            EXPECT_FALSE(timed.frame.sharesPixels(dropped));
    }
}

TEST(FrameIntake, SharesThePixelsOfWhatItKeeps)
{
    const RGBAFrame frame = support::solid(2, 2, gray(0));
    EXPECT_TRUE(intakeOf({frame}, 30).selection(ExportPreset::docs).frames.at(0).frame.sharesPixels(frame));
}

TEST(FrameIntake, NamesTheFirstFrameThatIsTooLargeWhenAsked)
{
    const FrameIntake intake
        = intakeOf({support::solid(2, 2, gray(0)), RGBAFrame(65536, 0, Bytes()), RGBAFrame(0, 70'000, Bytes())}, 30);
    try {
        (void)intake.selection(ExportPreset::slack);
        FAIL() << "nothing was thrown";
    } catch (const GIFEncodingError& error) {
        EXPECT_EQ(error, GIFEncodingError({65536, 0}));
    }
}

TEST(FrameIntakeDeathTest, NeedsAFrameAndAKnownPreset)
{
    EXPECT_DEATH((void)FrameIntake(30, allPresets).selection(ExportPreset::slack), "there is a frame");
    EXPECT_DEATH(FrameIntake(30, {}), "at least one preset");
}

TEST(FrameIntakeDeathTest, TheSourceRateMustBeTheOneOfTheConfiguration)
{
    const FrameIntake intake = intakeOf({support::solid(1, 1, gray(0))}, 30);
    EXPECT_DEATH(
        (void)GIFOptimizer::optimize(intake, {.preset = ExportPreset::slack, .sourceFPS = 24}), "source's rate");
}

TEST(FrameIntake, OneIntakeForAllPresetsGivesTheFilesOfTheReference)
{
    Random random(131);
    for (std::int64_t i = support::iterations(150); i > 0; --i) {
        std::vector<RGBAFrame> frames{support::randomPicture(random.below(30), random.below(30), random)};
        for (std::int64_t count = random.below(40); count > 0; --count)
            frames.push_back(support::randomSuccessor(frames.back(), random));
        const std::int64_t sourceFPS = random.pick<std::int64_t>({30, 60, 25, 10, 0});
        const FrameIntake intake = intakeOf(frames, sourceFPS);
        for (const ExportPreset preset : allPresets) {
            const GIFOptimizer::Config config{.preset = preset, .sourceFPS = sourceFPS};
            ASSERT_EQ(GIFOptimizer::optimize(intake, config), reference::optimize(frames, config).result);
        }
    }
}

TEST(FrameIntake, KeepsFramesSmallWhenItIsToldToSpareMemory)
{
    FrameIntake intake = FrameIntake::sparing(30, ExportPreset::slack);
    intake.append(support::solid(1920, 4, gray(0)));
    const RGBAFrame narrow = support::solid(960, 2, gray(100));
    for (int i = 0; i < 5; ++i)
        intake.append(narrow);
    const auto frames = intake.selection(ExportPreset::slack).frames;
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_EQ(frames[0].frame, support::solid(960, 2, gray(0)));
    EXPECT_TRUE(frames[1].frame.sharesPixels(narrow)) << "what is small enough is passed on";
}

TEST(FrameIntake, KeepsWhatTheKeeperGivesForEachPictureOnce)
{
    std::vector<RGBAFrame> asked;
    const auto keeper = [&asked](const RGBAFrame& picture) {
        asked.push_back(picture);
        return support::inBands({picture}).front();
    };
    FrameIntake intake = FrameIntake::sparing(30, ExportPreset::slack, keeper);
    intake.append(support::solid(1920, 4, gray(0))); // the first of every rate
    intake.append(support::solid(1920, 4, gray(0)));
    intake.append(support::solid(1920, 4, gray(100))); // of 12 a second
    ASSERT_EQ(asked, (std::vector{support::solid(960, 2, gray(0)), support::solid(960, 2, gray(100))}));
    const auto frames = intake.selection(ExportPreset::slack).frames;
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_EQ(frames[1].frame, asked[1]);
    EXPECT_NE(frames[1].frame.ownBand(0), nullptr);
}

/// Pixels that lie elsewhere. Counts how often they are fetched.
class Elsewhere final : public PixelBand::Source {
public:
    Elsewhere(Bytes bytes, std::atomic<int>& visits)
        : m_bytes(std::move(bytes))
        , m_visits(visits)
    {
    }
    [[nodiscard]] std::shared_ptr<const Bytes> pixels() const override
    {
        ++m_visits;
        return std::make_shared<const Bytes>(m_bytes);
    }

private:
    Bytes m_bytes;
    std::atomic<int>& m_visits;
};

RGBAFrame alsoElsewhere(const RGBAFrame& frame, std::atomic<int>& visits)
{
    std::vector<RGBAFrame::Band> bands;
    for (std::int64_t index = 0; index < frame.bandCount(); ++index) {
        const Bytes pixels(frame.band(index));
        bands.push_back(std::make_shared<const PixelBand>(std::make_shared<const Bytes>(pixels),
            std::make_shared<const PixelBand>(pixels.size(), std::make_unique<Elsewhere>(pixels, visits))));
    }
    return RGBAFrame::ofBands(frame.width(), frame.height(), std::move(bands));
}

TEST(FrameIntake, KeepsPicturesElsewhereThatAreThereAnyway)
{
    std::atomic<int> visits = 0;
    int asked = 0;
    const std::vector<RGBAFrame> frames{support::solid(1920, 40, gray(0)), support::solid(1920, 40, gray(0)),
        support::solid(1920, 40, gray(100)), support::solid(1920, 40, gray(100))};
    FrameIntake intake = FrameIntake::sparing(30, ExportPreset::slack, [&asked](const RGBAFrame& picture) {
        ++asked;
        return picture;
    });
    for (const RGBAFrame& frame : frames)
        intake.append(alsoElsewhere(frame, visits));
    EXPECT_EQ(visits, 0) << "what is at hand is not fetched to be compared";
    EXPECT_EQ(asked, 0);
    const auto kept = intake.selection(ExportPreset::slack).frames;
    ASSERT_EQ(kept.size(), 2U);
    EXPECT_EQ(kept[1].frame, frames[2]);
    EXPECT_GT(visits, 0);
    const GIFOptimizer::Config config{.preset = ExportPreset::slack, .sourceFPS = 30};
    EXPECT_EQ(GIFOptimizer::optimize(intake, config), reference::optimize(frames, config).result);
}

TEST(FrameIntake, PassesOnWhyAPictureCannotBeKept)
{
    FrameIntake intake = FrameIntake::sparing(
        30, ExportPreset::slack, [](const RGBAFrame&) -> RGBAFrame { throw std::runtime_error("no room"); });
    EXPECT_THROW(intake.append(support::solid(2, 2, gray(0))), std::runtime_error);
}

TEST(FrameIntake, ShrinkingAtOnceGivesTheFilesOfTheReference)
{
    Random random(132);
    for (std::int64_t i = support::iterations(20); i > 0; --i) {
        std::vector<RGBAFrame> frames{support::randomPicture(900 + random.below(400), 1 + random.below(6), random)};
        for (std::int64_t count = random.below(12); count > 0; --count)
            frames.push_back(support::randomSuccessor(frames.back(), random));
        for (const ExportPreset preset : allPresets) {
            FrameIntake intake = FrameIntake::sparing(30, preset);
            for (const RGBAFrame& frame : frames)
                intake.append(frame);
            const GIFOptimizer::Config config{.preset = preset, .sourceFPS = 30};
            ASSERT_EQ(GIFOptimizer::optimize(intake, config), reference::optimize(frames, config).result);
        }
    }
}

} // namespace
} // namespace quillbox
