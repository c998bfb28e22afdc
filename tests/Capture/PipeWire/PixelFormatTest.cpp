#include "Capture/PipeWire/PixelFormat.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillbox {
namespace {

using Pixels = std::vector<std::uint8_t>;

/// What `memory` shows when read in that order.
Pixels unpacked(PixelFormat order, const Pixels& memory)
{
    const auto pixels = std::ssize(memory) / bytesPerPixel(order);
    Pixels result(static_cast<std::size_t>(pixels) * 4);
    unpack(order, memory.data(), bytesPerPixel(order), result.data(), pixels);
    return result;
}

TEST(PixelFormat, APaddingByteIsNoAlpha)
{
    const Pixels wanted{10, 20, 30, 255, 40, 50, 60, 255};
    EXPECT_EQ(unpacked(PixelFormat::BGRx, {30, 20, 10, 7, 60, 50, 40, 8}), wanted);
    EXPECT_EQ(unpacked(PixelFormat::RGBx, {10, 20, 30, 7, 40, 50, 60, 8}), wanted);
    EXPECT_EQ(unpacked(PixelFormat::xRGB, {7, 10, 20, 30, 8, 40, 50, 60}), wanted);
    EXPECT_EQ(unpacked(PixelFormat::xBGR, {7, 30, 20, 10, 8, 60, 50, 40}), wanted);
}

TEST(PixelFormat, AlphaIsCarriedUnchanged)
{
    const Pixels wanted{10, 20, 30, 7, 40, 50, 60, 8};
    EXPECT_EQ(unpacked(PixelFormat::BGRA, {30, 20, 10, 7, 60, 50, 40, 8}), wanted);
    EXPECT_EQ(unpacked(PixelFormat::RGBA, {10, 20, 30, 7, 40, 50, 60, 8}), wanted);
    EXPECT_EQ(unpacked(PixelFormat::ARGB, {7, 10, 20, 30, 8, 40, 50, 60}), wanted);
    EXPECT_EQ(unpacked(PixelFormat::ABGR, {7, 30, 20, 10, 8, 60, 50, 40}), wanted);
}

TEST(PixelFormat, APixelOfThreeBytesIsOpaque)
{
    const Pixels wanted{10, 20, 30, 255, 40, 50, 60, 255};
    EXPECT_EQ(unpacked(PixelFormat::RGB, {10, 20, 30, 40, 50, 60}), wanted);
    EXPECT_EQ(unpacked(PixelFormat::BGR, {30, 20, 10, 60, 50, 40}), wanted);
}

/// A little-endian word in memory.
Pixels littleEndian(std::uint32_t value)
{
    return {static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8),
        static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 24)};
}

/// Four fields of a word, the highest first, of which the first has so many bits and the last what is left of 32.
Pixels wordOfFields(int firstBits, std::uint32_t first, std::uint32_t second, std::uint32_t third, std::uint32_t fourth)
{
    const int lastBits = 12 - firstBits; // the two between have ten each
    return littleEndian(first << (32 - firstBits) | second << (10 + lastBits) | third << lastBits | fourth);
}

// In ten bits, each with lower bits that are to be dropped.
constexpr std::uint32_t tenBitRed = 10 << 2 | 3;
constexpr std::uint32_t tenBitGreen = 200 << 2 | 1;
constexpr std::uint32_t tenBitBlue = 255 << 2 | 2;

TEST(PixelFormat, OfTenBitsTheUpperEightAreTaken)
{
    const Pixels wanted{10, 200, 255, 255};
    for (const std::uint32_t padding : {0U, 1U, 2U, 3U}) {
        EXPECT_EQ(
            unpacked(PixelFormat::xRGB2101010, wordOfFields(2, padding, tenBitRed, tenBitGreen, tenBitBlue)), wanted);
        EXPECT_EQ(
            unpacked(PixelFormat::xBGR2101010, wordOfFields(2, padding, tenBitBlue, tenBitGreen, tenBitRed)), wanted);
        EXPECT_EQ(
            unpacked(PixelFormat::RGBx1010102, wordOfFields(10, tenBitRed, tenBitGreen, tenBitBlue, padding)), wanted);
        EXPECT_EQ(
            unpacked(PixelFormat::BGRx1010102, wordOfFields(10, tenBitBlue, tenBitGreen, tenBitRed, padding)), wanted);
    }
    EXPECT_EQ(unpacked(PixelFormat::xRGB2101010, {0xFE, 0x87, 0xBC, 0x02}), wanted);
}

TEST(PixelFormat, TwoBitsOfAlphaAreSpreadOverAByte)
{
    for (const std::uint32_t alpha : {0U, 1U, 2U, 3U}) {
        const Pixels wanted{10, 200, 255, static_cast<std::uint8_t>(alpha * 85)};
        EXPECT_EQ(
            unpacked(PixelFormat::ARGB2101010, wordOfFields(2, alpha, tenBitRed, tenBitGreen, tenBitBlue)), wanted);
        EXPECT_EQ(
            unpacked(PixelFormat::ABGR2101010, wordOfFields(2, alpha, tenBitBlue, tenBitGreen, tenBitRed)), wanted);
        EXPECT_EQ(
            unpacked(PixelFormat::RGBA1010102, wordOfFields(10, tenBitRed, tenBitGreen, tenBitBlue, alpha)), wanted);
        EXPECT_EQ(
            unpacked(PixelFormat::BGRA1010102, wordOfFields(10, tenBitBlue, tenBitGreen, tenBitRed, alpha)), wanted);
    }
}

TEST(PixelFormat, PixelsMayLieApartAndBackwards)
{
    const Pixels memory{1, 2, 3, 4, 0, 0, 5, 6, 7, 8};
    Pixels result(8);
    unpack(PixelFormat::RGBA, memory.data() + 6, -6, result.data(), 2);
    EXPECT_EQ(result, (Pixels{5, 6, 7, 8, 1, 2, 3, 4}));
}

TEST(PixelFormat, LongRowsAreReadLikeShortOnes)
{
    Pixels memory;
    Pixels wanted;
    for (int i = 0; i < 1001; ++i) {
        const auto value = static_cast<std::uint8_t>(i * 7);
        memory.insert(memory.end(), {value, static_cast<std::uint8_t>(i), 3, 0});
        wanted.insert(wanted.end(), {3, static_cast<std::uint8_t>(i), value, 255});
    }
    EXPECT_EQ(unpacked(PixelFormat::BGRx, memory), wanted);
}

} // namespace
} // namespace quillbox
