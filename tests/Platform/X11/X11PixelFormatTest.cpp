#include "Platform/X11/X11PixelFormat.h"

#include "Encoding/Bytes.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

Bytes unpacked(const X11PixelFormat& layout, const Bytes& row, std::int64_t pixels)
{
    Bytes result(static_cast<std::size_t>(pixels * 4), 77);
    layout.unpack(row.data(), result.data(), pixels);
    return result;
}

X11PixelFormat fiveSixFive()
{
    X11PixelFormat layout;
    layout.bitsPerPixel = 16;
    layout.redMask = 0xF800;
    layout.greenMask = 0x07E0;
    layout.blueMask = 0x001F;
    return layout;
}

TEST(X11PixelFormat, TheUsualLayoutIsOurs)
{
    const X11PixelFormat layout;
    EXPECT_TRUE(layout.isBGRA());
    EXPECT_TRUE(layout.isReadable());
    EXPECT_EQ(unpacked(layout, {1, 2, 3, 4, 5, 6, 7, 8}, 2), (Bytes{1, 2, 3, 255, 5, 6, 7, 255}));
}

TEST(X11PixelFormat, ATurnedByteOrderIsNotOurs)
{
    X11PixelFormat layout;
    layout.leastSignificantByteFirst = false;
    EXPECT_FALSE(layout.isBGRA());
    EXPECT_EQ(unpacked(layout, {9, 3, 2, 1}, 1), (Bytes{1, 2, 3, 255}));
}

TEST(X11PixelFormat, SwappedMasksAreNotOurs)
{
    X11PixelFormat layout;
    layout.redMask = 0x0000FF;
    layout.blueMask = 0xFF0000;
    EXPECT_FALSE(layout.isBGRA());
    EXPECT_EQ(unpacked(layout, {3, 2, 1, 9}, 1), (Bytes{1, 2, 3, 255}));
}

TEST(X11PixelFormat, SixteenBitsAreStretchedToTheWholeRange)
{
    // Red 31 of 31; green 63 of 63; blue 31 of 31; then 16, 32 and 1 of those.
    EXPECT_EQ(unpacked(fiveSixFive(), {0x00, 0xF8, 0xE0, 0x07, 0x1F, 0x00}, 3),
        (Bytes{0, 0, 255, 255, 0, 255, 0, 255, 255, 0, 0, 255}));
    EXPECT_EQ(unpacked(fiveSixFive(), {0x01, 0x84}, 1), (Bytes{8, 130, 132, 255})); // 1000'0100'0000'0001
}

TEST(X11PixelFormat, SixteenBitsOfATurnedByteOrder)
{
    X11PixelFormat layout = fiveSixFive();
    layout.leastSignificantByteFirst = false;
    EXPECT_EQ(unpacked(layout, {0xF8, 0x00}, 1), (Bytes{0, 0, 255, 255}));
}

TEST(X11PixelFormat, TwentyFourPackedBits)
{
    X11PixelFormat layout;
    layout.bitsPerPixel = 24;
    EXPECT_FALSE(layout.isBGRA());
    EXPECT_EQ(unpacked(layout, {1, 2, 3, 4, 5, 6}, 2), (Bytes{1, 2, 3, 255, 4, 5, 6, 255}));
}

TEST(X11PixelFormat, TenBitsAChannelLoseTheirLowestTwo)
{
    X11PixelFormat layout;
    layout.redMask = 0x3FF00000;
    layout.greenMask = 0x000FFC00;
    layout.blueMask = 0x000003FF;
    EXPECT_FALSE(layout.isBGRA());
    // Red 1023, green 515, blue 4: 0x3FF << 20 | 0x203 << 10 | 0x004.
    EXPECT_EQ(unpacked(layout, {0x04, 0x0C, 0xF8, 0x3F}, 1), (Bytes{1, 128, 255, 255}));
}

TEST(X11PixelFormat, RowsAreFilledUpToTheirPad)
{
    EXPECT_EQ(fiveSixFive().strideFor(1), 4);
    EXPECT_EQ(fiveSixFive().strideFor(2), 4);
    EXPECT_EQ(fiveSixFive().strideFor(3), 8);
    X11PixelFormat packed;
    packed.bitsPerPixel = 24;
    EXPECT_EQ(packed.strideFor(1), 4);
    EXPECT_EQ(packed.strideFor(5), 16);
    EXPECT_EQ(X11PixelFormat{}.strideFor(1366), 5464);
}

TEST(X11PixelFormat, WithoutThreeChannelsOrInOddSizesItCannotBeRead)
{
    X11PixelFormat palette;
    palette.bitsPerPixel = 8;
    EXPECT_FALSE(palette.isReadable());
    X11PixelFormat noRed;
    noRed.redMask = 0;
    EXPECT_FALSE(noRed.isReadable());
    X11PixelFormat gap;
    gap.greenMask = 0x00F0F0;
    EXPECT_FALSE(gap.isReadable());
    EXPECT_DEATH(palette.unpack(nullptr, nullptr, 0), "readable");
}

} // namespace
} // namespace quillbox
