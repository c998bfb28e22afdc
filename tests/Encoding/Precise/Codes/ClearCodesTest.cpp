#include "Encoding/Precise/Codes/ClearCodes.h"

#include "reference/Precise/LZWStream.h"
#include "support/Iterations.h"
#include "support/Random.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace quillbox {
namespace {

using support::Random;

constexpr ClearCodes::Bounds unbounded{
    .margin = std::numeric_limits<std::int64_t>::max() / 4, .steps = std::numeric_limits<std::int64_t>::max()};

Bytes patches(std::int64_t count, Random& random)
{
    Bytes indices;
    while (std::ssize(indices) < count) {
        const std::int64_t base = random.below(4) * 60;
        for (std::int64_t i = 0, length = 1 + random.below(400); i < length && std::ssize(indices) < count; ++i)
            indices.push_back(static_cast<std::uint8_t>(base + random.below(3)));
    }
    return indices;
}

TEST(ClearCodes, WhenFullCountsItsBits)
{
    Random random(311);
    const Bytes indices = patches(40'000, random);
    const FreePicture picture{.indices = indices, .minCodeSize = 8};
    PictureParser parser;
    parser.setPicture(picture);
    const auto [placement, marks, codes] = ClearCodes::whenFull(parser, picture);
    EXPECT_GT(placement.positions.size(), 0U);
    EXPECT_EQ(placement.bits, reference::greedyBits(indices, 8, placement.positions));
    EXPECT_EQ(marks.front(), 0U);
    EXPECT_EQ(marks.back(), indices.size());
    EXPECT_TRUE(std::ranges::is_sorted(marks));
    EXPECT_TRUE(std::ranges::includes(marks, placement.positions));
}

TEST(ClearCodes, FewerMarksKeepTheClearCodesAndBothEnds)
{
    const ClearCodes::Division division{
        .placement = {.positions = {30, 60}}, .marks = {0, 10, 20, 30, 40, 50, 60, 70, 75}};
    EXPECT_EQ(division.everyNthMark(1), division.marks);
    EXPECT_EQ(division.everyNthMark(4), (std::vector<std::size_t>{0, 30, 40, 60, 75}));
    EXPECT_EQ(division.everyNthMark(100), (std::vector<std::size_t>{0, 30, 60, 75}));
}

TEST(ClearCodes, AmongMarksFindsTheBestOfAllSubsets)
{
    Random random(312);
    for (int i = 0; i < support::iterations(25); ++i) {
        const Bytes indices = patches(300 + random.below(2500), random);
        const FreePicture picture{.indices = indices, .minCodeSize = 8};
        std::vector<std::size_t> inner;
        for (int k = 0; k < 6; ++k)
            inner.push_back(static_cast<std::size_t>(1 + random.below(std::ssize(indices) - 1)));
        std::ranges::sort(inner);
        inner.erase(std::unique(inner.begin(), inner.end()), inner.end()); // clang 14 has no std::ranges::unique here

        std::int64_t least = std::numeric_limits<std::int64_t>::max();
        for (std::size_t subset = 0; subset < std::size_t{1} << inner.size(); ++subset) {
            std::vector<std::size_t> chosen;
            for (std::size_t k = 0; k < inner.size(); ++k) {
                if ((subset >> k & 1U) != 0)
                    chosen.push_back(inner[k]);
            }
            least = std::min(least, reference::greedyBits(indices, 8, chosen));
        }

        std::vector<std::size_t> marks{0};
        marks.insert(marks.end(), inner.begin(), inner.end());
        marks.push_back(indices.size());
        PictureParser parser;
        parser.setPicture(picture);
        const ClearCodes::Placement placement = ClearCodes::amongMarks(parser, picture, marks, unbounded);
        EXPECT_EQ(placement.bits, least);
        EXPECT_EQ(placement.bits, reference::greedyBits(indices, 8, placement.positions));
    }
}

TEST(ClearCodes, WithoutMarginOrStepsThereIsAPlacementStill)
{
    Random random(313);
    const Bytes indices = patches(30'000, random);
    const FreePicture picture{.indices = indices, .minCodeSize = 8};
    PictureParser parser;
    parser.setPicture(picture);
    const ClearCodes::Division division = ClearCodes::whenFull(parser, picture);
    const auto best = ClearCodes::amongMarks(parser, picture, division.everyNthMark(2), unbounded);
    const auto hasty = ClearCodes::amongMarks(parser, picture, division.everyNthMark(2), {.margin = 0, .steps = 0});
    EXPECT_LT(best.bits, division.placement.bits);
    EXPECT_GE(hasty.bits, best.bits);
    EXPECT_EQ(hasty.bits, reference::greedyBits(indices, 8, hasty.positions));
}

} // namespace
} // namespace quillbox
