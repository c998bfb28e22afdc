#include "Encoding/Precise/Codes/LZWSearch.h"

#include "Encoding/LZW.h"

#include "reference/Precise/LZWStream.h"
#include "support/GifDecoding.h"
#include "support/Iterations.h"
#include "support/Random.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

namespace quillbox {
namespace {

using LZWSearch::Candidate;
using LZWSearch::Codes;
using support::Random;

/// Checks that the stream obeys the format and shows the picture.
reference::LZWStream expectShown(const LZWSearch::Picture& picture, const Codes& codes)
{
    const reference::LZWStream stream = reference::lzwDecode(codes.data, codes.minCodeSize);
    EXPECT_EQ(stream.indices.size(), picture.indices.size());
    EXPECT_EQ(support::decodeLzwWithGiflib(codes.data, codes.minCodeSize, std::ssize(picture.indices)), stream.indices);
    for (std::size_t i = 0; i < std::min(stream.indices.size(), picture.indices.size()); ++i) {
        const bool isTransparent = codes.transparentIndex == stream.indices[i];
        const bool isRight
            = isTransparent ? picture.freedoms[i] != LZWSearch::changed : stream.indices[i] == picture.indices[i];
        if (!isRight) {
            ADD_FAILURE() << "pixel " << i << " is wrong";
            break;
        }
    }
    return stream;
}

Codes searched(const LZWSearch::Picture& picture, LZWSearch::Effort effort = {})
{
    LZWSearch::Search search;
    return search.best(picture, effort);
}

struct Sample {
    Bytes indices;
    Bytes freedoms;

