#include "Capture/PixelBufferAdapter.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace quillbox {
namespace {

PixelBuffer bufferOver(const Bytes& bytes, std::int64_t width, std::int64_t height, std::int64_t stride)
{
    PixelBuffer buffer;
    buffer.base = bytes.data();
    buffer.width = width;
    buffer.height = height;
    buffer.stride = stride;
    return buffer;
}

TEST(PixelBufferAdapter, TurnsBlueGreenRedAlphaIntoRedGreenBlueAlpha)
{
    const Bytes bytes{10, 20, 30, 40, 50, 60, 70, 80};
    EXPECT_EQ(PixelBufferAdapter::makeFrame(bufferOver(bytes, 2, 1, 8)),
        RGBAFrame(2, 1, Bytes{30, 20, 10, 40, 70, 60, 50, 80}));
}

TEST(PixelBufferAdapter, LeavesOutThePaddingOfRows)
{
    const Bytes bytes{1, 2, 3, 4, 99, 99, 99, 99, 5, 6, 7, 8, 99, 99, 99, 99};
    EXPECT_EQ(
        PixelBufferAdapter::makeFrame(bufferOver(bytes, 1, 2, 8)), RGBAFrame(1, 2, Bytes{3, 2, 1, 4, 7, 6, 5, 8}));
}

TEST(PixelBufferAdapter, AStrideNeedNotBeAMultipleOfFour)
{
    const Bytes bytes{1, 2, 3, 4, 99, 5, 6, 7, 8};
    EXPECT_EQ(
        PixelBufferAdapter::makeFrame(bufferOver(bytes, 1, 2, 5)), RGBAFrame(1, 2, Bytes{3, 2, 1, 4, 7, 6, 5, 8}));
}

TEST(PixelBufferAdapter, NoWidthOrNoHeightGivesAnEmptyFrameOfThatSize)
{
    const Bytes bytes(16, 1);
    EXPECT_EQ(PixelBufferAdapter::makeFrame(bufferOver(bytes, 0, 3, 4)), RGBAFrame(0, 3, Bytes{}));
    EXPECT_EQ(PixelBufferAdapter::makeFrame(bufferOver(bytes, 3, 0, 12)), RGBAFrame(3, 0, Bytes{}));
    EXPECT_EQ(PixelBufferAdapter::makeFrame(bufferOver(bytes, 0, 0, 0)), RGBAFrame(0, 0, Bytes{}));
}

TEST(PixelBufferAdapter, WithoutRowsTheStrideDoesNotMatter)
{
    const Bytes bytes(16, 1);
    EXPECT_EQ(PixelBufferAdapter::makeFrame(bufferOver(bytes, 3, 0, 0)), RGBAFrame(3, 0, Bytes{}));
}

TEST(PixelBufferAdapter, WithoutAnAddressThereIsNothing)
{
    PixelBuffer buffer;
    buffer.width = 2;
    buffer.height = 2;
    buffer.stride = 8;
    EXPECT_EQ(PixelBufferAdapter::makeFrame(buffer), std::nullopt);
}

TEST(PixelBufferAdapter, AnUndefinedAlphaIsOpaque)
{
    const Bytes bytes{10, 20, 30, 0, 50, 60, 70, 80};
    PixelBuffer buffer = bufferOver(bytes, 2, 1, 8);
    buffer.alpha = PixelBuffer::Alpha::Undefined;
    EXPECT_EQ(PixelBufferAdapter::makeFrame(buffer), RGBAFrame(2, 1, Bytes{30, 20, 10, 255, 70, 60, 50, 255}));
}

TEST(PixelBufferAdapter, EveryWidthAndAlignmentEqualsThePlainDefinition)
{
    std::mt19937 random(1); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same pictures in every run
    for (std::int64_t width = 1; width <= 70; ++width) {
        for (std::int64_t offset = 0; offset < 5; ++offset) {
            const std::int64_t stride = width * 4 + offset;
            Bytes bytes(static_cast<std::size_t>(offset + stride * 3));
            for (std::uint8_t& byte : bytes)
                byte = static_cast<std::uint8_t>(random());
            PixelBuffer buffer = bufferOver(bytes, width, 3, stride);
            buffer.base += offset;
            Bytes expected;
            for (std::int64_t y = 0; y < 3; ++y)
                for (std::int64_t x = 0; x < width; ++x)
                    for (const int channel : {2, 1, 0, 3})
                        expected.push_back(buffer.base[y * stride + x * 4 + channel]);
            ASSERT_EQ(PixelBufferAdapter::makeFrame(buffer), RGBAFrame(width, 3, expected)) << width << " " << offset;
        }
    }
}

TEST(PixelBufferAdapter, ALargePictureIsWholeToo)
{
    const std::int64_t width = 641;
    const std::int64_t height = 480;
    Bytes bytes(static_cast<std::size_t>(width * height * 4));
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 251);
    const auto frame = PixelBufferAdapter::makeFrame(bufferOver(bytes, width, height, width * 4));
    ASSERT_TRUE(frame);
    for (std::size_t i = 0; i < bytes.size(); i += 4) {
        ASSERT_EQ(frame->pixels()[i], bytes[i + 2]) << i;
        ASSERT_EQ(frame->pixels()[i + 1], bytes[i + 1]) << i;
        ASSERT_EQ(frame->pixels()[i + 2], bytes[i]) << i;
        ASSERT_EQ(frame->pixels()[i + 3], bytes[i + 3]) << i;
    }
}

TEST(PixelBufferAdapterDeathTest, RejectsARowThatDoesNotHoldItsPixels)
{
    const Bytes bytes(16, 1);
    EXPECT_DEATH((void)PixelBufferAdapter::makeFrame(bufferOver(bytes, 2, 2, 7)), "row holds its pixels");
}

TEST(PixelBufferAdapterDeathTest, RejectsASizeThatOverflows)
{
    const Bytes bytes(16, 1);
    constexpr auto huge = std::numeric_limits<std::int64_t>::max();
    EXPECT_DEATH((void)PixelBufferAdapter::makeFrame(bufferOver(bytes, huge, 1, huge)), "product fits");
    EXPECT_DEATH((void)PixelBufferAdapter::makeFrame(bufferOver(bytes, 1, huge, 4)), "product fits");
    EXPECT_DEATH((void)PixelBufferAdapter::makeFrame(bufferOver(bytes, -1, 1, 4)), "not negative");
}

} // namespace
} // namespace quillbox
