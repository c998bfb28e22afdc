#include "Capture/X11/PointerImage.h"

#include "Encoding/Bytes.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

constexpr PixelRect extent{0, 0, 3, 2};
constexpr std::int64_t stride = 3 * 4;

Bytes gray(std::uint8_t value)
{
    return Bytes(24, value);
}

PointerImage image(std::int32_t width, std::int32_t height, std::vector<std::uint32_t> pixels)
{
    PointerImage result;
    result.width = width;
    result.height = height;
    result.pixels = std::move(pixels);
    return result;
}

/// The picture while the pointer is drawn.
Bytes drawn(Bytes picture, const PointerImage& pointer, std::int32_t x, std::int32_t y)
{
    const DrawnPointer guard(picture.data(), stride, extent, pointer, pointer.placedAt(x, y));
    return Bytes(picture);
}

TEST(PointerImage, TheHotSpotPointsAtThePosition)
{
    PointerImage pointer = image(4, 5, std::vector<std::uint32_t>(20));
    pointer.hotSpotX = 1;
    pointer.hotSpotY = 2;
    EXPECT_EQ(pointer.placedAt(10, 20), (PixelRect{9, 18, 4, 5}));
}

TEST(DrawnPointer, AnOpaquePixelReplacesWhatIsBelow)
{
    Bytes expected = gray(100);
    expected[16] = 3; // blue, green, red of the pixel (1, 1)
    expected[17] = 2;
    expected[18] = 1;
    expected[19] = 255;
    EXPECT_EQ(drawn(gray(100), image(1, 1, {0xFF010203}), 1, 1), expected);
}

TEST(DrawnPointer, ATransparentPixelChangesNothing)
{
    EXPECT_EQ(drawn(gray(100), image(1, 1, {0x00000000}), 1, 1), gray(100));
}

TEST(DrawnPointer, AHalfTransparentPixelAddsToWhatShinesThrough)
{
    // Premultiplied: 100 × (255 − 128) ÷ 255 = 49.8, rounded 50, plus the pixel's own part.
    const Bytes picture = drawn(gray(100), image(1, 1, {0x80402010}), 0, 0);
    EXPECT_EQ(picture[0], 50 + 0x10);
    EXPECT_EQ(picture[1], 50 + 0x20);
    EXPECT_EQ(picture[2], 50 + 0x40);
    EXPECT_EQ(picture[3], 50 + 0x80);
}

TEST(DrawnPointer, AnImageThatIsNotPremultipliedDoesNotWrapAround)
{
    EXPECT_EQ(drawn(gray(200), image(1, 1, {0x00FFFFFF}), 0, 0)[0], 255);
}

TEST(DrawnPointer, IsCutAtEveryEdge)
{
    const PointerImage cross = image(2, 2, {0xFF000001, 0xFF000002, 0xFF000003, 0xFF000004});
    const auto blues = [&](std::int32_t x, std::int32_t y) {
        const Bytes picture = drawn(gray(9), cross, x, y);
        std::vector<int> result;
        for (std::size_t i = 0; i < picture.size(); i += 4)
            result.push_back(picture[i]);
        return result;
    };
    EXPECT_EQ(blues(-1, -1), (std::vector{4, 9, 9, 9, 9, 9}));
    EXPECT_EQ(blues(2, -1), (std::vector{9, 9, 3, 9, 9, 9}));
    EXPECT_EQ(blues(-1, 1), (std::vector{9, 9, 9, 2, 9, 9}));
    EXPECT_EQ(blues(2, 1), (std::vector{9, 9, 9, 9, 9, 1}));
    EXPECT_EQ(blues(1, 0), (std::vector{9, 1, 2, 9, 3, 4}));
    EXPECT_EQ(blues(3, 0), (std::vector{9, 9, 9, 9, 9, 9}));
}

TEST(DrawnPointer, ALargePointerCoversTheWholePicture)
{
    const PointerImage large = image(9, 9, std::vector<std::uint32_t>(81, 0xFF0A0A0A));
    const Bytes picture = drawn(gray(1), large, -3, -3);
    for (std::size_t i = 0; i < picture.size(); ++i)
        EXPECT_EQ(picture[i], i % 4 == 3 ? 255 : 10);
}

TEST(DrawnPointer, ThePixelsBelowComeBack)
{
    Bytes picture = gray(0);
    for (std::size_t i = 0; i < picture.size(); ++i)
        picture[i] = static_cast<std::uint8_t>(i);
    const Bytes before = picture;
    const PointerImage pointer = image(2, 2, std::vector<std::uint32_t>(4, 0xFFFFFFFF));
    {
        const DrawnPointer guard(picture.data(), stride, extent, pointer, pointer.placedAt(2, -1));
        EXPECT_NE(picture, before);
    }
    EXPECT_EQ(picture, before);
}

TEST(DrawnPointer, NoImageDrawsNothing)
{
    EXPECT_EQ(drawn(gray(5), PointerImage{}, 1, 1), gray(5));
}

} // namespace
} // namespace quillbox