    [[nodiscard]] LZWSearch::Picture picture() const
    {
        return {.width = std::ssize(indices), .indices = indices, .freedoms = freedoms};
    }
};

/// Flat areas, repeated patterns and noise of up to `colors` indices, some of it unchanged in longer or shorter runs.
Sample sample(std::int64_t count, std::int64_t colors, Random& random)
{
    Sample made;
    while (std::ssize(made.indices) < count) {
        const std::int64_t length = std::min(1 + random.below(60), count - std::ssize(made.indices));
        const auto kind = random.below(3);
        const std::int64_t index = random.below(colors);
        const std::int64_t back = 1 + random.below(200);
        for (std::int64_t i = 0; i < length; ++i) {
            const auto size = std::ssize(made.indices);
            const std::int64_t value = kind == 0 ? index
                : kind == 1 && size > back       ? made.indices[static_cast<std::size_t>(size - back)]
                                                 : random.below(colors);
            made.indices.push_back(static_cast<std::uint8_t>(value));
        }
    }
    while (std::ssize(made.freedoms) < count) {
        const std::int64_t length = std::min(1 + random.below(40), count - std::ssize(made.freedoms));
        made.freedoms.insert(made.freedoms.end(), static_cast<std::size_t>(length), random.oneIn(2) ? 1 : 0);
    }
    return made;
}

TEST(LZWSearch, OnePixelIsThreeCodes)
{
    const Bytes index{3};
    const Codes codes = searched({.width = 1, .indices = index});
    EXPECT_EQ(codes.minCodeSize, 2);
    EXPECT_EQ(codes.data, (Bytes{0x5C, 0x01})); // 4, 3, 5: three bits each, low bits first
    EXPECT_FALSE(codes.transparentIndex);
    EXPECT_EQ(codes.winner, Candidate::opaque);
}

TEST(LZWSearch, LiteralsHaveNoMoreBitsThanTheLargestIndexNeeds)
{
    for (const int largest : {0, 3, 4, 7, 8, 31, 32, 127, 128, 255}) {
        const Bytes indices{static_cast<std::uint8_t>(largest), 0};
        const int bits = std::max(2, static_cast<int>(std::bit_width(static_cast<unsigned>(largest))));
        EXPECT_EQ(searched({.width = 2, .indices = indices}).minCodeSize, bits) << largest;
    }
}

TEST(LZWSearch, TheTransparentIndexIsTheFirstThatNoChangedPixelHas)
{
    // 0 and 1 are taken; unchanged pixels have 2, 3, 4, … in turn: transparent they are all the same.
    Bytes indices{0, 1};
    for (int i = 0; i < 400; ++i)
        indices.push_back(static_cast<std::uint8_t>(2 + i * 7 % 200));
    Bytes freedoms(indices.size(), 1);
    freedoms[0] = freedoms[1] = 0;
    const LZWSearch::Picture picture{.width = std::ssize(indices), .indices = indices, .freedoms = freedoms};
    const Codes codes = searched(picture);
    EXPECT_EQ(codes.transparentIndex, 2);
    EXPECT_NE(codes.winner, Candidate::opaque);
    EXPECT_LT(codes.data.size(), 40U);
    expectShown(picture, codes);
}

TEST(LZWSearch, APictureWhoseChangedPixelsHaveAllIndicesIsOpaque)
{
    Bytes indices(1000, 0);
    std::iota(indices.begin(), indices.begin() + 256, std::uint8_t{0});
    Bytes freedoms(1000, 1);
    std::fill_n(freedoms.begin(), 256, std::uint8_t{0});
    const LZWSearch::Picture picture{.width = 1000, .indices = indices, .freedoms = freedoms};
    const Codes codes = searched(picture);
    EXPECT_EQ(codes.transparentIndex, std::nullopt);
    expectShown(picture, codes);
}

TEST(LZWSearch, EveryStreamShowsThePictureWithAnyEffort)
{
    Random random(301);
    LZWSearch::Search search; // keeps its tables from picture to picture
    for (int i = 0; i < support::iterations(150); ++i) {
        const std::int64_t count = random.pick({1, 2, 3, 7, 50, 400, 3000, 12'000});
        Sample made = sample(1 + random.below(count), random.pick({1, 2, 3, 4, 5, 17, 64, 200, 256}), random);
        if (random.oneIn(5))
            made.freedoms.clear();
        else if (random.oneIn(3) && std::ranges::max(made.indices) < 255)
            std::ranges::replace(made.freedoms, LZWSearch::unchanged, LZWSearch::kept);
        const Codes codes = search.best(made.picture(), {.passes = random.pick({1, 3, 5, 12, 30, 100})});
        expectShown(made.picture(), codes);
        if (testing::Test::HasFailure())
            FAIL() << "picture " << i;
    }
}

TEST(LZWSearch, NoStreamIsLargerThanThePlainOnes)
{
    Random random(302);
    LZWSearch::Search search;
    for (int i = 0; i < support::iterations(60); ++i) {
        const Sample made = sample(1 + random.below(8000), random.pick({2, 4, 30, 200}), random);
        const Codes codes = search.best(made.picture());
        const int bits = std::max(2, static_cast<int>(std::bit_width(unsigned{std::ranges::max(made.indices)})));
        const Bytes plain = LZW::encode(made.indices, bits);
        EXPECT_LE(codes.data.size(), plain.size()) << "opaque, picture " << i;
    }
}

TEST(LZWSearch, MoreEffortPaysOnAPictureOfManyTables)
{
    Random random(303);
    const Sample made = sample(60'000, 60, random);
    const auto least = searched(made.picture(), {.passes = 1});
    const auto choice = searched(made.picture(), {.passes = 6});
    const auto most = searched(made.picture(), {.passes = 60});
    EXPECT_LT(choice.data.size(), least.data.size());
    EXPECT_LT(most.data.size(), choice.data.size());
    EXPECT_GT(expectShown(made.picture(), least).clears.size(), 1U);
}

TEST(LZWSearch, ATableThatServesWellIsKeptWhenItIsFull)
{
    // The same noise again and again: what a full table knows is all that there is to know.
    Random random(304);
    Bytes tile;
    for (int i = 0; i < 1500; ++i)
        tile.push_back(static_cast<std::uint8_t>(random.below(8)));
    Bytes indices;
    for (int i = 0; i < 60; ++i)
        indices.insert(indices.end(), tile.begin(), tile.end());
    const LZWSearch::Picture picture{.width = 1500, .indices = indices};
    const auto stream = expectShown(picture, searched(picture));
    EXPECT_GT(stream.codesWithFullTable, 100);
    EXPECT_LT(stream.bits, reference::lzwDecode(searched(picture, {.passes = 1}).data, 3).bits);
}

TEST(LZWSearch, NoiseIsClearedBeforeItsCodesGrowWide)
{
    Random random(305);
    Bytes indices;
    for (int i = 0; i < 9000; ++i)
        indices.push_back(random.byte());
    const LZWSearch::Picture picture{.width = 9000, .indices = indices};
    const auto stream = expectShown(picture, searched(picture));
    EXPECT_LT(stream.bits, 9000 * 10); // literals of nine bits and some clear codes
}

TEST(LZWSearch, StreamsEndWellAtEveryWidth)
{
    // No pair occurs twice, so that each pixel is a code: 254 codes of nine bits, 512 of ten …, a full table after
    // 3,839.
    Bytes indices;
    std::uint8_t value = 0;
    for (int difference = 1; difference < 64; difference += 2) {
        for (int i = 0; i < 256; ++i, value = static_cast<std::uint8_t>(value + difference))
            indices.push_back(value);
    }
    LZWSearch::Search search;
    for (const std::size_t around : {255U, 767U, 1791U, 3839U, 4094U, 7678U}) {
        for (std::size_t count = around - 3; count <= around + 3; ++count) {
            const LZWSearch::Picture picture{
                .width = static_cast<std::int64_t>(count), .indices = std::span(indices).first(count)};
            const Codes codes = search.best(picture, {.passes = 1});
            EXPECT_EQ(expectShown(picture, codes).clears.size(), (count - 1) / 3839) << count;
        }
    }
}

TEST(LZWSearchDeathTest, RefusesPicturesThatAreNone)
{
    const Bytes indices(6, 0);
    EXPECT_DEATH((void)searched({.width = 4, .indices = indices}), "whole rows");
    EXPECT_DEATH((void)searched({.width = 3}), "whole rows");
    EXPECT_DEATH(
        (void)searched({.width = 3, .indices = indices, .freedoms = std::span(indices).first(5)}), "changed or not");
}

} // namespace
} // namespace quillbox
