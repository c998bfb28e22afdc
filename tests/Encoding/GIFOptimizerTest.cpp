#include "Encoding/GIFOptimizer.h"

#include "Encoding/GIFEncoder.h"
#include "support/GifDecoding.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <vector>

namespace quillbox {
namespace {

using GIFOptimizer::optimize;
using GIFOptimizer::Progress;
using GIFOptimizer::Result;
using support::decodeWithGiflib;
using support::gray;
using support::Random;

/// 1000 black pixels, the first `count` of them white, `count` taken modulo 1000.
RGBAFrame withWhitePixels(std::int64_t count)
{
    return support::picture(
        50, 20, [=](std::int64_t x, std::int64_t y) { return gray(y * 50 + x < count % 1000 ? 255 : 0); });
}

/// `count` frames in which `changedPixels` of the 1000 pixels change from each frame to the next.
std::vector<RGBAFrame> clipOfActivity(std::int64_t count, std::int64_t changedPixels)
{
    std::vector<RGBAFrame> frames;
    for (std::int64_t i = 0; i < count; ++i)
        frames.push_back(withWhitePixels(i % 2 * changedPixels));
    return frames;
}

/// A picture of exactly `count` grid colours, one pixel each.
RGBAFrame pictureOfColors(std::int64_t count)
{
    return support::picture(count, 1, [](std::int64_t x, std::int64_t) {
        return RGBColor(static_cast<std::uint8_t>(x % 32 * 8), static_cast<std::uint8_t>(x / 32 * 8), 0);
    });
}

TEST(GIFOptimizer, OneFrameIsShownForAFifthOfASecond)
{
    const std::vector frames{support::solid(3, 2, gray(99))};
    const Result result = optimize(frames, {});
    EXPECT_EQ(result.frameCount, 1);
    EXPECT_EQ(result.sourceFrameCount, 1);
    EXPECT_EQ(result.effectiveFPS, 5);
    EXPECT_EQ(result.durationSeconds, 0.2);
    EXPECT_EQ(result.colorCount, 1);
    EXPECT_FALSE(result.usedDithering);
    EXPECT_EQ(result.byteCount, std::ssize(result.data));
    const std::vector expected{IndexedFrame{3, 2, {gray(99)}, Bytes(6, 0), 20}};
    EXPECT_EQ(support::differenceSeenByGiflib(result.data, expected), "");
}

TEST(GIFOptimizer, AStillRecordingBecomesOneFrame)
{
    const std::vector frames(90, support::solid(20, 10, gray(8)));
    const Result result = optimize(frames, {.preset = ExportPreset::slack, .sourceFPS = 30});
    EXPECT_EQ(result.effectiveFPS, 5);
    EXPECT_EQ(result.sourceFrameCount, 90);
    EXPECT_EQ(result.frameCount, 1);
    EXPECT_EQ(result.durationSeconds, 3.0);
    EXPECT_EQ(decodeWithGiflib(result.data).frames.at(0).delayCentiseconds, 300);
}

struct RateCase {
    std::int64_t changedPixels; ///< of 1000
    std::int64_t slack;
    std::int64_t github;
    std::int64_t docs;
};

void PrintTo(const RateCase& rate, std::ostream* stream)
{
    *stream << rate.changedPixels << " of 1000 pixels change";
}

class GIFOptimizerRate : public testing::TestWithParam<RateCase> { };

TEST_P(GIFOptimizerRate, FollowsTheActivityAndThePreset)
{
    const std::vector<RGBAFrame> frames = clipOfActivity(3, GetParam().changedPixels);
    EXPECT_EQ(optimize(frames, {.preset = ExportPreset::slack}).effectiveFPS, GetParam().slack);
    EXPECT_EQ(optimize(frames, {.preset = ExportPreset::github}).effectiveFPS, GetParam().github);
    EXPECT_EQ(optimize(frames, {.preset = ExportPreset::docs}).effectiveFPS, GetParam().docs);
}

// Two pairs: the sum of two equal fractions, halved, is the fraction itself, so the borders are met exactly.
INSTANTIATE_TEST_SUITE_P(Activities, GIFOptimizerRate,
    testing::Values(RateCase{0, 5, 5, 5}, RateCase{4, 5, 5, 5}, RateCase{5, 10, 10, 10}, RateCase{49, 10, 10, 10},
        RateCase{50, 12, 15, 15}, RateCase{199, 12, 15, 15}, RateCase{200, 12, 20, 24}, RateCase{999, 12, 20, 24}),
    [](const auto& tested) { return "Per1000Changed" + std::to_string(tested.param.changedPixels); });

struct DelayCase {
    ExportPreset preset;
    std::int64_t changedPixels;
    std::int64_t fps;
    std::int64_t delayCentiseconds;
};

void PrintTo(const DelayCase& delay, std::ostream* stream)
{
    *stream << delay.fps << " frames a second";
}

class GIFOptimizerDelay : public testing::TestWithParam<DelayCase> { };

TEST_P(GIFOptimizerDelay, IsTheRoundedHundredthPartOfASecond)
{
    // As many frames a second as the GIF has, so that none is left out, each unlike the one before.
    const std::vector<RGBAFrame> frames = clipOfActivity(5, GetParam().changedPixels);
    const Result result = optimize(frames, {.preset = GetParam().preset, .sourceFPS = GetParam().fps});
    EXPECT_EQ(result.effectiveFPS, GetParam().fps);
    const support::DecodedGif gif = decodeWithGiflib(result.data);
    ASSERT_EQ(gif.frames.size(), 5U);
    for (const auto& frame : gif.frames)
        EXPECT_EQ(frame.delayCentiseconds, GetParam().delayCentiseconds);
    EXPECT_EQ(result.durationSeconds, static_cast<double>(5 * GetParam().delayCentiseconds) / 100.0);
}

INSTANTIATE_TEST_SUITE_P(Rates, GIFOptimizerDelay,
    testing::Values(DelayCase{ExportPreset::slack, 30, 10, 10}, DelayCase{ExportPreset::slack, 500, 12, 8},
        DelayCase{ExportPreset::github, 100, 15, 7}, DelayCase{ExportPreset::github, 500, 20, 5},
        DelayCase{ExportPreset::docs, 500, 24, 4}),
    [](const auto& tested) { return std::to_string(tested.param.fps) + "FPS"; });

TEST(GIFOptimizer, TheSourceRateDoesNotCapTheChosenRate)
{
    const Result result = optimize(clipOfActivity(4, 900), {.preset = ExportPreset::docs, .sourceFPS = 2});
    EXPECT_EQ(result.effectiveFPS, 24);
    EXPECT_EQ(result.frameCount, 4);
    EXPECT_EQ(result.durationSeconds, 0.16);
}

TEST(GIFOptimizer, FramesAreTakenAtTheChosenRate)
{
    // 30 to 12 per second: of ten different frames 0, 2, 5 and 7 stay; the levels 40 and 56 are 41 and 57 on the grid.
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < 10; ++i)
        frames.push_back(support::solid(4, 4, gray(8 * i)));
    const Result result = optimize(frames, {.preset = ExportPreset::slack, .sourceFPS = 30});
    const support::DecodedGif gif = decodeWithGiflib(result.data);
    std::vector<RGBColor> colors;
    for (const auto& frame : gif.frames)
        colors.push_back(frame.localColorTable.at(frame.indices.at(0)));
    EXPECT_THAT(colors, testing::ElementsAre(gray(0), gray(16), gray(41), gray(57)));
    EXPECT_EQ(result.sourceFrameCount, 10);
    EXPECT_EQ(result.frameCount, 4);
}

TEST(GIFOptimizer, SlackIsCappedAt960Pixels)
{
    const std::vector frames{support::gradient(1920, 20, 0)};
    EXPECT_EQ(decodeWithGiflib(optimize(frames, {.preset = ExportPreset::slack}).data).width, 960);
    EXPECT_EQ(decodeWithGiflib(optimize(frames, {.preset = ExportPreset::slack}).data).height, 10);
    EXPECT_EQ(decodeWithGiflib(optimize(frames, {.preset = ExportPreset::github}).data).width, 1920);
    EXPECT_EQ(decodeWithGiflib(optimize(frames, {.preset = ExportPreset::docs}).data).width, 1920);
}

TEST(GIFOptimizer, AllFramesShareOnePalette)
{
    const std::vector frames{
        support::solid(2, 2, gray(0)), support::solid(2, 2, gray(255)), support::solid(2, 2, gray(0))};
    const support::DecodedGif gif = decodeWithGiflib(optimize(frames, {.sourceFPS = 5}).data);
    ASSERT_EQ(gif.frames.size(), 3U);
    for (const auto& frame : gif.frames)
        EXPECT_THAT(frame.localColorTable, testing::ElementsAre(gray(0), gray(255)));
}

TEST(GIFOptimizer, LoopsForEver)
{
    EXPECT_EQ(decodeWithGiflib(optimize(std::vector{support::solid(1, 1, gray(0))}, {}).data).loopCount, 0);
}

TEST(GIFOptimizer, ThePresetsFirstPaletteIsTriedFirst)
{
    const std::vector frames{support::gradient(200, 200, 3)};
    EXPECT_EQ(optimize(frames, {.preset = ExportPreset::slack}).colorCount, 64);
    EXPECT_EQ(optimize(frames, {.preset = ExportPreset::github}).colorCount, 128);
    EXPECT_EQ(optimize(frames, {.preset = ExportPreset::docs}).colorCount, 256);
}

TEST(GIFOptimizer, DithersWhenThreeTimesThePaletteIsLessThanTheColors)
{
    // Slack offers 64 colours: 3 · 64 = 192.
    EXPECT_FALSE(optimize(std::vector{pictureOfColors(192)}, {}).usedDithering);
    EXPECT_TRUE(optimize(std::vector{pictureOfColors(193)}, {}).usedDithering);
    EXPECT_FALSE(optimize(std::vector{pictureOfColors(64)}, {}).usedDithering);
}

TEST(GIFOptimizer, DecidesByThePaletteProduced)
{
    // Docs offers 256 colours, but only as many as occur are produced: 3 · 100 is not less than 100.
    const Result result = optimize(std::vector{pictureOfColors(100)}, {.preset = ExportPreset::docs});
    EXPECT_EQ(result.colorCount, 100);
    EXPECT_FALSE(result.usedDithering);
}

TEST(GIFOptimizer, AnOverrideDecidesInsteadOfTheColors)
{
    const std::vector many{support::gradient(200, 200, 3)};
    EXPECT_TRUE(optimize(many, {}).usedDithering);
    EXPECT_FALSE(optimize(many, {.ditheringOverride = false}).usedDithering);
    const std::vector few{support::solid(2, 2, gray(5))};
    EXPECT_FALSE(optimize(few, {}).usedDithering);
    EXPECT_TRUE(optimize(few, {.ditheringOverride = true}).usedDithering);
}

TEST(GIFOptimizer, FramesMayDifferInSize)
{
    const std::vector frames{support::solid(4, 3, gray(0)), support::solid(2, 5, gray(90))};
    const support::DecodedGif gif = decodeWithGiflib(optimize(frames, {.sourceFPS = 12}).data);
    EXPECT_EQ(gif.width, 4);
    EXPECT_EQ(gif.height, 3);
    EXPECT_EQ(gif.frames.at(1).width, 2);
    EXPECT_EQ(gif.frames.at(1).height, 5);
}

GIFEncodingError::DimensionTooLarge thrownFor(const std::vector<RGBAFrame>& frames)
{
    bool workBegan = false;
    try {
        (void)optimize(frames, {}, {.progress = [&](const Progress&) {
            workBegan = true;
        }});
    } catch (const GIFEncodingError& error) {
        EXPECT_FALSE(workBegan) << "sizes are looked at before any other work";
        return error.dimensionTooLarge();
    }
    ADD_FAILURE() << "nothing was thrown";
    return {};
}

TEST(GIFOptimizer, RefusesAnySideOver65535BeforeAnyWork)
{
    using TooLarge = GIFEncodingError::DimensionTooLarge;
    EXPECT_EQ(thrownFor({support::solid(65536, 1, gray(0))}), (TooLarge{65536, 1}));
    EXPECT_EQ(thrownFor({support::solid(1, 65536, gray(0))}), (TooLarge{1, 65536}));
    EXPECT_EQ(thrownFor({RGBAFrame(0, 65536, Bytes())}), (TooLarge{0, 65536}));
}

TEST(GIFOptimizer, RefusesANegativeSide)
{
    using TooLarge = GIFEncodingError::DimensionTooLarge;
    EXPECT_EQ(thrownFor({RGBAFrame(-1, 0, Bytes())}), (TooLarge{-1, 0}));
    EXPECT_EQ(thrownFor({RGBAFrame(-1, -1, Bytes(4, 0))}), (TooLarge{-1, -1}));
}

TEST(GIFOptimizer, NamesTheFirstFrameThatIsTooLarge)
{
    EXPECT_EQ(thrownFor({support::solid(2, 2, gray(0)), RGBAFrame(70'000, 0, Bytes()), RGBAFrame(0, 80'000, Bytes())}),
        (GIFEncodingError::DimensionTooLarge{70'000, 0}));
}

TEST(GIFOptimizer, TakesSidesOf65535)
{
    const Result wide = optimize(std::vector{support::solid(65535, 1, gray(0))}, {.preset = ExportPreset::docs});
    EXPECT_EQ(decodeWithGiflib(wide.data).width, 65535);
    const Result high = optimize(std::vector{support::solid(1, 65535, gray(0))}, {});
    EXPECT_EQ(decodeWithGiflib(high.data).height, 65535);
}

TEST(GIFOptimizerDeathTest, NeedsAFrame)
{
    EXPECT_DEATH((void)optimize(std::vector<RGBAFrame>(), {}), "there is a frame");
}

TEST(GIFOptimizer, FramesWithoutPixelsMakeAFileOfTheirSize)
{
    const Result result = optimize(std::vector{RGBAFrame(0, 0, Bytes())}, {});
    EXPECT_EQ(result.colorCount, 1);
    EXPECT_EQ(result.frameCount, 1);
    const std::vector expected{IndexedFrame{0, 0, {gray(0)}, {}, 20}};
    EXPECT_EQ(result.data, GIFEncoder::encode(expected));
}

TEST(GIFOptimizer, LeavesTheFramesAsTheyWere)
{
    Random random(81);
    const std::vector frames{support::noise(1200, 4, random), support::noise(1200, 4, random)};
    const std::vector copies{support::deepCopy(frames[0]), support::deepCopy(frames[1])};
    (void)optimize(frames, {});
    EXPECT_EQ(frames, copies);
}

TEST(GIFOptimizer, ReportsEveryFrameOfAnAttemptOneThreadAtATime)
{
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < 40; ++i)
        frames.push_back(withWhitePixels(i * 25));
    std::vector<Progress> reports;
    std::atomic<int> active = 0;
    bool alone = true;
    const auto note = [&](const Progress& progress) {
        alone = ++active == 1 && alone;
        reports.push_back(progress);
        --active;
    };
    const Result result = optimize(frames, {.sourceFPS = 12}, {.parallelism = {4}, .progress = note});
    EXPECT_TRUE(alone);
    ASSERT_FALSE(reports.empty());
    EXPECT_EQ(reports.back().framesDone, result.frameCount);
    std::int64_t previous = 0;
    for (const Progress& progress : reports) {
        EXPECT_EQ(progress.attempt, 1);
        EXPECT_EQ(progress.colors, 64);
        EXPECT_EQ(progress.frameCount, result.frameCount);
        EXPECT_GE(progress.framesDone, previous);
        EXPECT_LE(progress.framesDone, result.frameCount);
        previous = progress.framesDone;
    }
}

} // namespace
} // namespace quillbox
