#include "Encoding/GIFOptimizer.h"

#include "reference/GIFOptimizer.h"
#include "support/GifDecoding.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <stop_token>
#include <utility>
#include <vector>

// Noise compresses to about as many bytes a pixel as its palette has bits, so the number of pixels decides which
// palette is the first to fit a budget.

namespace quillbox {
namespace {

using GIFOptimizer::Config;
using GIFOptimizer::optimize;
using GIFOptimizer::Progress;
using GIFOptimizer::Result;
using support::Random;
using testing::ElementsAre;

/// Frames of noise with `pixels` pixels in all, none alike.
std::vector<RGBAFrame> noiseClip(std::int64_t pixels)
{
    Random random(101);
    std::vector<RGBAFrame> frames;
    for (std::int64_t rest = pixels; rest > 0; rest -= 400 * 400)
        frames.push_back(
            support::noise(400, std::min<std::int64_t>(400, std::max<std::int64_t>(rest / 400, 1)), random));
    return frames;
}

struct Outcome {
    Result result;
    std::vector<std::int64_t> attemptedColors;
};

Outcome optimizeNoting(const std::vector<RGBAFrame>& frames, const Config& config)
{
    Outcome outcome;
    std::vector<std::int64_t>& colors = outcome.attemptedColors;
    outcome.result = optimize(frames, config, {.parallelism = {}, .progress = [&](const Progress& progress) {
                                                   if (std::ranges::find(colors, progress.colors) == colors.end())
                                                       colors.push_back(progress.colors);
                                               }});
    return outcome;
}

TEST(GIFOptimizerBudget, AFileWithinTheBudgetEndsTheSearchAtOnce)
{
    const Outcome outcome = optimizeNoting(noiseClip(1'700'000), {.preset = ExportPreset::slack, .sourceFPS = 12});
    EXPECT_THAT(outcome.attemptedColors, ElementsAre(64));
    EXPECT_GT(outcome.result.byteCount, 1'400'000);
    EXPECT_LE(outcome.result.byteCount, 2'000'000);
    EXPECT_EQ(outcome.result.colorCount, 64);
}

TEST(GIFOptimizerBudget, SmallerPalettesAreTriedUntilAFileFits)
{
    const std::vector<RGBAFrame> frames = noiseClip(2'900'000);
    const Config config{.preset = ExportPreset::slack, .sourceFPS = 12};
    const Outcome outcome = optimizeNoting(frames, config);
    const reference::OptimizedClip expected = reference::optimize(frames, config);
    EXPECT_EQ(outcome.attemptedColors, expected.attemptedColors);
    ASSERT_GT(outcome.attemptedColors.size(), 1U) << "the clip is meant to need several attempts";
    EXPECT_LE(outcome.result.byteCount, 2'000'000);
    EXPECT_EQ(outcome.result, expected.result);
    EXPECT_EQ(support::differenceSeenByGiflib(outcome.result.data, expected.frames), "");
}

TEST(GIFOptimizerBudget, TheSmallestFileIsReturnedWhenNoneFits)
{
    const std::vector<RGBAFrame> frames = noiseClip(4'200'000);
    const Config config{.preset = ExportPreset::slack, .sourceFPS = 12, .ditheringOverride = false};
    const Outcome outcome = optimizeNoting(frames, config);
    EXPECT_THAT(outcome.attemptedColors, ElementsAre(64, 48, 32, 24, 16));
    EXPECT_GT(outcome.result.byteCount, 2'000'000);
    EXPECT_EQ(outcome.result.colorCount, 16);
    EXPECT_EQ(outcome.result, reference::optimize(frames, config).result);
}

TEST(GIFOptimizerBudget, AnAttemptIsLeftAsSoonAsItExceedsTheBudget)
{
    const std::vector<RGBAFrame> frames = noiseClip(8'000'000); // 50 frames, several times the budget
    std::vector<Progress> last;                                 // of each advance
    (void)optimize(frames, {.preset = ExportPreset::slack, .sourceFPS = 12, .ditheringOverride = false},
        {.parallelism = {2}, .progress = [&](const Progress& progress) {
             if (last.empty() || last.back().attempt != progress.attempt)
                 last.emplace_back();
             last.back() = progress;
         }});
    ASSERT_EQ(last.size(), 9U) << "five attempts, then the four that were not finished";
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_LT(last[i].framesDone, 50 - 16) << last[i].attempt;
    EXPECT_EQ(last[4].framesDone, 50);
    for (std::size_t i = 5; i < last.size(); ++i) {
        EXPECT_EQ(last[i].attempt, static_cast<std::int64_t>(i) + 1);
        EXPECT_EQ(last[i].colors, last[8 - i].colors) << "the smaller ones first";
        EXPECT_GT(last[i].framesDone, last[8 - i].framesDone) << "it goes on where it was";
    }
}

TEST(GIFOptimizerBudget, AnAttemptThatIsLargerAlreadyDoesNotGoOn)
{
    // The first frame alone is over the budget, and at 16 colours it is smaller than with any other palette.
    Random random(107);
    const std::vector<RGBAFrame> frames{support::noise(960, 4200, random), support::solid(1, 1, support::gray(0)),
        support::solid(2, 1, support::gray(0))};
    std::vector<Progress> last(9); // of each advance
    const Result result = optimize(frames, {.preset = ExportPreset::slack, .sourceFPS = 12, .ditheringOverride = false},
        {.parallelism = {1}, .progress = [&](const Progress& progress) {
             last.at(static_cast<std::size_t>(progress.attempt) - 1) = progress;
         }});
    EXPECT_GT(result.byteCount, 2'000'000);
    EXPECT_EQ(result.colorCount, 16);
    EXPECT_EQ(last[4].framesDone, 3);
    for (const std::size_t i : {0U, 1U, 2U, 3U, 5U, 6U, 7U, 8U})
        EXPECT_EQ(last[i].framesDone, 1) << last[i].attempt;
}

TEST(GIFOptimizerBudget, GitHubGoesDownItsWholeLadder)
{
    const Outcome outcome = optimizeNoting(noiseClip(18'000'000), {.preset = ExportPreset::github, .sourceFPS = 20});
    EXPECT_THAT(outcome.attemptedColors, ElementsAre(128, 96, 64, 48, 32));
    EXPECT_GT(outcome.result.byteCount, 10'000'000);
    EXPECT_EQ(outcome.result.colorCount, 32);
}

TEST(GIFOptimizerBudget, DocsGoesDownItsWholeLadder)
{
    const Outcome outcome = optimizeNoting(noiseClip(7'500'000), {.preset = ExportPreset::docs, .sourceFPS = 24});
    EXPECT_THAT(outcome.attemptedColors, ElementsAre(256, 192, 128, 96, 64));
    EXPECT_GT(outcome.result.byteCount, 5'000'000);
    EXPECT_EQ(outcome.result.colorCount, 64);
}

/// A clip whose GIF has 33 + 271 + 215 · 9300 + `onePixelFrames` bytes, as long as its palette has 64 colours.
///
/// Header, screen, looping extension and trailer have 6 + 7 + 19 + 1 bytes. A frame has 8 for its control, 10 for its
/// descriptor, 192 for its table and 1 for the code size, then sub-blocks. The first picture shows each of the 64
/// colours once: clear and 63 literals of 7 bits (the 63rd assigns 128), then a literal and the end of 8 bits, which
/// is 58 bytes and, with length and terminator, 60. A frame without pixels has two codes of 7 bits: 2 + 2 bytes; one
/// of a single pixel has a code more: 3 + 2 bytes. Frames of different size, or without pixels, are never merged.
std::vector<RGBAFrame> clipOfKnownSize(std::int64_t onePixelFrames)
{
    std::vector<RGBAFrame> frames{support::picture(64, 1, [](std::int64_t x, std::int64_t) {
        return RGBColor(static_cast<std::uint8_t>(x * 4 / 8 * 8), static_cast<std::uint8_t>(x % 2 * 8), 0);
    })};
    for (std::int64_t i = 0; i < 9300; ++i)
        frames.push_back(
            i % 2 == 1 && i / 2 < onePixelFrames ? support::solid(1, 1, support::gray(0)) : RGBAFrame(0, 0, Bytes()));
    return frames;
}

TEST(GIFOptimizerBudget, AFileOfExactlyTheBudgetIsAccepted)
{
    const Outcome outcome = optimizeNoting(clipOfKnownSize(196), {.preset = ExportPreset::slack, .sourceFPS = 12});
    EXPECT_EQ(outcome.result.byteCount, 2'000'000); // 33 + 271 + 215 · 9300 + 196
    EXPECT_EQ(outcome.result.colorCount, 64);
    EXPECT_THAT(outcome.attemptedColors, ElementsAre(64));
}

TEST(GIFOptimizerBudget, AFileOfOneByteMoreIsNot)
{
    const Outcome outcome = optimizeNoting(clipOfKnownSize(197), {.preset = ExportPreset::slack, .sourceFPS = 12});
    EXPECT_THAT(outcome.attemptedColors, ElementsAre(64, 48, 32)); // 48 colours need tables of 64 entries as well
    EXPECT_EQ(outcome.result.colorCount, 32);
}

TEST(GIFOptimizerBudget, ALaterButLargerFileIsNotReturned)
{
    // 150 colours in runs of six pixels. At 64 colours they are not dithered (192 is not less than 150), and the
    // runs compress; from 48 colours on they are (144 is), and dithering breaks the runs up.
    Random random(103);
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < 10; ++i) {
        RGBColor color;
        frames.push_back(support::picture(960, 960, [&](std::int64_t x, std::int64_t) {
            if (x % 6 == 0) {
                const std::int64_t number = random.below(150);
                color = RGBColor(static_cast<std::uint8_t>(number % 6 * 48),
                    static_cast<std::uint8_t>(number / 6 % 5 * 48), static_cast<std::uint8_t>(number / 30 * 48));
            }
            return color;
        }));
    }
    const Outcome outcome = optimizeNoting(frames, {.preset = ExportPreset::slack, .sourceFPS = 12});
    EXPECT_THAT(outcome.attemptedColors, ElementsAre(64, 48, 32, 24, 16));
    EXPECT_GT(outcome.result.byteCount, 2'000'000);
    EXPECT_EQ(outcome.result.colorCount, 64);
    EXPECT_FALSE(outcome.result.usedDithering);
}

/// Asks for an early end when attempt `number` begins.
Result finishedAt(std::int64_t number, const std::vector<RGBAFrame>& frames, const Config& config)
{
    std::stop_source finishNow;
    return optimize(frames, config,
        {.parallelism = {},
            .progress =
                [&](const Progress& progress) {
                    if (progress.attempt == number)
                        finishNow.request_stop();
                },
            .finishNow = finishNow.get_token()});
}

TEST(GIFOptimizerFinish, TheFirstAttemptIsAlwaysFinished)
{
    const Config config{.preset = ExportPreset::slack, .sourceFPS = 12};
    EXPECT_EQ(finishedAt(1, noiseClip(4'200'000), config).colorCount, 64);
}

TEST(GIFOptimizerFinish, AnAttemptThatWasLeftIsFinished)
{
    const std::vector<RGBAFrame> frames = noiseClip(4'200'000);
    const Config config{.preset = ExportPreset::slack, .sourceFPS = 12};
    for (const auto& [attempt, colors] : {std::pair{2, 64}, {4, 32}}) {
        const Result result = finishedAt(attempt, frames, config);
        EXPECT_GT(result.byteCount, 2'000'000);
        EXPECT_EQ(result, reference::attempt(frames, config, colors).result) << "at attempt " << attempt;
    }
}

TEST(GIFOptimizerFinish, ChangesNothingOnceThereIsOneThatFits)
{
    const std::vector<RGBAFrame> frames = noiseClip(1'700'000);
    const Config config{.preset = ExportPreset::slack, .sourceFPS = 12};
    EXPECT_EQ(finishedAt(1, frames, config), optimize(frames, config));
}

} // namespace
} // namespace quillbox
