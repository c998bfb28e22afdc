#include "Encoding/Precise/PreciseOptimizer.h"

#include "reference/Precise/ColorSearch.h"
#include "support/ForeignDecoders.h"
#include "support/Iterations.h"
#include "support/Pictures.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

namespace quillbox {
namespace {

using PreciseOptimizer::Config;
using PreciseOptimizer::Result;
using support::gray;
using support::Random;
using support::ShownGif;

constexpr std::int64_t ample = 1'000'000'000;

Result optimized(const std::vector<RGBAFrame>& frames, const Config& config, int threads = 2, std::int64_t fps = 30)
{
    DistinctFrames distinct = PreciseOptimizer::framesFor(config, fps);
    for (const RGBAFrame& frame : frames)
        distinct.append(frame);
    return PreciseOptimizer::optimize(distinct, config, {.parallelism = {threads}, .progress = {}, .finishNow = {}});
}

GIFOptimizer::Result optimizedClip(const DistinctFrames& frames, std::int64_t targetBytes)
{
    return PreciseOptimizer::optimize(frames, {.targetBytes = targetBytes}).clip;
}

std::vector<RGBColor> shownColorsOf(const RGBAFrame& frame)
{
    std::vector<RGBColor> colors;
    frame.forEachColor([&](RGBColor color) { colors.push_back(color); });
    return colors;
}

/// A frame of text in few colours, of which a piece is typed anew each time.
std::vector<RGBAFrame> typing(std::int64_t width, std::int64_t height, int count)
{
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < count; ++i) {
        frames.push_back(support::picture(width, height, [&](std::int64_t x, std::int64_t y) {
            const bool isTyped = y / 8 * width + x < std::int64_t{i / 2} * 7 * 8;
            return isTyped && (x * 7 + y * 3) % 5 == 0 ? gray(static_cast<int>(x % 9) * 20) : gray(240);
        }));
    }
    return frames;
}

/// Many colours that move: more than a table holds.
std::vector<RGBAFrame> colorful(std::int64_t width, std::int64_t height, int count)
{
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < count; ++i)
        frames.push_back(i % 4 == 3 ? frames.back() : support::gradient(width, height, i * 3));
    return frames;
}

/// What a GIF shows at the moment in the middle of each frame of the recording.
std::vector<std::size_t> shownAt(const ShownGif& gif, std::size_t frameCount, double fps)
{
    std::vector<std::size_t> shown;
    std::size_t picture = 0;
    double end = static_cast<double>(gif.delaysCentiseconds.front()) / 100;
    for (std::size_t i = 0; i < frameCount; ++i) {
        while (picture + 1 < gif.pictures.size() && end <= (static_cast<double>(i) + 0.5) / fps)
            end += static_cast<double>(gif.delaysCentiseconds[++picture]) / 100;
        shown.push_back(picture);
    }
    return shown;
}

/// PSNR over every frame of the recording.
double decibelsSeen(const ShownGif& gif, const std::vector<RGBAFrame>& frames, double fps = 30)
{
    double squares = 0;
    double samples = 0;
    const auto shown = shownAt(gif, frames.size(), fps);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const auto expected = shownColorsOf(frames[i]);
        const auto& seen = gif.pictures.at(shown[i]);
        for (std::size_t p = 0; p < expected.size(); ++p)
            squares += static_cast<double>(expected[p].distanceSquared(seen[p]));
        samples += 3 * static_cast<double>(expected.size());
    }
    return squares == 0 ? PreciseOptimizer::perfectDecibels : 10 * std::log10(255.0 * 255.0 * samples / squares);
}

TEST(PreciseOptimizer, ShowsFewColoursExactlyAsEveryDecoderSeesThem)
{
    const auto frames = typing(200, 60, 40);
    const Result result = optimized(frames, {.targetBytes = ample});
    for (const auto& decode : {support::decodeWithFFmpeg, support::decodeWithPillow, support::decodeWithImageMagick}) {
        const ShownGif gif = decode(result.clip.data, 200, 60);
        EXPECT_EQ(std::ssize(gif.pictures), result.clip.frameCount);
        const auto shown = shownAt(gif, frames.size(), 30);
        for (std::size_t i = 0; i < frames.size(); ++i)
            ASSERT_EQ(gif.pictures.at(shown[i]), shownColorsOf(frames[i])) << "frame " << i;
    }
    EXPECT_EQ(support::faultsFoundByGifsicle(result.clip.data), "");
    EXPECT_EQ(result.qualityDecibels, PreciseOptimizer::perfectDecibels);
    EXPECT_EQ(result.lossDecibels, 0);
    EXPECT_EQ(result.clip.frameCount, 20);
}

