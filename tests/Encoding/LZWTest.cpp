#include "Encoding/LZW.h"

#include "reference/LZW.h"
#include "support/GifDecoding.h"
#include "support/Iterations.h"
#include "support/Random.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

namespace quillbox {
namespace {

using support::decodeLzwWithGiflib;
using support::Random;

/// Codes of stated widths as bytes, lowest bit first, bit by bit.
class CodeList {
public:
    CodeList& add(int code, int bits)
    {
        for (int bit = 0; bit < bits; ++bit)
            m_bits.push_back((code >> bit & 1) != 0);
        return *this;
    }

    [[nodiscard]] Bytes packed() const
    {
        Bytes bytes((m_bits.size() + 7) / 8, 0);
        for (std::size_t i = 0; i < m_bits.size(); ++i)
            bytes[i / 8] = static_cast<std::uint8_t>(bytes[i / 8] | (m_bits[i] ? 1U : 0U) << i % 8);
        return bytes;
    }

private:
    std::vector<bool> m_bits;
};

Bytes repeated(std::uint8_t index, std::size_t count)
{
    return Bytes(count, index);
}

/// No two of the 256·`differences` neighbouring pairs are equal: steps of 1, then 3, 5, … through all 256 values.
Bytes withoutARepeatedPair(int differences)
{
    Bytes indices;
    std::uint8_t value = 0;
    for (int difference = 1; difference < 2 * differences; difference += 2) {
        for (int i = 0; i < 256; ++i) {
            indices.push_back(value);
            value = static_cast<std::uint8_t>(value + difference);
        }
    }
    return indices;
}

/// The length of the shortest beginning of `indices` in which code 4095 is assigned.
std::size_t indicesThatFillTheTable(const Bytes& indices, int minCodeSize)
{
    std::set<Bytes> known;
    int nextCode = (1 << minCodeSize) + 2;
    Bytes sequence;
    for (std::size_t i = 0; i < indices.size(); ++i) {
        sequence.push_back(indices[i]);
        if (sequence.size() == 1 || known.contains(sequence))
            continue;
        known.insert(sequence);
        if (nextCode++ == 4095)
            return i + 1;
        sequence = {indices[i]};
    }
    return indices.size();
}

void expectReferenceAndRoundTrip(const Bytes& indices, int minCodeSize)
{
    static LZW::Encoder encoder; // one for all cases, so that each also follows many others
    const auto written = encoder.encode(indices, minCodeSize);
    const Bytes codes(written.begin(), written.end());
    ASSERT_EQ(codes, reference::lzwEncode(indices, minCodeSize))
        << indices.size() << " indices, minimum code size " << minCodeSize;
    if (!indices.empty()) {
        ASSERT_EQ(decodeLzwWithGiflib(codes, minCodeSize, std::ssize(indices)), indices);
    }
}

TEST(LZW, EmptyInputIsClearThenEnd)
{
    EXPECT_EQ(LZW::encode({}, 2), (Bytes{0x2C})); // 4 and 5 in three bits each: 4 | 5<<3
}

TEST(LZW, EmptyInputOfEightBitsTakesTwoNineBitCodes)
{
    // 256 and 257 in nine bits each: 256 | 257<<9 = 0x20300, 18 bits
    EXPECT_EQ(LZW::encode({}, 8), (Bytes{0x00, 0x03, 0x02}));
}

TEST(LZW, OneIndexIsClearIndexEnd)
{
    EXPECT_EQ(LZW::encode(Bytes{0}, 2), (Bytes{0x44, 0x01})); // 4 | 0<<3 | 5<<6 = 0x144
    EXPECT_EQ(LZW::encode(Bytes{3}, 2), (Bytes{0x5C, 0x01})); // 4 | 3<<3 | 5<<6 = 0x15C
}

TEST(LZW, TwoDifferentIndicesAreTwoLiterals)
{
    EXPECT_EQ(LZW::encode(Bytes{0, 1}, 2), (Bytes{0x44, 0x0A})); // 4 | 0<<3 | 1<<6 | 5<<9 = 0xA44
}

TEST(LZW, ARepeatedPairIsOneCode)
{
    // 1, 2 assign 6 = "12" and 7 = "21", then "12" is code 6: 4 | 1<<3 | 2<<6 | 6<<9 | 5<<12 = 0x5C8C
    EXPECT_EQ(LZW::encode(Bytes{1, 2, 1, 2}, 2), (Bytes{0x8C, 0x5C}));
}

TEST(LZW, TheEndCodeHasTheWidthOfTheLastDataCode)
{
    // 0, 00, 000 are codes 0, 6, 7. Code 7 is the last, so 8 is never assigned and all are three bits wide, although
    // a decoder that read on would expect four: 4 | 0<<3 | 6<<6 | 7<<9 | 5<<12 = 0x5F84
    const Bytes codes = LZW::encode(repeated(0, 6), 2);
    EXPECT_EQ(codes, (Bytes{0x84, 0x5F}));
    EXPECT_EQ(decodeLzwWithGiflib(codes, 2, 6), repeated(0, 6));
}

TEST(LZW, TheWidthGrowsOnceTheCodeOfTwoToTheWidthIsAssigned)
{
    // As above, but one 0 more: writing 7 assigns 8 = 2^3, so what follows has four bits:
    // 4 | 0<<3 | 6<<6 | 7<<9 in three bits each, then 0<<12 | 5<<16 in four: 0x50F84
    EXPECT_EQ(LZW::encode(repeated(0, 7), 2), (Bytes{0x84, 0x0F, 0x05}));
}

TEST(LZW, UnusedBitsOfTheLastByteAreZero)
{
    // 4, 0, 1, 2 and 5 in three bits, one more assigned code: fifteen bits in two bytes.
    // 4 | 0<<3 | 1<<6 | 2<<9 | 5<<12 = 0x5444
    EXPECT_EQ(LZW::encode(Bytes{0, 1, 2}, 2), (Bytes{0x44, 0x54}));
    for (int last = 0; last < 4; ++last)
        EXPECT_EQ(LZW::encode(Bytes{0, 1, static_cast<std::uint8_t>(last)}, 2).back() & 0x80, 0);
}

TEST(LZW, All256ValuesAreLiteralsFromTheStart)
{
    // Literal j (from 1) assigns 257 + j. Literal 255 assigns 512 = 2^9, so literal 256 and the end have ten bits.
    Bytes indices;
    CodeList expected;
    expected.add(256, 9);
    for (int value = 0; value < 256; ++value) {
        indices.push_back(static_cast<std::uint8_t>(value));
        expected.add(value, value < 255 ? 9 : 10);
    }
    expected.add(257, 10);
    EXPECT_EQ(LZW::encode(indices, 8), expected.packed());
}

TEST(LZW, AFullTableIsClearedAtOnce)
{
    // Without a repeated pair every index is a literal. Literal j assigns 257 + j, so codes have 9 bits up to j = 255
    // (which assigns 512), 10 up to 767 (1024), 11 up to 1791 (2048), then 12. Literal 3838 assigns 4095: the clear
    // follows in 12 bits, and after it the widths begin at 9 again.
    const Bytes indices = withoutARepeatedPair(15); // 3840
    CodeList expected;
    expected.add(256, 9);
    for (int j = 1; j <= 3840; ++j) {
        expected.add(indices[static_cast<std::size_t>(j - 1)],
            j <= 255 || j > 3838 ? 9
                : j <= 767       ? 10
                : j <= 1791      ? 11
                                 : 12);
        if (j == 3838)
            expected.add(256, 12);
    }
    expected.add(257, 9);
    const Bytes codes = LZW::encode(indices, 8);
    EXPECT_EQ(codes, expected.packed());
    EXPECT_EQ(decodeLzwWithGiflib(codes, 8, 3840), indices);
}

TEST(LZW, TheLastIndexThatLeavesTheTableOneShortOfFullIsNotCleared)
{
    // The 3838th literal is the last one here, so nothing is assigned for it: 4095 stays free.
    Bytes indices = withoutARepeatedPair(15);
    indices.resize(3838);
    CodeList expected;
    expected.add(256, 9);
    for (int j = 1; j <= 3838; ++j)
        expected.add(indices[static_cast<std::size_t>(j - 1)], j <= 255 ? 9 : j <= 767 ? 10 : j <= 1791 ? 11 : 12);
    expected.add(257, 12);
    EXPECT_EQ(LZW::encode(indices, 8), expected.packed());
}

TEST(LZW, TheLongestRunBeforeAClearIsCodedAsEverLongerRuns)
{
    // Runs of 1, 2, 3, … zeros have the codes 0, 6, 7, …: the m-th code written is m + 4 (0 for m = 1), stands for m
    // zeros and assigns m + 5. The width goes from s to s + 1 when 2^s is assigned, by code m = 2^s - 5. The last free
    // code, 4095, is assigned by m = 4090; until then 4090·4091/2 zeros were coded. The clear has 12 bits, and one
    // more zero follows with 3.
    constexpr int lastBeforeClear = 4090;
    CodeList expected;
    expected.add(4, 3);
    int width = 3;
    for (int m = 1; m <= lastBeforeClear; ++m) {
        expected.add(m == 1 ? 0 : m + 4, width);
        if (m + 5 == 1 << width && width < 12)
            ++width;
    }
    expected.add(4, 12).add(0, 3).add(5, 3);
    const Bytes zeros = repeated(0, std::size_t{lastBeforeClear} * (lastBeforeClear + 1) / 2 + 1);
    EXPECT_EQ(LZW::encode(zeros, 2), expected.packed());
}

TEST(LZWEncoder, ALaterPictureIsNotInfluencedByAnEarlierOne)
{
    LZW::Encoder encoder;
    const auto encoded = [&](const Bytes& indices, int minCodeSize) {
        const auto codes = encoder.encode(indices, minCodeSize);
        return Bytes(codes.begin(), codes.end());
    };
    const Bytes first = encoded(repeated(1, 1000), 2);
    EXPECT_EQ(encoded(withoutARepeatedPair(3), 8), reference::lzwEncode(withoutARepeatedPair(3), 8));
    EXPECT_EQ(encoded(repeated(1, 1000), 2), first);
    EXPECT_EQ(encoded({}, 2), (Bytes{0x2C}));
    EXPECT_EQ(encoded(repeated(1, 1000), 2), first);
}

TEST(LZWEncoder, MayBeMoved)
{
    LZW::Encoder first;
    (void)first.encode(repeated(1, 1000), 2);
    LZW::Encoder second = std::move(first);
    const auto codes = second.encode(Bytes{0}, 2);
    EXPECT_EQ(Bytes(codes.begin(), codes.end()), (Bytes{0x44, 0x01}));
}

TEST(LZWDeathTest, RejectsAnIndexAtTheClearCode)
{
    EXPECT_DEATH((void)LZW::encode(Bytes{0, 1, 4, 1}, 2), "every index is below");
    EXPECT_DEATH((void)LZW::encode(Bytes{128}, 7), "every index is below");
    EXPECT_DEATH((void)LZW::encode(Bytes{0, 0, 0, 0, 0, 255}, 5), "every index is below");
}

TEST(LZWDeathTest, RejectsAMinimumCodeSizeOutsideTwoToEight)
{
    EXPECT_DEATH((void)LZW::encode({}, 1), "2 to 8");
    EXPECT_DEATH((void)LZW::encode({}, 9), "2 to 8");
    EXPECT_DEATH((void)LZW::encode({}, -1), "2 to 8");
}

/// Every code size from 2 to 8.
class LZWOfSize : public testing::TestWithParam<int> {
protected:
    [[nodiscard]] int minCodeSize() const { return GetParam(); }
    [[nodiscard]] int indexCount() const { return 1 << GetParam(); }
    [[nodiscard]] std::uint8_t randomIndex(Random& random) const
    {
        return static_cast<std::uint8_t>(random.below(indexCount()));
    }
};

TEST_P(LZWOfSize, EveryInputOfUpToFourOfTheOutermostIndicesEqualsTheReference)
{
    const std::vector<int> alphabet{0, 1, indexCount() - 1};
    for (int length = 0; length <= 4; ++length) {
        const std::int64_t count = std::vector{1, 3, 9, 27, 81}.at(static_cast<std::size_t>(length));
        for (std::int64_t number = 0; number < count; ++number) {
            Bytes indices;
            for (std::int64_t rest = number; std::ssize(indices) < length; rest /= 3)
                indices.push_back(static_cast<std::uint8_t>(alphabet[static_cast<std::size_t>(rest % 3)]));
            expectReferenceAndRoundTrip(indices, minCodeSize());
        }
    }
}

TEST_P(LZWOfSize, EveryRunUpToALengthPastSeveralWidthsEqualsTheReference)
{
    for (std::size_t length = 0; length <= 600; ++length)
        expectReferenceAndRoundTrip(
            repeated(static_cast<std::uint8_t>(length % static_cast<std::size_t>(indexCount())), length),
            minCodeSize());
}

TEST_P(LZWOfSize, ThousandsOfRandomInputsEqualTheReference)
{
    Random random(1000 + static_cast<std::uint64_t>(minCodeSize()));
    for (std::int64_t i = support::iterations(1500); i > 0; --i) {
        Bytes indices;
        const std::int64_t length = random.below(random.pick({4, 40, 700}));
        const std::int64_t used = random.between(1, indexCount());
        const std::int64_t longestRun = random.pick({1, 2, 9, 60});
        while (std::ssize(indices) < length) {
            const auto index = static_cast<std::uint8_t>(random.below(used));
            indices.insert(indices.end(), static_cast<std::size_t>(random.between(1, longestRun)), index);
        }
        expectReferenceAndRoundTrip(indices, minCodeSize());
    }
}

TEST_P(LZWOfSize, RepeatedRowsWithSmallChangesEqualTheReference)
{
    Random random(2000 + static_cast<std::uint64_t>(minCodeSize()));
    for (std::int64_t i = support::iterations(60); i > 0; --i) {
        Bytes row(static_cast<std::size_t>(random.between(1, 90)), 0);
        std::ranges::generate(row, [&] { return random.oneIn(3) ? randomIndex(random) : std::uint8_t{0}; });
        Bytes indices;
        while (indices.size() < 3000) {
            if (random.oneIn(2))
                row[static_cast<std::size_t>(random.below(std::ssize(row)))] = randomIndex(random);
            indices.insert(indices.end(), row.begin(), row.end());
        }
        expectReferenceAndRoundTrip(indices, minCodeSize());
    }
}

TEST_P(LZWOfSize, LongSequencesOfSeveralTablesEqualTheReferenceWhereverTheyEnd)
{
    // A pattern as dithering makes it, with a flaw now and then: known sequences soon are tens of indices long.
    Random random(5000 + static_cast<std::uint64_t>(minCodeSize()));
    const auto pattern = [this](std::int64_t x, std::int64_t y) {
        return static_cast<std::uint8_t>((x * x + 3 * y) % 7 < 3 ? indexCount() - 1 : (x + y) % 3);
    };
    Bytes indices;
    for (std::int64_t y = 0; std::ssize(indices) < 65'000; ++y) {
        for (std::int64_t x = 0; x < 211; ++x)
            indices.push_back(random.oneIn(90) ? randomIndex(random) : pattern(x, y % 5));
    }
    for (int shorter = 0; shorter < 9; ++shorter) {
        expectReferenceAndRoundTrip(indices, minCodeSize());
        indices.pop_back();
        indices.erase(indices.begin(), indices.begin() + 3'000);
    }
}

TEST_P(LZWOfSize, SeveralFullTablesOfNoiseEqualTheReference)
{
    Random random(3000 + static_cast<std::uint64_t>(minCodeSize()));
    Bytes indices(static_cast<std::size_t>(support::iterations(100'000)), 0);
    std::ranges::generate(indices, [&] { return randomIndex(random); });
    expectReferenceAndRoundTrip(indices, minCodeSize());
}

TEST_P(LZWOfSize, AFullTableAtEveryDistanceFromTheEndEqualsTheReference)
{
    Random random(4000 + static_cast<std::uint64_t>(minCodeSize()));
    Bytes indices(60'000, 0);
    std::ranges::generate(indices, [&] { return randomIndex(random); });
    const std::size_t filled = indicesThatFillTheTable(indices, minCodeSize());
    ASSERT_LT(filled + 20, indices.size());
    for (indices.resize(filled + 20); indices.size() > filled - 20; indices.pop_back())
        expectReferenceAndRoundTrip(indices, minCodeSize());
}

TEST_P(LZWOfSize, RunsThatSpanAFullTableEqualTheReference)
{
    Random random(5000 + static_cast<std::uint64_t>(minCodeSize()));
    for (std::int64_t i = support::iterations(10); i > 0; --i) {
        Bytes indices(static_cast<std::size_t>(random.between(3000, 20'000)), 0);
        std::ranges::generate(indices, [&] { return randomIndex(random); });
        for (int run = 0; run < 30; ++run)
            indices.insert(indices.begin() + random.below(std::ssize(indices)),
                static_cast<std::size_t>(random.between(1, 700)), randomIndex(random));
        expectReferenceAndRoundTrip(indices, minCodeSize());
    }
}

INSTANTIATE_TEST_SUITE_P(CodeSizes, LZWOfSize, testing::Range(2, 9));

} // namespace
} // namespace quillbox
