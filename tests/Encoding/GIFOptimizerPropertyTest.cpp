#include "Encoding/GIFOptimizer.h"

#include "reference/GIFOptimizer.h"
#include "support/GifDecoding.h"
#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace quillbox {
namespace {

using GIFOptimizer::Config;
using support::Random;

std::string described(const Config& config, int threads)
{
    const std::string dithering = !config.ditheringOverride ? "auto" : *config.ditheringOverride ? "always" : "never";
    return std::string(config.preset.rawValue()) + ", dithering " + dithering + ", " + std::to_string(config.sourceFPS)
        + " fps, " + std::to_string(threads) + " threads";
}

/// The library's result equals the reference's in every field, and giflib reads the file back as the frames it was
/// made of.
void expectReference(const std::vector<RGBAFrame>& frames, const Config& config, int threads)
{
    const reference::OptimizedClip expected = reference::optimize(frames, config);
    const GIFOptimizer::Result result
        = GIFOptimizer::optimize(frames, config, {.parallelism = {threads}, .progress = {}});
    ASSERT_EQ(result.data, expected.result.data) << described(config, threads);
    ASSERT_EQ(result, expected.result) << described(config, threads);
    ASSERT_EQ(GIFOptimizer::optimize(support::inBands(frames), config, {.parallelism = {threads}}), expected.result)
        << described(config, threads) << ", in bands";
    const bool allHavePixels
        = std::ranges::all_of(expected.frames, [](const IndexedFrame& frame) { return !frame.indices.empty(); });
    if (allHavePixels) {
        ASSERT_EQ(support::differenceSeenByGiflib(result.data, expected.frames), "") << described(config, threads);
    }
}

struct Recording {
    std::vector<RGBAFrame> frames;
    std::int64_t sourceFPS = 30;
};

Recording randomRecording(Random& random)
{
    const bool isStrip = random.oneIn(12); // wide enough for the width cap
    const auto anyWidth = [&] {
        return isStrip ? random.between(900, 1300) : random.below(40);
    };
    const auto anyHeight = [&] {
        return isStrip ? random.below(5) : random.below(40);
    };
    const bool sizesDiffer = random.oneIn(6);
    Recording recording;
    recording.frames.push_back(support::randomPicture(anyWidth(), anyHeight(), random));
    for (std::int64_t count = random.below(isStrip ? 4 : 14); count > 0; --count) {
        recording.frames.push_back(sizesDiffer && random.oneIn(3)
                ? support::randomPicture(anyWidth(), anyHeight(), random)
                : support::randomSuccessor(recording.frames.back(), random));
    }
    recording.sourceFPS = random.pick<std::int64_t>({30, 30, 24, 60, 12, 5, 1, 0, -3});
    return recording;
}

class GIFOptimizerProperty : public testing::TestWithParam<std::tuple<ExportPreset::Case, std::optional<bool>>> {
protected:
    [[nodiscard]] Config config(std::int64_t sourceFPS) const
    {
        return {
            .preset = std::get<0>(GetParam()), .sourceFPS = sourceFPS, .ditheringOverride = std::get<1>(GetParam())};
    }
};

TEST_P(GIFOptimizerProperty, RandomRecordingsEqualTheReference)
{
    Random random(91);
    for (std::int64_t i = 0; i < support::iterations(160); ++i) {
        const Recording recording = randomRecording(random);
        expectReference(recording.frames, config(recording.sourceFPS), static_cast<int>(1 + i % 8));
    }
}

TEST_P(GIFOptimizerProperty, EveryNumberOfThreadsGivesTheSameResult)
{
    // More frames than one thread's share of work, with still stretches, changing rows and moving rows.
    Random random(92);
    std::vector<RGBAFrame> frames{support::textLike(90, 60, 0)};
    while (frames.size() < 70)
        frames.push_back(random.oneIn(3) ? support::textLike(90, 60, random.below(40))
                                         : support::randomSuccessor(frames.back(), random));
    const reference::OptimizedClip expected = reference::optimize(frames, config(30));
    for (int threads = 0; threads <= 8; ++threads)
        ASSERT_EQ(
            GIFOptimizer::optimize(frames, config(30), {.parallelism = {threads}, .progress = {}}), expected.result)
            << threads << " threads";
}

TEST_P(GIFOptimizerProperty, LargeRecordingsEqualTheReference)
{
    std::vector<RGBAFrame> text;
    std::vector<RGBAFrame> gradient;
    for (std::int64_t i = 0; i < 12; ++i) {
        text.push_back(support::textLike(400, 240, i / 3 * 7));
        gradient.push_back(support::gradient(320, 200, i * 5));
    }
    expectReference(text, config(30), 2);
    expectReference(gradient, config(24), 3);
}

std::string nameOf(const testing::TestParamInfo<GIFOptimizerProperty::ParamType>& tested)
{
    const auto& [preset, dithering] = tested.param;
    return std::string(ExportPreset(preset).rawValue()) + (!dithering ? "Auto" : *dithering ? "Always" : "Never");
}

INSTANTIATE_TEST_SUITE_P(PresetsAndDithering, GIFOptimizerProperty,
    testing::Combine(testing::ValuesIn(ExportPreset::allCases),
        testing::Values(std::optional<bool>(), std::optional(true), std::optional(false))),
    nameOf);

} // namespace
} // namespace quillbox
