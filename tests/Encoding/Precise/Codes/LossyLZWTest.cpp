#include "Encoding/Precise/Codes/LossyLZW.h"

#include "reference/Precise/LZWStream.h"
#include "support/GifDecoding.h"
#include "support/Iterations.h"
#include "support/Pictures.h"
#include "support/Random.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace quillbox {
namespace {

using LossyLZW::Loss;
using LossyLZW::Result;
using support::Random;

struct LossySample {
    std::int64_t width = 0;
    std::vector<RGBColor> wanted = {};
    std::vector<RGBColor> colorTable = {};
    Bytes indices = {};
    std::vector<RGBColor> shown = {};
    std::vector<std::uint16_t> durations = {};

    [[nodiscard]] LossyLZW::Picture picture() const
    {
        return {.width = width,
            .wanted = wanted,
            .colorTable = colorTable,
            .indices = indices,
            .shown = shown,
            .durations = durations};
    }
};

std::uint8_t nearest(RGBColor color, const std::vector<RGBColor>& table)
{
    const auto at
        = std::ranges::min_element(table, {}, [color](RGBColor entry) { return entry.distanceSquared(color); });
    return static_cast<std::uint8_t>(at - table.begin());
}

std::vector<RGBColor> randomColors(std::int64_t count, Random& random)
{
    std::vector<RGBColor> colors;
    for (std::int64_t i = 0; i < count; ++i)
        colors.emplace_back(random.byte(), random.byte(), random.byte());
    return colors;
}

/// 60 grays, each near to the next.
std::vector<RGBColor> grays()
{
    std::vector<RGBColor> colors;
    for (int level = 4; level < 244; level += 4)
        colors.push_back(support::gray(level));
    return colors;
}

/// Patches of noise around few colours over a picture that is similar in places.
LossySample sample(std::int64_t width, std::int64_t height, std::vector<RGBColor> colorTable, Random& random)
{
    LossySample made{.width = width, .colorTable = std::move(colorTable)};
    const std::int64_t colors = std::ssize(made.colorTable);
    RGBColor base;
    for (std::int64_t i = 0; i < width * height; ++i) {
        if (i == 0 || random.oneIn(20))
            base = made.colorTable[static_cast<std::size_t>(random.below(colors))];
        const auto near = [&](std::uint8_t channel) {
            return static_cast<std::uint8_t>(std::clamp<std::int64_t>(channel + random.between(-12, 12), 0, 255));
        };
        made.wanted.emplace_back(near(base.r), near(base.g), near(base.b));
        made.indices.push_back(nearest(made.wanted.back(), made.colorTable));
        made.shown.push_back(random.oneIn(3) ? RGBColor(random.byte(), 0, 0) : made.wanted.back());
        made.durations.push_back(static_cast<std::uint16_t>(random.below(30)));
    }
    return made;
}

/// Checks that the codes are well-formed, that they show what the result says, and that its error is as stated and
/// bounded.
void expectConsistent(const LossyLZW::Picture& picture, Loss loss, const Result& result)
{
    const auto stream = reference::lzwDecode(result.codes.data, result.codes.minCodeSize);
    ASSERT_EQ(stream.indices.size(), picture.indices.size());
    EXPECT_EQ(support::decodeLzwWithGiflib(result.codes.data, result.codes.minCodeSize, std::ssize(picture.indices)),
        stream.indices);
    std::int64_t error = 0;
    for (std::size_t i = 0; i < stream.indices.size(); ++i) {
        const bool stays = result.codes.transparentIndex == stream.indices[i];
        ASSERT_TRUE(!stays || !picture.shown.empty()) << "pixel " << i << " must be written";
        const RGBColor seen = stays ? picture.shown[i] : picture.colorTable[stream.indices[i]];
        const bool isKept = !result.freedoms.empty() && result.freedoms[i] == LZWSearch::kept;
        ASSERT_EQ(seen, isKept ? picture.shown[i] : picture.colorTable[result.indices[i]]) << "pixel " << i;
        const RGBColor best = picture.colorTable[picture.indices[i]];
        const std::int64_t excess = std::max<std::int64_t>(
            picture.wanted[i].distanceSquared(seen) - picture.wanted[i].distanceSquared(best), 0);
        ASSERT_LE(excess, loss.maxError) << "pixel " << i;
        error += excess * (picture.durations.empty() ? 1 : picture.durations[i]);
    }
    EXPECT_EQ(result.error, error);
}

TEST(LossyLZW, EveryStreamShowsWhatItsResultSays)
{
    Random random(321);
    LossyLZW::Encoder encoder; // keeps its tables from picture to picture
    for (int i = 0; i < support::iterations(80); ++i) {
        LossySample made = sample(1 + random.below(60), 1 + random.below(60),
            random.oneIn(3) ? grays() : randomColors(random.pick({1, 2, 3, 20, 64, 255, 256}), random), random);
        if (random.oneIn(3))
            made.shown.clear();
        if (random.oneIn(3))
            made.durations.clear();
        const Loss loss{.price = random.pick<std::int64_t>({0, 1, 50, 1000, 100'000, std::int64_t{1} << 24}),
            .maxError = random.pick<std::int64_t>({0, 1, 100, 1000, 195'075})};
        const Result result = encoder.encode(made.picture(), loss, {.passes = random.pick({1, 5, 30})});
        expectConsistent(made.picture(), loss, result);
        if (testing::Test::HasFailure())
            FAIL() << "picture " << i;
    }
}

TEST(LossyLZW, WithoutPermissionThereIsNoError)
{
    Random random(322);
    const LossySample made = sample(50, 40, grays(), random);
    const Result result = LossyLZW::Encoder().encode(made.picture(), {.price = 0, .maxError = 0});
    EXPECT_EQ(result.error, 0);
    for (std::size_t i = 0; i < made.indices.size(); ++i)
        EXPECT_EQ(result.indices[i], made.indices[i]);
}

TEST(LossyLZW, CheaperErrorsGiveSmallerStreams)
{
    Random random(323);
    const LossySample made = sample(160, 120, grays(), random);
    LossyLZW::Encoder encoder;
    std::int64_t bytes = std::numeric_limits<std::int64_t>::max();
    std::int64_t error = -1;
    for (const std::int64_t price : {1 << 20, 3000, 500, 60, 0}) {
        const Result result = encoder.encode(made.picture(), {.price = price, .maxError = 400});
        EXPECT_LT(std::ssize(result.codes.data), bytes) << price;
        EXPECT_GT(result.error, error) << price;
        bytes = std::ssize(result.codes.data);
        error = result.error;
    }
}

TEST(LossyLZW, NoPictureGetsLargerByItsErrors)
{
    Random random(324);
    LossyLZW::Encoder encoder;
    for (int i = 0; i < support::iterations(20); ++i) {
        const LossySample made = sample(70, 50, grays(), random);
        const auto exact = encoder.encode(made.picture(), {.price = 0, .maxError = 0});
        const auto inexact = encoder.encode(made.picture(), {.price = 20'000, .maxError = 2000});
        EXPECT_LE(inexact.codes.data.size(), exact.codes.data.size()) << "picture " << i;
    }
}

TEST(LossyLZW, WhatStaysLongIsKeptBetter)
{
    Random random(325);
    LossySample made = sample(200, 100, grays(), random);
    made.shown.clear();
    made.durations.assign(made.indices.size(), 3);
    std::fill_n(made.durations.begin(), made.durations.size() / 2, std::uint16_t{300});
    const Result result = LossyLZW::Encoder().encode(made.picture(), {.price = 100, .maxError = 400});
    std::int64_t changedAmongLong = 0;
    std::int64_t changedAmongShort = 0;
    for (std::size_t i = 0; i < made.indices.size(); ++i) {
        if (result.indices[i] != made.indices[i])
            ++(made.durations[i] == 3 ? changedAmongShort : changedAmongLong);
    }
    EXPECT_GT(changedAmongShort, 3 * changedAmongLong);
}

TEST(LossyLZWDeathTest, RefusesPicturesThatAreNone)
{
    Random random(326);
    const LossySample made = sample(4, 3, grays(), random);
    const auto encoded = [](const LossyLZW::Picture& picture, Loss loss) {
        (void)LossyLZW::Encoder().encode(picture, loss);
    };
    auto picture = made.picture();
    picture.wanted = picture.wanted.first(11);
    EXPECT_DEATH(encoded(picture, {}), "colour that is wanted");
    picture = made.picture();
    picture.colorTable = picture.colorTable.first(0);
    EXPECT_DEATH(encoded(picture, {}), "1 to 256 colours");
    EXPECT_DEATH(encoded(made.picture(), {.price = -1}), "in range");
    EXPECT_DEATH(encoded(made.picture(), {.price = (1 << 24) + 1}), "in range");
}

} // namespace
} // namespace quillbox