TEST(PreciseOptimizer, ShowsManyColoursAsItSaysAndEveryDecoderAlike)
{
    const auto frames = colorful(64, 48, 24);
    const Result result = optimized(frames, {.targetBytes = ample});
    const ShownGif gif = support::composedByGiflib(result.clip.data);
    EXPECT_EQ(support::decodeWithFFmpeg(result.clip.data, 64, 48).pictures, gif.pictures);
    EXPECT_EQ(support::decodeWithPillow(result.clip.data, 64, 48).pictures, gif.pictures);
    EXPECT_EQ(support::decodeWithImageMagick(result.clip.data, 64, 48).pictures, gif.pictures);
    EXPECT_EQ(support::faultsFoundByGifsicle(result.clip.data), "");
    EXPECT_NEAR(decibelsSeen(gif, frames), result.qualityDecibels, 0.001);
    EXPECT_EQ(result.clip.frameCount, 18);
    EXPECT_GT(result.qualityDecibels, 30);
}

TEST(PreciseOptimizer, ShowsEveryPictureExactlyWhereEachHasFewColoursOfItsOwn)
{
    support::Random random(41);
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < 3; ++i) {
        Bytes colors(std::size_t{4} * 200);
        std::ranges::generate(colors, [&] { return random.byte(); });
        Bytes pixels;
        for (int pixel = 0; pixel < 100 * 100; ++pixel) {
            const auto color = colors.begin() + 4 * random.below(200);
            pixels.insert(pixels.end(), color, color + 4);
        }
        frames.emplace_back(100, 100, std::move(pixels));
    }
    const Result result = optimized(frames, {.targetBytes = ample});
    EXPECT_EQ(result.qualityDecibels, PreciseOptimizer::perfectDecibels) << "the first one, too";
}

TEST(PreciseOptimizer, GivesTheSameBytesWithAnyNumberOfThreads)
{
    for (const std::int64_t budget : {ample, std::int64_t{4'000}}) {
        const auto frames = colorful(40, 30, static_cast<int>(4 + support::iterations(14)));
        const Result one = optimized(frames, {.targetBytes = budget}, 1);
        EXPECT_EQ(optimized(frames, {.targetBytes = budget}, 2), one);
        EXPECT_EQ(optimized(frames, {.targetBytes = budget}, 8), one);
    }
}

TEST(PreciseOptimizer, TakesAsLongAsTheRecording)
{
    for (const std::int64_t fps : {7, 24, 30, 60}) {
        const auto frames = colorful(16, 16, 25);
        const Result result = optimized(frames, {.targetBytes = ample}, 2, fps);
        const auto delays = support::composedByGiflib(result.clip.data).delaysCentiseconds;
        const auto sum = std::accumulate(delays.begin(), delays.end(), std::int64_t{0});
        EXPECT_NEAR(static_cast<double>(sum), 2500.0 / static_cast<double>(fps), 1) << fps;
        EXPECT_EQ(result.clip.durationSeconds, static_cast<double>(sum) / 100) << fps;
        EXPECT_GE(std::ranges::min(delays), 2) << fps;
    }
}

TEST(PreciseOptimizer, MeetsABudgetAndSaysWhatItGaveUp)
{
    const auto frames = colorful(60, 45, 40);
    const Result all = optimized(frames, {.targetBytes = ample});
    const std::int64_t budget = all.clip.byteCount / 2;
    const Result half = optimized(frames, {.targetBytes = budget});
    EXPECT_LE(half.clip.byteCount, budget);
    EXPECT_LT(half.qualityDecibels, all.qualityDecibels);
    EXPECT_TRUE(half.lossDecibels > 0 || half.thinnedFrames > 0 || half.scale < 1);
    EXPECT_EQ(all.lossDecibels, 0);
    EXPECT_EQ(all.thinnedFrames, 0);
    EXPECT_EQ(all.scale, 1);
}

TEST(PreciseOptimizer, GivesUpColoursThatAreHardlySeenBeforePictures)
{
    Random random(7);
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < 30; ++i) { // 200 levels of grey, of which 100 are enough for an error of one level
        frames.push_back(support::picture(
            40, 30, [&](std::int64_t, std::int64_t) { return gray(static_cast<int>(random.below(200))); }));
    }
    const Result all = optimized(frames, {.targetBytes = ample});
    const Result most = optimized(frames, {.targetBytes = all.clip.byteCount * 96 / 100});
    EXPECT_EQ(all.qualityDecibels, PreciseOptimizer::perfectDecibels);
    EXPECT_LT(most.clip.colorCount, all.clip.colorCount);
    EXPECT_EQ(most.thinnedFrames, 0);
    EXPECT_GT(most.qualityDecibels, 45);
}

TEST(PreciseOptimizer, FindsAboutAsManyColoursAsTryingAllOfThem)
{
    Random random(11);
    DistinctFrames distinct = PreciseOptimizer::framesFor({}, 30);
    for (int i = 0; i < 10; ++i) {
        distinct.append(support::picture(
            40, 30, [&](std::int64_t x, std::int64_t) { return gray(static_cast<int>(random.below(100) + x * 3)); }));
    }
    const std::int64_t all = optimizedClip(distinct, ample).byteCount;
    for (const std::int64_t share : {97, 93, 89}) {
        const std::int64_t budget = all * share / 100;
        const std::int64_t most = reference::mostColors(distinct.recording(), budget);
        const GIFOptimizer::Result found = optimizedClip(distinct, budget);
        EXPECT_LE(found.byteCount, budget);
        EXPECT_LE(found.colorCount, most) << share;
        EXPECT_GE(found.colorCount, most * 2 / 3) << share;
    }
}

TEST(PreciseOptimizer, LeavesOutNoPictureWhereThatLeavesAGapOfMoreThanATenthOfASecond)
{
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < 60; ++i)
        frames.push_back(support::gradient(60, 45, i * 3));
    const Result all = optimized(frames, {.targetBytes = ample});
    const Result few = optimized(frames, {.targetBytes = all.clip.byteCount / 5});
    EXPECT_GT(few.thinnedFrames, 10);
    EXPECT_LE(std::ranges::max(support::composedByGiflib(few.clip.data).delaysCentiseconds), 10);
}

