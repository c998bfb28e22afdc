#include "Encoding/Precise/Colors/ColorCounts.h"

#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>

namespace quillbox {
namespace {

using support::gray;
using support::Random;
using testing::ElementsAre;
using testing::IsEmpty;

const Bytes redBlueRed{255, 0, 0, 255, 0, 0, 255, 255, 255, 0, 0, 7};

TEST(Color24, KeysHoldRedThenGreenThenBlue)
{
    EXPECT_EQ(Color24::key({1, 2, 3}), 0x010203U);
    EXPECT_EQ(Color24::key({255, 255, 255}), 0xFFFFFFU);
    EXPECT_EQ(Color24::color(0x010203), RGBColor(1, 2, 3));
}

TEST(ColorCounts, HasNoColoursAtFirst)
{
    const ColorCounts counts;
    EXPECT_TRUE(counts.isEmpty());
    EXPECT_EQ(counts.size(), 0);
    EXPECT_THAT(counts.entries(), IsEmpty());
}

TEST(ColorCounts, AddsTheWeightForEveryPixelAndIgnoresAlpha)
{
    ColorCounts counts;
    counts.add(redBlueRed, 10);
    counts.add(RGBColor(0, 0, 255), 1);
    EXPECT_THAT(
        counts.entries(), ElementsAre(WeightedColor{RGBColor(0, 0, 255), 11}, WeightedColor{RGBColor(255, 0, 0), 20}));
    EXPECT_EQ(counts.size(), 2);
}

TEST(ColorCounts, CountsOnlyPixelsWhoseColourChanged)
{
    const Bytes before{255, 0, 0, 0, 0, 0, 254, 255, 254, 0, 0, 7};
    ColorCounts counts;
    counts.addChanged(redBlueRed, before, 3);
    EXPECT_THAT(
        counts.entries(), ElementsAre(WeightedColor{RGBColor(0, 0, 255), 3}, WeightedColor{RGBColor(255, 0, 0), 3}));
    ColorCounts none;
    none.addChanged(redBlueRed, redBlueRed, 3);
    EXPECT_TRUE(none.isEmpty());
}

TEST(ColorCounts, TellsAllColoursApart)
{
    ColorCounts counts;
    for (int level = 0; level < 256; ++level) {
        const auto value = static_cast<std::uint8_t>(level);
        for (const RGBColor color : {RGBColor(value, 0, 0), RGBColor(0, value, 0), RGBColor(0, 0, value)})
            counts.add(color, 1);
    }
    EXPECT_EQ(counts.size(), 3 * 255 + 1);
    EXPECT_EQ(counts.entries().front(), (WeightedColor{gray(0), 3}));
}

TEST(ColorCounts, EqualsAMapHoweverThePictureIsDivided)
{
    Random random(1);
    for (std::int64_t i = 0; i < support::iterations(300); ++i) {
        const RGBAFrame picture = support::randomPicture(1 + random.below(40), 1 + random.below(40), random);
        const RGBAFrame next = support::randomSuccessor(picture, random);
        const PixelView pixels = picture.pixels();
        const std::int64_t weight = 1 + random.below(1000);
        std::map<std::uint32_t, std::int64_t> expected;
        picture.forEachColor([&](RGBColor color) { expected[Color24::key(color)] += weight; });

        const std::span<const std::uint8_t> all(pixels.data(), pixels.size());
        const auto cut = static_cast<std::size_t>(4 * random.below(picture.pixelCount() + 1));
        ColorCounts first;
        ColorCounts second;
        first.add(all.first(cut), weight);
        second.add(all.subspan(cut), weight);
        if (next.pixelCount() == picture.pixelCount()) {
            const PixelView nextPixels = next.pixels();
            second.addChanged({nextPixels.data(), nextPixels.size()}, all, 5);
            for (std::size_t k = 0; k < all.size(); k += 4) {
                if (!std::equal(all.begin() + static_cast<std::ptrdiff_t>(k),
                        all.begin() + static_cast<std::ptrdiff_t>(k + 3), nextPixels.begin() + k))
                    expected[Color24::key({nextPixels[k], nextPixels[k + 1], nextPixels[k + 2]})] += 5;
            }
        }
        first.add(second);

        std::vector<WeightedColor> entries;
        for (const auto& [key, sum] : expected)
            entries.push_back({Color24::color(key), sum});
        ASSERT_EQ(first.entries(), entries) << "picture " << i;
        ASSERT_EQ(first.size(), std::ssize(entries));
    }
}

TEST(ColorCountsDeathTest, RejectsWhatCannotBeCounted)
{
    ColorCounts counts;
    EXPECT_DEATH(counts.add(Bytes(3, 0), 1), "whole pixels");
    EXPECT_DEATH(counts.add(Bytes(4, 0), 0), "a weight is positive");
    EXPECT_DEATH(counts.addChanged(Bytes(4, 0), Bytes(8, 0), 1), "as many pixels");
    counts.add(gray(1), std::numeric_limits<std::int64_t>::max());
    EXPECT_DEATH(counts.add(gray(1), 1), "a sum fits");
}

} // namespace
} // namespace quillbox
