#include "Capture/PipeWire/PixelOrder.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillbox {
namespace {

using Pixels = std::vector<std::uint8_t>;

/// What `memory` shows when read in that order.
Pixels unpacked(PixelOrder order, const Pixels& memory)
{
    const auto pixels = std::ssize(memory) / bytesPerPixel(order);
    Pixels result(static_cast<std::size_t>(pixels) * 4);
    unpack(order, memory.data(), bytesPerPixel(order), result.data(), pixels);
    return result;
}

TEST(PixelOrder, APaddingByteIsNoAlpha)
{
    const Pixels wanted{10, 20, 30, 255, 40, 50, 60, 255};
    EXPECT_EQ(unpacked(PixelOrder::BGRx, {30, 20, 10, 7, 60, 50, 40, 8}), wanted);
    EXPECT_EQ(unpacked(PixelOrder::RGBx, {10, 20, 30, 7, 40, 50, 60, 8}), wanted);
    EXPECT_EQ(unpacked(PixelOrder::xRGB, {7, 10, 20, 30, 8, 40, 50, 60}), wanted);
    EXPECT_EQ(unpacked(PixelOrder::xBGR, {7, 30, 20, 10, 8, 60, 50, 40}), wanted);
}

TEST(PixelOrder, AlphaIsCarriedUnchanged)
{
    const Pixels wanted{10, 20, 30, 7, 40, 50, 60, 8};
    EXPECT_EQ(unpacked(PixelOrder::BGRA, {30, 20, 10, 7, 60, 50, 40, 8}), wanted);
    EXPECT_EQ(unpacked(PixelOrder::RGBA, {10, 20, 30, 7, 40, 50, 60, 8}), wanted);
    EXPECT_EQ(unpacked(PixelOrder::ARGB, {7, 10, 20, 30, 8, 40, 50, 60}), wanted);
    EXPECT_EQ(unpacked(PixelOrder::ABGR, {7, 30, 20, 10, 8, 60, 50, 40}), wanted);
}

TEST(PixelOrder, APixelOfThreeBytesIsOpaque)
{
    const Pixels wanted{10, 20, 30, 255, 40, 50, 60, 255};
    EXPECT_EQ(unpacked(PixelOrder::RGB, {10, 20, 30, 40, 50, 60}), wanted);
    EXPECT_EQ(unpacked(PixelOrder::BGR, {30, 20, 10, 60, 50, 40}), wanted);
}

TEST(PixelOrder, PixelsMayLieApartAndBackwards)
{
    const Pixels memory{1, 2, 3, 4, 0, 0, 5, 6, 7, 8};
    Pixels result(8);
    unpack(PixelOrder::RGBA, memory.data() + 6, -6, result.data(), 2);
    EXPECT_EQ(result, (Pixels{5, 6, 7, 8, 1, 2, 3, 4}));
}

TEST(PixelOrder, LongRowsAreReadLikeShortOnes)
{
    Pixels memory;
    Pixels wanted;
    for (int i = 0; i < 1001; ++i) {
        const auto value = static_cast<std::uint8_t>(i * 7);
        memory.insert(memory.end(), {value, static_cast<std::uint8_t>(i), 3, 0});
        wanted.insert(wanted.end(), {3, static_cast<std::uint8_t>(i), value, 255});
    }
    EXPECT_EQ(unpacked(PixelOrder::BGRx, memory), wanted);
}

} // namespace
} // namespace quillbox
