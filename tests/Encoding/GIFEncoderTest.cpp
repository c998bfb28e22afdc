#include "Encoding/GIFEncoder.h"

#include "reference/GIFEncoder.h"
#include "support/GifDecoding.h"
#include "support/Iterations.h"
#include "support/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace quillbox {
namespace {

using support::differenceSeenByGiflib;
using support::gray;
using support::Random;
using testing::ElementsAre;

/// Positions in a file whose first frame's control extension begins after 6 + 7 + 19 bytes.
constexpr std::size_t screenAt = 6;
constexpr std::size_t loopCountAt = 29;
constexpr std::size_t delayAt = 36;
constexpr std::size_t descriptorAt = 40;
constexpr std::size_t descriptorSizeAt = 45;
constexpr std::size_t descriptorPackedAt = 49;
constexpr std::size_t tableAt = 50;

int read16(const Bytes& bytes, std::size_t position)
{
    return bytes.at(position) + 256 * bytes.at(position + 1);
}

std::vector<RGBColor> grays(int count)
{
    std::vector<RGBColor> palette;
    for (int level = 0; level < count; ++level)
        palette.push_back(gray(level % 256));
    return palette;
}

IndexedFrame onePixel(std::vector<RGBColor> palette, std::int64_t delayCentiseconds = 10)
{
    return {1, 1, std::move(palette), Bytes{0}, delayCentiseconds};
}

IndexedFrame randomIndexedFrame(std::int64_t width, std::int64_t height, std::int64_t colors, Random& random)
{
    IndexedFrame frame{width, height, support::randomPalette(colors, random), {}, random.between(-3, 70'000)};
    for (std::int64_t i = 0; i < width * height; ++i)
        frame.indices.push_back(random.oneIn(3) || i == 0
                ? static_cast<std::uint8_t>(random.below(std::max<std::int64_t>(colors, 1)))
                : frame.indices.back());
    return frame;
}

TEST(GIFEncoder, NoFramesGiveNoBytes)
{
    EXPECT_THAT(GIFEncoder::encode({}), testing::IsEmpty());
}

TEST(GIFEncoder, OnePixelFileIsKnownByteForByte)
{
    const std::vector frames{onePixel({RGBColor(0x11, 0x22, 0x33)}, 10)};
    const Bytes expected{
        'G', 'I', 'F', '8', '9', 'a', // header
        1, 0, 1, 0, 0x70, 0, 0,       // screen 1 × 1, no global table, 8 bits a primary, background, aspect
        0x21, 0xFF, 11, 'N', 'E', 'T', 'S', 'C', 'A', 'P', 'E', '2', '.', '0', 3, 1, 0, 0, 0, // loop for ever
        0x21, 0xF9, 4, 0x04, 10, 0, 0, 0,  // leave in place, 10 centiseconds
        ',', 0, 0, 0, 0, 1, 0, 1, 0, 0x80, // at (0, 0), 1 × 1, a local table of two colours
        0x11, 0x22, 0x33, 0, 0, 0,         // the colour, and black to fill up
        2,                                 // LZW literals of two bits
        2, 0x44, 0x01, 0,                  // clear, 0, end in three bits each: 4 | 0<<3 | 5<<6 = 0x144
        0x3B,                              // trailer
    };
    EXPECT_EQ(GIFEncoder::encode(frames), expected);
}

TEST(GIFEncoder, FramesStandOneBehindTheOther)
{
    const std::vector frames{onePixel({gray(1)}, 300), onePixel({gray(2)}, 7)};
    Bytes expected{'G', 'I', 'F', '8', '9', 'a', 1, 0, 1, 0, 0x70, 0, 0, 0x21, 0xFF, 11, 'N', 'E', 'T', 'S', 'C', 'A',
        'P', 'E', '2', '.', '0', 3, 1, 0, 0, 0};
    const Bytes first{0x21, 0xF9, 4, 4, 0x2C, 1, 0, 0, ',', 0, 0, 0, 0, 1, 0, 1, 0, 0x80, 1, 1, 1, 0, 0, 0, 2, 2, 0x44,
        1, 0}; // 300 = 0x012C
    const Bytes second{
        0x21, 0xF9, 4, 4, 7, 0, 0, 0, ',', 0, 0, 0, 0, 1, 0, 1, 0, 0x80, 2, 2, 2, 0, 0, 0, 2, 2, 0x44, 1, 0};
    expected.insert(expected.end(), first.begin(), first.end());
    expected.insert(expected.end(), second.begin(), second.end());
    expected.push_back(0x3B);
    EXPECT_EQ(GIFEncoder::encode(frames), expected);
}

struct PaletteCase {
    int colors;
    int bits;
};

class GIFEncoderPalette : public testing::TestWithParam<PaletteCase> { };

TEST_P(GIFEncoderPalette, BitsAreTheSmallestThatHoldAllColors)
{
    EXPECT_EQ(GIFEncoder::colorTableBits(GetParam().colors), GetParam().bits);
}

TEST_P(GIFEncoderPalette, TableIsFilledWithBlackOrCut)
{
    const std::vector<RGBColor> palette = grays(GetParam().colors);
    const std::vector<RGBColor> padded = GIFEncoder::padPalette(palette);
    ASSERT_EQ(padded.size(), std::size_t{1} << static_cast<unsigned>(GetParam().bits));
    for (std::size_t i = 0; i < padded.size(); ++i)
        EXPECT_EQ(padded[i], i < palette.size() ? palette[i] : RGBColor(0, 0, 0));
}

TEST_P(GIFEncoderPalette, DescriptorTableAndCodeSizeFollowThePalette)
{
    const std::vector frames{onePixel(grays(GetParam().colors))};
    const Bytes file = GIFEncoder::encode(frames);
    const int bits = GetParam().bits;
    EXPECT_EQ(file.at(descriptorPackedAt), 0x80 + bits - 1);
    const std::size_t tableBytes = std::size_t{3} << static_cast<unsigned>(bits);
    EXPECT_EQ(file.at(tableAt + tableBytes), std::max(bits, 2)) << "the minimum code size follows the table";
    EXPECT_EQ(differenceSeenByGiflib(file, frames), "");
}

INSTANTIATE_TEST_SUITE_P(Sizes, GIFEncoderPalette,
    testing::Values(PaletteCase{0, 1}, PaletteCase{1, 1}, PaletteCase{2, 1}, PaletteCase{3, 2}, PaletteCase{4, 2},
        PaletteCase{5, 3}, PaletteCase{8, 3}, PaletteCase{9, 4}, PaletteCase{16, 4}, PaletteCase{17, 5},
        PaletteCase{32, 5}, PaletteCase{33, 6}, PaletteCase{64, 6}, PaletteCase{65, 7}, PaletteCase{128, 7},
        PaletteCase{129, 8}, PaletteCase{256, 8}, PaletteCase{257, 8}, PaletteCase{300, 8}),
    [](const auto& tested) { return std::to_string(tested.param.colors) + "Colors"; });

TEST(GIFEncoder, BitsOfImpossibleCountsAreThoseOfTheNearestTable)
{
    EXPECT_EQ(GIFEncoder::colorTableBits(-1), 1);
    EXPECT_EQ(GIFEncoder::colorTableBits(std::numeric_limits<std::int64_t>::min()), 1);
    EXPECT_EQ(GIFEncoder::colorTableBits(std::numeric_limits<std::int64_t>::max()), 8);
}

int writtenDelay(std::int64_t delayCentiseconds)
{
    return read16(GIFEncoder::encode(std::vector{onePixel({gray(0)}, delayCentiseconds)}), delayAt);
}

TEST(GIFEncoder, DelaysAreRaisedToOneAndLoweredTo65535)
{
    EXPECT_EQ(writtenDelay(0), 1);
    EXPECT_EQ(writtenDelay(-5), 1);
    EXPECT_EQ(writtenDelay(std::numeric_limits<std::int64_t>::min()), 1);
    EXPECT_EQ(writtenDelay(1), 1);
    EXPECT_EQ(writtenDelay(300), 300);
    EXPECT_EQ(writtenDelay(65535), 65535);
    EXPECT_EQ(writtenDelay(65536), 65535);
    EXPECT_EQ(writtenDelay(70'000), 65535);
    EXPECT_EQ(writtenDelay(std::numeric_limits<std::int64_t>::max()), 65535);
}

int writtenLoopCount(std::int64_t loopCount)
{
    return read16(GIFEncoder::encode(std::vector{onePixel({gray(0)})}, {.loopCount = loopCount}), loopCountAt);
}

TEST(GIFEncoder, LoopCountsBelowZeroMeanForEver)
{
    EXPECT_EQ(writtenLoopCount(-5), 0);
    EXPECT_EQ(writtenLoopCount(std::numeric_limits<std::int64_t>::min()), 0);
    EXPECT_EQ(writtenLoopCount(0), 0);
}

TEST(GIFEncoder, LoopCountsAreWrittenLowByteFirst)
{
    EXPECT_EQ(writtenLoopCount(1), 1);
    EXPECT_EQ(writtenLoopCount(0x1234), 0x1234);
    EXPECT_EQ(writtenLoopCount(65535), 65535);
}

TEST(GIFEncoder, LoopsForEverUnlessTold)
{
    EXPECT_EQ(GIFEncoder::Options{}.loopCount, 0);
    EXPECT_EQ(read16(GIFEncoder::encode(std::vector{onePixel({gray(0)})}), loopCountAt), 0);
}

TEST(GIFEncoderDeathTest, RejectsALoopCountOverSixteenBits)
{
    EXPECT_DEATH((void)writtenLoopCount(65536), "a loop count fits 16 bits");
    EXPECT_DEATH((void)writtenLoopCount(std::numeric_limits<std::int64_t>::max()), "a loop count fits 16 bits");
}

TEST(GIFEncoderDeathTest, RejectsAnIndexPastTheLiteralsOfItsTable)
{
    const std::vector frames{IndexedFrame{1, 1, grays(5), Bytes{8}, 10}};
    EXPECT_DEATH((void)GIFEncoder::encode(frames), "broken invariant");
}

TEST(GIFEncoder, TheScreenTakesTheFirstSizeAndEachFrameItsOwn)
{
    Random random(7);
    const std::vector frames{randomIndexedFrame(300, 2, 4, random), randomIndexedFrame(5, 260, 4, random)};
    const Bytes file = GIFEncoder::encode(frames);
    EXPECT_EQ(read16(file, screenAt), 300);
    EXPECT_EQ(read16(file, screenAt + 2), 2);
    EXPECT_EQ(file.at(descriptorAt), ',');
    EXPECT_EQ(read16(file, descriptorSizeAt), 300);
    EXPECT_EQ(read16(file, descriptorSizeAt + 2), 2);
    EXPECT_EQ(differenceSeenByGiflib(file, frames), "");
}

TEST(GIFEncoder, AFrameWithoutPixelsIsWrittenAsAnEmptyImage)
{
    const std::vector frames{IndexedFrame{0, 3, {gray(9)}, {}, 4}};
    const Bytes file = GIFEncoder::encode(frames);
    EXPECT_EQ(read16(file, descriptorSizeAt), 0);
    EXPECT_EQ(read16(file, descriptorSizeAt + 2), 3);
    EXPECT_THAT(Bytes(file.begin() + tableAt + 6, file.end()), ElementsAre(2, 1, 0x2C, 0, 0x3B)); // clear, end
}

GIFEncodingError::DimensionTooLarge thrownFor(const std::vector<IndexedFrame>& frames)
{
    try {
        (void)GIFEncoder::encode(frames);
    } catch (const GIFEncodingError& error) {
        return error.dimensionTooLarge();
    }
    ADD_FAILURE() << "nothing was thrown";
    return {};
}

TEST(GIFEncoder, RefusesAnySideOutside16Bits)
{
    using TooLarge = GIFEncodingError::DimensionTooLarge;
    const auto sized = [](std::int64_t width, std::int64_t height) {
        return std::vector{IndexedFrame{width, height, {}, {}, 1}};
    };
    EXPECT_EQ(thrownFor(sized(65536, 1)), (TooLarge{65536, 1}));
    EXPECT_EQ(thrownFor(sized(2, 65536)), (TooLarge{2, 65536}));
    EXPECT_EQ(thrownFor(sized(-1, 5)), (TooLarge{-1, 5}));
    EXPECT_EQ(thrownFor(sized(5, -1)), (TooLarge{5, -1}));
    EXPECT_EQ(thrownFor(sized(std::numeric_limits<std::int64_t>::min(), 0)),
        (TooLarge{std::numeric_limits<std::int64_t>::min(), 0}));
}

TEST(GIFEncoder, NamesTheFirstFrameThatIsTooLarge)
{
    const IndexedFrame good = onePixel({gray(1)});
    const IndexedFrame wide{70'000, 1, {}, {}, 1};
    const IndexedFrame high{1, 80'000, {}, {}, 1};
    EXPECT_EQ(thrownFor({good, good, wide, high}), (GIFEncodingError::DimensionTooLarge{70'000, 1}));
}

TEST(GIFEncoder, LooksAtAllSizesBeforeAnythingElse)
{
    // The first frame would end the process if it were written: its index lies far outside its table.
    const IndexedFrame broken{1, 1, {gray(1)}, Bytes{200}, 1};
    EXPECT_EQ(thrownFor({broken, IndexedFrame{65536, 0, {}, {}, 1}}), (GIFEncodingError::DimensionTooLarge{65536, 0}));
}

TEST(GIFEncoder, TakesTheLargestSides)
{
    const std::vector wide{IndexedFrame{65535, 1, {gray(3)}, Bytes(65535, 0), 5}};
    EXPECT_EQ(differenceSeenByGiflib(GIFEncoder::encode(wide), wide), "");
    const std::vector high{IndexedFrame{1, 65535, {gray(3)}, Bytes(65535, 0), 5}};
    EXPECT_EQ(differenceSeenByGiflib(GIFEncoder::encode(high), high), "");
}

TEST(GIFEncodingError, IsComparedByItsSizeAndTellsIt)
{
    const GIFEncodingError error({70'000, 12});
    EXPECT_EQ(error, GIFEncodingError({70'000, 12}));
    EXPECT_FALSE(error == GIFEncodingError({70'000, 13}));
    EXPECT_FALSE(error == GIFEncodingError({70'001, 12}));
    EXPECT_THAT(error.what(), testing::AllOf(testing::HasSubstr("70000"), testing::HasSubstr("12")));
}

TEST(GIFEncoder, AppendsSixteenBitsLowByteFirst)
{
    Bytes output{9};
    GIFEncoder::appendUInt16LE(output, 0x1234);
    GIFEncoder::appendUInt16LE(output, 0xFF);
    EXPECT_THAT(output, ElementsAre(9, 0x34, 0x12, 0xFF, 0));
}

Bytes asSubBlocks(std::size_t count)
{
    Bytes data;
    for (std::size_t i = 0; i < count; ++i)
        data.push_back(static_cast<std::uint8_t>(i * 7));
    Bytes output;
    GIFEncoder::appendAsSubBlocks(output, data);
    return output;
}

TEST(GIFEncoder, NoDataIsTheTerminatorAlone)
{
    EXPECT_THAT(asSubBlocks(0), ElementsAre(0));
}

TEST(GIFEncoder, ShortDataIsOneSubBlock)
{
    EXPECT_THAT(asSubBlocks(3), ElementsAre(3, 0, 7, 14, 0));
}

TEST(GIFEncoder, ExactlyOneFullSubBlockIsFollowedByTheTerminator)
{
    const Bytes output = asSubBlocks(255);
    ASSERT_EQ(output.size(), 1U + 255 + 1);
    EXPECT_EQ(output.front(), 255);
    EXPECT_EQ(output.back(), 0);
}

TEST(GIFEncoder, OneByteMoreMakesASecondSubBlock)
{
    const Bytes output = asSubBlocks(256);
    ASSERT_EQ(output.size(), 1U + 255 + 1 + 1 + 1);
    EXPECT_EQ(output.front(), 255);
    EXPECT_EQ(output[256], 1);
    EXPECT_EQ(output[257], static_cast<std::uint8_t>(255 * 7));
    EXPECT_EQ(output.back(), 0);
}

TEST(GIFEncoder, AllSubBlocksButTheLastAreFull)
{
    const Bytes output = asSubBlocks(600);
    ASSERT_EQ(output.size(), 600U + 3 + 1);
    EXPECT_EQ(output[0], 255);
    EXPECT_EQ(output[256], 255);
    EXPECT_EQ(output[512], 90);
}

TEST(GIFEncoder, AFileIsMadeOfItsFramesParts)
{
    Random random(11);
    const std::vector frames{randomIndexedFrame(13, 7, 9, random), randomIndexedFrame(13, 7, 200, random)};
    LZW::Encoder compressor;
    const std::vector parts{
        GIFEncoder::encodeFrame(frames[0], compressor), GIFEncoder::encodeFrame(frames[1], compressor)};
    const Bytes file = GIFEncoder::encode(frames, {.loopCount = 3});
    EXPECT_EQ(GIFEncoder::fileOf(parts, 13, 7, {.loopCount = 3}), file);
    EXPECT_EQ(GIFEncoder::fileSize(parts), std::ssize(file));
}

TEST(GIFEncoder, EncodesAsTheReferenceAndGiflibReadsItBack)
{
    Random random(12);
    for (std::int64_t i = support::iterations(1500); i > 0; --i) {
        std::vector<IndexedFrame> frames;
        for (std::int64_t count = random.between(1, 4); count > 0; --count)
            frames.push_back(
                randomIndexedFrame(random.between(1, 30), random.between(1, 30), random.below(257), random));
        const std::int64_t loopCount = random.pick<std::int64_t>({0, 1, 300, 65535});
        const Bytes file = GIFEncoder::encode(frames, {.loopCount = loopCount});
        ASSERT_EQ(file, reference::gifEncode(frames, loopCount));
        ASSERT_EQ(differenceSeenByGiflib(file, frames, loopCount), "");
    }
}

TEST(GIFEncoder, EncodesFramesWithoutPixelsAsTheReference)
{
    Random random(13);
    for (std::int64_t i = 0; i < 200; ++i) {
        const std::vector frames{randomIndexedFrame(random.below(2) * 5, 0, random.below(300), random),
            randomIndexedFrame(0, random.below(9), random.below(300), random)};
        ASSERT_EQ(GIFEncoder::encode(frames), reference::gifEncode(frames));
    }
}

} // namespace
} // namespace quillbox