TEST(PreciseOptimizer, UsesAsManyColoursAsTheBudgetAllows)
{
    const auto frames = colorful(60, 45, 40);
    const Result all = optimized(frames, {.targetBytes = ample});
    std::int64_t before = 256;
    for (const std::int64_t share : {60, 45, 30}) {
        const std::int64_t budget = all.clip.byteCount * share / 100;
        const Result result = optimized(frames, {.targetBytes = budget});
        EXPECT_LE(result.clip.byteCount, budget) << share;
        EXPECT_GE(result.clip.byteCount, budget * 3 / 4) << share;
        EXPECT_LE(result.clip.colorCount, before) << share;
        before = result.clip.colorCount;
    }
}

TEST(PreciseOptimizer, IsOverABudgetThatNothingMeets)
{
    EXPECT_GT(optimized(colorful(20, 20, 10), {.targetBytes = 1}).clip.byteCount, 1);
}

TEST(PreciseOptimizer, MakesOfOneFrameOnePictureOfItsLength)
{
    const Result result = optimized({support::solid(5, 4, gray(3))}, {}, 2, 4);
    EXPECT_EQ(result.clip.frameCount, 1);
    EXPECT_EQ(result.clip.sourceFrameCount, 1);
    EXPECT_EQ(result.clip.durationSeconds, 0.25);
    EXPECT_EQ(support::composedByGiflib(result.clip.data).pictures.at(0), std::vector<RGBColor>(20, gray(3)));
}

TEST(PreciseOptimizer, UsesNoMoreColoursThanAsked)
{
    const Result result = optimized(colorful(40, 40, 10), {.targetBytes = ample, .maxColors = 16});
    EXPECT_LE(result.clip.colorCount, 16);
    EXPECT_EQ(result.clip.byteCount, std::ssize(result.clip.data));
}

TEST(PreciseOptimizer, CountsItsAttemptsAndEndsWhenAsked)
{
    std::stop_source stop;
    stop.request_stop();
    std::vector<GIFOptimizer::Progress> told;
    DistinctFrames distinct = PreciseOptimizer::framesFor({}, 30);
    for (const RGBAFrame& frame : colorful(60, 60, 20))
        distinct.append(frame);
    const Result result = PreciseOptimizer::optimize(distinct, {.targetBytes = 100},
        {.parallelism = {2},
            .progress = [&](const auto& progress) { told.push_back(progress); },
            .finishNow = stop.get_token()});
    EXPECT_EQ(told.front().attempt, 1);
    EXPECT_EQ(told.back().attempt, 1);
    EXPECT_EQ(told.back().framesDone, told.back().frameCount);
    EXPECT_EQ(result.clip.frameCount, told.back().frameCount);
}

TEST(PreciseOptimizer, TakesLimitsFromAPreset)
{
    EXPECT_EQ(Config::of(ExportPreset::slack), (Config{.targetBytes = 2'000'000, .maxWidth = 960}));
    EXPECT_EQ(Config::of(ExportPreset::docs), (Config{.targetBytes = 5'000'000, .maxWidth = std::nullopt}));
}

} // namespace
} // namespace quillbox
