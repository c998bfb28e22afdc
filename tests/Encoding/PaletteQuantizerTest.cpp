#include "Encoding/PaletteQuantizer.h"

#include "reference/PaletteQuantizer.h"
#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace quillbox {
namespace {

using PaletteQuantizer::quantize;
using PaletteQuantizer::reduceTo15Bit;
using support::gray;
using support::Random;
using testing::ElementsAre;

struct Counted {
    RGBColor color;
    std::int64_t count;
};

ColorHistogram histogramOf(const std::vector<Counted>& entries)
{
    ColorHistogram histogram;
    for (const auto& [color, count] : entries)
        histogram.add(Color15::key(color.r, color.g, color.b), count);
    return histogram;
}

reference::Histogram asReference(const ColorHistogram& histogram)
{
    reference::Histogram counts;
    for (const auto& [color, count] : histogram.entries())
        counts[reference::keyOf(color)] = count;
    return counts;
}

TEST(ReduceTo15Bit, KeepsTheTopFiveBitsAndRepeatsTheTopThree)
{
    const auto reduced = [](int level) {
        return int{reduceTo15Bit(gray(level)).r};
    };
    EXPECT_EQ(reduced(0), 0);
    EXPECT_EQ(reduced(7), 0);
    EXPECT_EQ(reduced(8), 8);     // 00001|000
    EXPECT_EQ(reduced(31), 24);   // 00011|000
    EXPECT_EQ(reduced(32), 33);   // 00100|001
    EXPECT_EQ(reduced(100), 99);  // 01100|011
    EXPECT_EQ(reduced(247), 247); // 11110|111
    EXPECT_EQ(reduced(248), 255);
    EXPECT_EQ(reduced(250), 255);
    EXPECT_EQ(reduced(255), 255);
}

TEST(ReduceTo15Bit, TreatsEachChannelOnItsOwn)
{
    EXPECT_EQ(reduceTo15Bit(RGBColor(7, 8, 250)), RGBColor(0, 8, 255));
}

TEST(ReduceTo15Bit, EqualsTheReferenceForEveryLevelOfEveryChannel)
{
    for (int level = 0; level < 256; ++level) {
        const auto value = static_cast<std::uint8_t>(level);
        for (const RGBColor color : {RGBColor(value, 0, 0), RGBColor(0, value, 0), RGBColor(0, 0, value)}) {
            EXPECT_EQ(reduceTo15Bit(color), reference::reduceTo15Bit(color));
            EXPECT_EQ(reduceTo15Bit(reduceTo15Bit(color)), reduceTo15Bit(color)) << "reducing twice changes nothing";
        }
    }
}

TEST(Color15, KeysHoldRedThenGreenThenBlue)
{
    EXPECT_EQ(Color15::key(0, 0, 0), 0);
    EXPECT_EQ(Color15::key(255, 255, 255), 32767);
    EXPECT_EQ(Color15::key(8, 0, 0), 1024);
    EXPECT_EQ(Color15::key(0, 8, 0), 32);
    EXPECT_EQ(Color15::key(0, 0, 8), 1);
    EXPECT_EQ(Color15::key(15, 23, 31), 1024 + 64 + 3);
}

TEST(Color15, EveryKeyIsTheKeyOfItsColor)
{
    for (int key = 0; key < Color15::keyCount; ++key) {
        const RGBColor color = Color15::color(static_cast<std::uint16_t>(key));
        ASSERT_EQ(Color15::key(color.r, color.g, color.b), key);
        ASSERT_EQ(color, reference::gridColor(key));
        ASSERT_EQ(color, reduceTo15Bit(color));
    }
}

TEST(ColorHistogram, CountsEveryPixelOfEveryFrame)
{
    const std::vector frames{support::row(std::vector{gray(0), gray(7), gray(8)}), support::solid(2, 2, gray(255))};
    const ColorHistogram histogram = PaletteQuantizer::histogram(frames);
    EXPECT_EQ(histogram.size(), 3);
    EXPECT_THAT(histogram.entries(),
        ElementsAre(
            ColorHistogram::Entry{gray(0), 2}, ColorHistogram::Entry{gray(8), 1}, ColorHistogram::Entry{gray(255), 4}));
}

TEST(ColorHistogram, IgnoresAlpha)
{
    const std::vector frames{RGBAFrame(2, 1, Bytes{9, 9, 9, 0, 9, 9, 9, 255})};
    EXPECT_EQ(PaletteQuantizer::histogram(frames).entries(), (std::vector{ColorHistogram::Entry{gray(8), 2}}));
}

TEST(ColorHistogram, EnumeratesByAscendingKey)
{
    const ColorHistogram histogram = histogramOf({{RGBColor(255, 0, 0), 1}, {RGBColor(0, 0, 255), 1},
        {RGBColor(0, 255, 0), 1}, {RGBColor(8, 0, 0), 1}, {RGBColor(0, 0, 0), 1}});
    std::vector<RGBColor> colors;
    for (const auto& entry : histogram.entries())
        colors.push_back(entry.color);
    EXPECT_THAT(colors,
        ElementsAre(
            RGBColor(0, 0, 0), RGBColor(0, 0, 255), RGBColor(0, 255, 0), RGBColor(8, 0, 0), RGBColor(255, 0, 0)));
}

TEST(ColorHistogram, NoFramesAndFramesWithoutPixelsCountNothing)
{
    EXPECT_EQ(PaletteQuantizer::histogram({}).size(), 0);
    const std::vector frames{RGBAFrame(0, 0, Bytes()), RGBAFrame(4, 0, Bytes())};
    EXPECT_EQ(PaletteQuantizer::histogram(frames), ColorHistogram());
}

TEST(ColorHistogram, AddsAnotherOne)
{
    ColorHistogram sum = histogramOf({{gray(0), 1}, {gray(8), 2}});
    sum.add(histogramOf({{gray(8), 40}, {gray(255), 3}}));
    EXPECT_EQ(sum, histogramOf({{gray(0), 1}, {gray(8), 42}, {gray(255), 3}}));
    EXPECT_EQ(sum.size(), 3);
    EXPECT_EQ(sum.count(Color15::key(8, 8, 8)), 42);
}

TEST(ColorHistogram, AddingNothingMakesNoEntry)
{
    EXPECT_EQ(histogramOf({{gray(0), 0}}).size(), 0);
}

TEST(ColorHistogramDeathTest, RefusesCountsThatAreNone)
{
    ColorHistogram histogram;
    EXPECT_DEATH(histogram.add(32768, 1), "broken invariant");
    EXPECT_DEATH(histogram.add(0, -1), "broken invariant");
}

TEST(ColorHistogramDeathTest, NoticesAnOverflow)
{
    ColorHistogram histogram;
    histogram.add(0, std::numeric_limits<std::int64_t>::max());
    EXPECT_DEATH(histogram.add(0, 1), "broken invariant");
}

TEST(ColorHistogram, EqualsTheReferenceWithAnyNumberOfThreads)
{
    Random random(21);
    for (std::int64_t i = support::iterations(600); i > 0; --i) {
        std::vector<RGBAFrame> frames;
        for (std::int64_t count = random.below(6); count > 0; --count)
            frames.push_back(support::randomPicture(random.below(40), random.below(40), random));
        const ColorHistogram histogram = PaletteQuantizer::histogram(frames, {static_cast<int>(random.between(1, 8))});
        ASSERT_EQ(asReference(histogram), reference::histogram(frames));
        ASSERT_EQ(histogram.size(), std::ssize(reference::histogram(frames)));
    }
}

TEST(Quantizer, AnEmptyHistogramGivesBlack)
{
    EXPECT_THAT(quantize(ColorHistogram(), 256), ElementsAre(RGBColor(0, 0, 0)));
    EXPECT_THAT(quantize(ColorHistogram(), 0), ElementsAre(RGBColor(0, 0, 0)));
}

TEST(Quantizer, FewColorsAreThemselvesMostFrequentFirst)
{
    const ColorHistogram histogram
        = histogramOf({{RGBColor(0, 0, 8), 1}, {RGBColor(0, 8, 0), 5}, {RGBColor(8, 0, 0), 3}});
    EXPECT_THAT(quantize(histogram, 256), ElementsAre(RGBColor(0, 8, 0), RGBColor(8, 0, 0), RGBColor(0, 0, 8)));
    EXPECT_THAT(quantize(histogram, 3), ElementsAre(RGBColor(0, 8, 0), RGBColor(8, 0, 0), RGBColor(0, 0, 8)));
}

TEST(Quantizer, EquallyFrequentColorsKeepTheOrderOfTheirKeys)
{
    std::vector<Counted> entries;
    std::vector<RGBColor> expected;
    for (int key = 9; key >= 0; --key)
        entries.push_back({Color15::color(static_cast<std::uint16_t>(key * 3000)), 7});
    for (int key = 0; key < 10; ++key)
        expected.push_back(Color15::color(static_cast<std::uint16_t>(key * 3000)));
    EXPECT_EQ(quantize(histogramOf(entries), 256), expected);
}

TEST(Quantizer, ALimitBelowOneIsOne)
{
    // 0 × 3 and 255 × 1: the mean is 255 ÷ 4 = 63.75, rounded down.
    const ColorHistogram histogram = histogramOf({{gray(0), 3}, {gray(255), 1}});
    EXPECT_THAT(quantize(histogram, 1), ElementsAre(gray(63)));
    EXPECT_THAT(quantize(histogram, 0), ElementsAre(gray(63)));
    EXPECT_THAT(quantize(histogram, -7), ElementsAre(gray(63)));
    EXPECT_THAT(quantize(histogram, std::numeric_limits<std::int64_t>::min()), ElementsAre(gray(63)));
}

TEST(Quantizer, ALimitAbove256Is256)
{
    std::vector<Counted> entries;
    for (int key = 0; key < 1000; ++key)
        entries.push_back({Color15::color(static_cast<std::uint16_t>(key * 32)), 1 + key % 5});
    const ColorHistogram histogram = histogramOf(entries);
    EXPECT_EQ(quantize(histogram, 1000), quantize(histogram, 256));
    EXPECT_EQ(quantize(histogram, 1000).size(), 256U);
}

TEST(Quantizer, TheFirstCutGoesThroughTheLongestAxisAtTheWeightedMedian)
{
    // Green is the longest axis (0…99): sorted 0, 33, 66, 99 with counts 1, 1, 1, 3; half of 6 is 3, which the sum
    // reaches at the third. Means: green (0+33+66) ÷ 3 = 33, red (8+0+0) ÷ 3 = 2; and green 99. Equal populations of
    // 3 keep the order of the boxes.
    const ColorHistogram histogram = histogramOf(
        {{RGBColor(8, 0, 0), 1}, {RGBColor(0, 33, 0), 1}, {RGBColor(0, 66, 0), 1}, {RGBColor(0, 99, 0), 3}});
    EXPECT_THAT(quantize(histogram, 2), ElementsAre(RGBColor(2, 33, 0), RGBColor(0, 99, 0)));
}

TEST(Quantizer, EqualRangesAreCutThroughRedThenGreenThenBlue)
{
    // Three axes of 99. A cut through red separates (99,0,0) from the two others, sorted (0,0,99), (0,99,0), (99,0,0):
    // half of 3 is 1, reached at once, so the first box is (0,0,99) alone - by the order of keys.
    const ColorHistogram all = histogramOf({{RGBColor(99, 0, 0), 1}, {RGBColor(0, 99, 0), 1}, {RGBColor(0, 0, 99), 1}});
    EXPECT_THAT(quantize(all, 2), ElementsAre(RGBColor(49, 49, 0), RGBColor(0, 0, 99)));

    // Green and blue of 99: sorted by green (0,0,99), (0,99,0), (0,99,99); by blue it would be (0,99,0) first.
    const ColorHistogram two
        = histogramOf({{RGBColor(0, 99, 0), 1}, {RGBColor(0, 0, 99), 1}, {RGBColor(0, 99, 99), 1}});
    EXPECT_THAT(quantize(two, 2), ElementsAre(RGBColor(0, 99, 49), RGBColor(0, 0, 99)));
}

TEST(Quantizer, BlueIsCutWhenItAloneIsLongest)
{
    const ColorHistogram histogram
        = histogramOf({{RGBColor(8, 0, 0), 2}, {RGBColor(0, 8, 255), 1}, {RGBColor(0, 0, 255), 1}});
    // Sorted by blue: (8,0,0) twice, reaching half of 4 at once; then the two with blue 255: mean (0, 4, 255).
    EXPECT_THAT(quantize(histogram, 2), ElementsAre(RGBColor(8, 0, 0), RGBColor(0, 4, 255)));
}

TEST(Quantizer, BothSidesOfACutKeepAColor)
{
    // Half of 1,000,002 is 500,001.
    const ColorHistogram rareFirst = histogramOf({{gray(0), 1}, {gray(255), 1'000'000}, {RGBColor(0, 0, 8), 1}});
    // Sorted by red: black 1, dark blue 1, white 1,000,000: the cut is clamped to before white.
    EXPECT_THAT(quantize(rareFirst, 2), ElementsAre(gray(255), RGBColor(0, 0, 4)));
    const ColorHistogram rareLast = histogramOf({{gray(0), 1'000'000}, {gray(255), 1}, {RGBColor(0, 0, 8), 1}});
    // Sorted by red: black 1,000,000 reaches the half alone; dark blue and white share the other box: 255 ÷ 2 = 127,
    // (255 + 8) ÷ 2 = 131.
    EXPECT_THAT(quantize(rareLast, 2), ElementsAre(gray(0), RGBColor(127, 127, 131)));
}

TEST(Quantizer, TheBoxOfGreatestPopulationTimesLengthIsCutNext)
{
    // First cut through red at 20 of 40: {0, 33} and {222, 255}, both of 20 and of length 33. Their scores are equal,
    // so the earlier one is cut next: 0 and 33 get an entry each, 222 and 255 share one: (222 + 255·19) ÷ 20 = 253.
    const ColorHistogram tie = histogramOf(
        {{RGBColor(0, 0, 0), 19}, {RGBColor(33, 0, 0), 1}, {RGBColor(222, 0, 0), 1}, {RGBColor(255, 0, 0), 19}});
    EXPECT_THAT(quantize(tie, 3), ElementsAre(RGBColor(253, 0, 0), RGBColor(0, 0, 0), RGBColor(33, 0, 0)));

    // With one more 255 the later box has 21 · 33 and wins: half of 41 is still 20, reached at 33. The first box
    // averages (0·19 + 33) ÷ 20 = 1.
    const ColorHistogram later = histogramOf(
        {{RGBColor(0, 0, 0), 19}, {RGBColor(33, 0, 0), 1}, {RGBColor(222, 0, 0), 1}, {RGBColor(255, 0, 0), 20}});
    EXPECT_THAT(quantize(later, 3), ElementsAre(RGBColor(1, 0, 0), RGBColor(255, 0, 0), RGBColor(222, 0, 0)));
}

TEST(Quantizer, MoreColorsThanTheLimitGiveExactlyTheLimit)
{
    Random random(22);
    for (std::int64_t i = support::iterations(300); i > 0; --i) {
        const std::vector frames{support::noise(20, 20, random)};
        const ColorHistogram histogram = PaletteQuantizer::histogram(frames);
        const std::int64_t limit = random.between(1, 256);
        if (histogram.size() > limit) {
            ASSERT_EQ(std::ssize(quantize(histogram, limit)), limit);
        }
    }
}

TEST(Quantizer, BoxesWithEqualMeansBothStay)
{
    // Red and blue range over 255, so the cut goes through red, where the first three colours are equal and keep the
    // order of their keys. Half of 3001 is 1500, which the first one reaches alone. The others' means are
    // 255 ÷ 1001 = 0, 30 · 8 ÷ 1001 = 0 and 970 · 255 ÷ 1001 = 247: the same colour.
    const ColorHistogram histogram = histogramOf(
        {{RGBColor(0, 0, 247), 2000}, {RGBColor(0, 0, 255), 970}, {RGBColor(0, 8, 0), 30}, {RGBColor(255, 0, 0), 1}});
    EXPECT_THAT(quantize(histogram, 2), ElementsAre(RGBColor(0, 0, 247), RGBColor(0, 0, 247)));
}

TEST(QuantizerDeathTest, NoticesThatTheSumsOverflow)
{
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    const ColorHistogram tooMany = histogramOf({{gray(0), most / 2 + 1}, {gray(8), most / 2 + 1}});
    EXPECT_DEATH((void)quantize(tooMany, 1), "a sum fits");
    const ColorHistogram tooBright = histogramOf({{gray(247), most / 4}, {gray(255), most / 4}});
    EXPECT_DEATH((void)quantize(tooBright, 1), "broken invariant");
}

TEST(Quantizer, PopulationsOverThirtyTwoBitsAreExact)
{
    const std::int64_t billions = 5'000'000'000;
    // (0·5 + 255·10) ÷ 15 = 170 in billions
    EXPECT_THAT(quantize(histogramOf({{gray(0), billions}, {gray(255), 2 * billions}}), 1), ElementsAre(gray(170)));
}

TEST(Quantizer, EqualsTheReferenceForRandomPictures)
{
    Random random(24);
    for (std::int64_t i = support::iterations(1500); i > 0; --i) {
        const std::vector frames{support::randomPicture(random.between(0, 30), random.between(0, 30), random)};
        const ColorHistogram histogram = PaletteQuantizer::histogram(frames);
        const std::int64_t limit = random.between(-1, 270);
        ASSERT_EQ(quantize(histogram, limit), reference::quantize(asReference(histogram), limit));
    }
}

TEST(Quantizer, EqualsTheReferenceForRandomCountsFullOfTies)
{
    Random random(25);
    for (std::int64_t i = support::iterations(3000); i > 0; --i) {
        ColorHistogram histogram;
        const std::int64_t levels = random.between(1, 6);
        const std::int64_t maxCount = random.pick<std::int64_t>({1, 2, 5, 1'000'000'000'000});
        for (std::int64_t colors = random.below(90); colors > 0; --colors) {
            const auto level = [&] {
                return static_cast<std::uint8_t>(random.below(levels) * (255 / levels));
            };
            histogram.add(Color15::key(level(), level(), level()), random.between(1, maxCount));
        }
        const std::int64_t limit = random.between(1, 60);
        ASSERT_EQ(quantize(histogram, limit), reference::quantize(asReference(histogram), limit));
    }
}

TEST(Quantizer, EqualsTheReferenceForLargePictures)
{
    Random random(26);
    const std::vector<std::vector<RGBAFrame>> clips{{support::textLike(320, 240, 0), support::textLike(320, 240, 5)},
        {support::gradient(320, 240, 0), support::gradient(320, 240, 90)}, {support::noise(320, 240, random)}};
    for (const auto& frames : clips) {
        const ColorHistogram histogram = PaletteQuantizer::histogram(frames);
        ASSERT_EQ(asReference(histogram), reference::histogram(frames));
        for (const std::int64_t limit : {16, 64, 255, 256})
            EXPECT_EQ(quantize(histogram, limit), reference::quantize(asReference(histogram), limit));
    }
}

} // namespace
} // namespace quillbox
