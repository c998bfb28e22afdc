#include "Capture/PipeWire/StreamPicture.h"

#include "Capture/CaptureError.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>

namespace quillbox {
namespace {

/// A stream's memory, in which every pixel tells its place: BGRx, rows padded.
class Memory {
public:
    Memory(std::int32_t width, std::int32_t height)
        : m_width(width)
        , m_height(height)
        , m_bytes(static_cast<std::size_t>(stride() * height), 99)
    {
        for (std::int32_t y = 0; y < height; ++y)
            for (std::int32_t x = 0; x < width; ++x)
                set(x, y, RGBColor(static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), 200));
    }
    void set(std::int32_t x, std::int32_t y, RGBColor color)
    {
        const auto at = static_cast<std::size_t>(y * stride() + x * 4);
        m_bytes[at] = color.b;
        m_bytes[at + 1] = color.g;
        m_bytes[at + 2] = color.r;
    }
    [[nodiscard]] StreamBuffer buffer() const
    {
        StreamBuffer buffer;
        buffer.bytes = m_bytes;
        buffer.stride = stride();
        buffer.width = m_width;
        buffer.height = m_height;
        buffer.crop = {0, 0, m_width, m_height};
        return buffer;
    }

private:
    [[nodiscard]] std::int64_t stride() const { return m_width * 4 + 12; }

    std::int32_t m_width;
    std::int32_t m_height;
    std::vector<std::uint8_t> m_bytes;
};

std::optional<PixelSize> notKnown(PixelSize /*picture*/)
{
    return std::nullopt;
}

StreamPicture::PointsOf always(PixelSize points)
{
    return [points](PixelSize /*picture*/) {
        return points;
    };
}

RGBColor colorAt(const RGBAFrame& frame, std::int64_t x, std::int64_t y)
{
    const PixelView pixels = frame.pixels();
    const auto at = static_cast<std::size_t>((y * frame.width() + x) * 4);
    return {pixels[at], pixels[at + 1], pixels[at + 2]};
}

TEST(StreamPicture, ShowsTheRegionsPixels)
{
    const Memory memory(90, 80);
    StreamPicture picture({10, 20, 30, 40}, notKnown);
    EXPECT_TRUE(picture.update(memory.buffer(), std::nullopt));
    const RGBAFrame frame = picture.frame();
    EXPECT_EQ(frame.width(), 30);
    EXPECT_EQ(frame.height(), 40);
    for (std::int64_t y = 0; y < 40; ++y)
        for (std::int64_t x = 0; x < 30; ++x)
            ASSERT_EQ(colorAt(frame, x, y),
                RGBColor(static_cast<std::uint8_t>(10 + x), static_cast<std::uint8_t>(20 + y), 200));
}

TEST(StreamPicture, IsUnchangedByChangesOutsideTheRegion)
{
    Memory memory(90, 80);
    StreamPicture picture({10, 20, 30, 40}, notKnown);
    (void)picture.update(memory.buffer(), std::nullopt);
    memory.set(9, 20, RGBColor(1, 2, 3));
    memory.set(40, 20, RGBColor(1, 2, 3));
    EXPECT_FALSE(picture.update(memory.buffer(), std::nullopt));
}

TEST(StreamPicture, SharesTheBandsThatDidNotChange)
{
    Memory memory(90, 200);
    StreamPicture picture({0, 10, 90, 100}, notKnown);
    (void)picture.update(memory.buffer(), std::nullopt);
    const RGBAFrame before = picture.frame();
    memory.set(3, 10 + 33, RGBColor(1, 2, 3)); // in the second band
    EXPECT_TRUE(picture.update(memory.buffer(), std::nullopt));
    const RGBAFrame after = picture.frame();
    EXPECT_TRUE(after.sharesBand(before, 0));
    EXPECT_FALSE(after.sharesBand(before, 1));
    EXPECT_TRUE(after.sharesBand(before, 2));
    EXPECT_TRUE(after.sharesBand(before, 3));
    EXPECT_EQ(colorAt(after, 3, 33), RGBColor(1, 2, 3));
}

TEST(StreamPicture, LooksAtWhatIsDamagedOnly)
{
    Memory memory(90, 80);
    StreamPicture picture({10, 20, 30, 40}, notKnown);
    (void)picture.update(memory.buffer(), std::nullopt);
    memory.set(11, 21, RGBColor(1, 2, 3));
    memory.set(30, 50, RGBColor(4, 5, 6));
    EXPECT_FALSE(picture.update(memory.buffer(), std::vector<PixelRect>()));
    EXPECT_TRUE(picture.update(memory.buffer(), std::vector{PixelRect{0, 40, 90, 40}}));
    const RGBAFrame frame = picture.frame();
    EXPECT_EQ(colorAt(frame, 20, 30), RGBColor(4, 5, 6));
    EXPECT_EQ(colorAt(frame, 1, 1), RGBColor(11, 21, 200)) << "nobody said that it had changed";
}

TEST(StreamPicture, OnADenseOutputAPointIsTheMeanOfItsPixels)
{
    Memory memory(80, 60);
    memory.set(20, 20, RGBColor(0, 0, 0));
    memory.set(21, 20, RGBColor(100, 40, 8));
    memory.set(20, 21, RGBColor(0, 0, 0));
    memory.set(21, 21, RGBColor(100, 40, 8));
    StreamPicture picture({10, 10, 5, 6}, always({40, 30}));
    (void)picture.update(memory.buffer(), std::nullopt);
    const RGBAFrame frame = picture.frame();
    EXPECT_EQ(frame.width(), 5);
    EXPECT_EQ(frame.height(), 6);
    EXPECT_EQ(colorAt(frame, 0, 0), RGBColor(50, 20, 4));
    EXPECT_EQ(colorAt(frame, 1, 2), RGBColor(22, 24, 200)); // (22 + 23) ÷ 2, truncated
}

TEST(StreamPicture, EachAxisHasARatioOfItsOwn)
{
    const Memory memory(80, 30);
    StreamPicture picture({10, 10, 5, 6}, always({40, 30}));
    (void)picture.update(memory.buffer(), std::nullopt);
    const RGBAFrame frame = picture.frame();
    EXPECT_EQ(frame.width(), 5);
    EXPECT_EQ(frame.height(), 6);
    EXPECT_EQ(colorAt(frame, 0, 0), RGBColor(20, 10, 200));
    EXPECT_EQ(colorAt(frame, 4, 5), RGBColor(28, 15, 200));
}

TEST(StreamPicture, ATurnedOutputIsShownUpright)
{
    const Memory memory(60, 80);
    StreamBuffer buffer = memory.buffer();
    buffer.transform = BufferTransform::Turned90;
    StreamPicture picture({10, 20, 30, 31}, always({80, 60}));
    EXPECT_TRUE(picture.update(buffer, std::nullopt));
    const RGBAFrame frame = picture.frame();
    EXPECT_EQ(frame.width(), 30);
    EXPECT_EQ(frame.height(), 31);
    EXPECT_EQ(colorAt(frame, 0, 0), RGBColor(20, 79 - 10, 200));
    EXPECT_EQ(colorAt(frame, 29, 30), RGBColor(50, 79 - 39, 200));
}

TEST(StreamPicture, OfALargerPictureTheRegionIsTheSamePoints)
{
    StreamPicture picture({10, 20, 30, 40}, notKnown);
    (void)picture.update(Memory(90, 50).buffer(), std::nullopt); // cut to 30 rows
    const RGBAFrame before = picture.frame();
    Memory larger(180, 160);
    EXPECT_TRUE(picture.update(larger.buffer(), std::vector<PixelRect>()));
    EXPECT_EQ(picture.frame(), before);

    larger.set(39, 49, RGBColor(3, 3, 4)); // the last one of it
    EXPECT_TRUE(picture.update(larger.buffer(), std::vector{PixelRect{39, 49, 1, 1}}));
    EXPECT_EQ(colorAt(picture.frame(), 29, 29), RGBColor(3, 3, 4));
    larger.set(40, 49, RGBColor(3, 3, 4));
    larger.set(39, 50, RGBColor(3, 3, 4));
    EXPECT_FALSE(picture.update(larger.buffer(), std::nullopt)) << "it is beside the region";
}

TEST(StreamPicture, WhatASmallerPictureHasNoLongerIsBlack)
{
    StreamPicture picture({10, 20, 30, 40}, notKnown);
    (void)picture.update(Memory(90, 80).buffer(), std::nullopt);
    const RGBAFrame before = picture.frame();
    Memory smaller(35, 40);
    EXPECT_TRUE(picture.update(smaller.buffer(), std::vector<PixelRect>()));
    const RGBAFrame frame = picture.frame();
    ASSERT_EQ(frame.width(), 30);
    ASSERT_EQ(frame.height(), 40);
    for (std::int64_t y = 0; y < 40; ++y)
        for (std::int64_t x = 0; x < 30; ++x)
            ASSERT_EQ(colorAt(frame, x, y), x < 25 && y < 20 ? colorAt(before, x, y) : RGBColor(0, 0, 0));
    EXPECT_EQ(frame.pixels()[30 * 40 * 4 - 1], 255) << "it is opaque";
    EXPECT_FALSE(picture.update(smaller.buffer(), std::vector{PixelRect{0, 0, 35, 40}}));
}

TEST(StreamPicture, OfAPictureBesideTheRegionNothingIsShown)
{
    StreamPicture picture({10, 20, 30, 40}, notKnown);
    (void)picture.update(Memory(90, 80).buffer(), std::nullopt);
    EXPECT_TRUE(picture.update(Memory(10, 20).buffer(), std::nullopt));
    const RGBAFrame frame = picture.frame();
    EXPECT_EQ(colorAt(frame, 0, 0), RGBColor(0, 0, 0));
    EXPECT_EQ(colorAt(frame, 29, 39), RGBColor(0, 0, 0));
}

TEST(StreamPicture, PointsStayWhatTheyAreWhenThePictureGetsDenser)
{
    StreamPicture picture({10, 10, 5, 6}, always({40, 30}));
    (void)picture.update(Memory(80, 60).buffer(), std::nullopt);
    (void)picture.frame();
    EXPECT_TRUE(picture.update(Memory(40, 30).buffer(), std::vector<PixelRect>()));
    const RGBAFrame frame = picture.frame();
    EXPECT_EQ(frame.width(), 5);
    EXPECT_EQ(frame.height(), 6);
    EXPECT_EQ(colorAt(frame, 0, 0), RGBColor(10, 10, 200));
    EXPECT_EQ(colorAt(frame, 4, 5), RGBColor(14, 15, 200));
}

TEST(StreamPicture, APointHasAsManyPixelsAsBeforeWhereNobodyKnows)
{
    int asked = 0;
    StreamPicture picture({10, 10, 5, 6}, [&asked](PixelSize /*picture*/) {
        return ++asked == 1 ? std::optional(PixelSize{40, 30}) : std::nullopt;
    });
    (void)picture.update(Memory(80, 60).buffer(), std::nullopt);
    const RGBAFrame before = picture.frame();
    EXPECT_TRUE(picture.update(Memory(100, 80).buffer(), std::nullopt));
    EXPECT_EQ(picture.frame(), before);
    (void)picture.update(Memory(100, 80).buffer(), std::nullopt);
    EXPECT_EQ(asked, 2) << "once a size";
}

TEST(StreamPicture, IsTheSameAgainWhenThePictureHasItsFirstSizeAgain)
{
    const Memory memory(90, 80);
    StreamPicture picture({10, 20, 30, 40}, notKnown);
    (void)picture.update(memory.buffer(), std::nullopt);
    const RGBAFrame before = picture.frame();
    (void)picture.update(Memory(20, 70).buffer(), std::nullopt);
    EXPECT_FALSE(picture.frame() == before);
    EXPECT_TRUE(picture.update(memory.buffer(), std::nullopt));
    EXPECT_EQ(picture.frame(), before);
}

TEST(StreamPicture, AnotherCropIsAnotherPictureWhateverIsDamaged)
{
    const Memory memory(90, 80);
    StreamBuffer buffer = memory.buffer();
    buffer.crop = {0, 0, 60, 50};
    StreamPicture picture({10, 20, 30, 30}, notKnown);
    (void)picture.update(buffer, std::nullopt);
    buffer.crop = {7, 9, 60, 50};
    EXPECT_TRUE(picture.update(buffer, std::vector{PixelRect{0, 0, 1, 1}}));
    const RGBAFrame frame = picture.frame();
    EXPECT_EQ(colorAt(frame, 0, 0), RGBColor(17, 29, 200));
    EXPECT_EQ(colorAt(frame, 29, 29), RGBColor(46, 58, 200));
    EXPECT_FALSE(picture.update(buffer, std::vector{PixelRect{0, 0, 90, 80}}));
}

TEST(StreamPicture, AnotherTransformIsAnotherPictureWhateverIsDamaged)
{
    const Memory memory(90, 80);
    StreamBuffer buffer = memory.buffer();
    buffer.transform = BufferTransform::Turned180;
    StreamPicture picture({10, 20, 30, 40}, notKnown);
    (void)picture.update(buffer, std::nullopt);
    EXPECT_EQ(colorAt(picture.frame(), 0, 0), RGBColor(79, 59, 200));
    buffer.transform = BufferTransform::None;
    EXPECT_TRUE(picture.update(buffer, std::vector{PixelRect{0, 0, 1, 1}}));
    const RGBAFrame frame = picture.frame();
    EXPECT_EQ(colorAt(frame, 0, 0), RGBColor(10, 20, 200));
    EXPECT_EQ(colorAt(frame, 29, 39), RGBColor(39, 59, 200));
}

TEST(StreamPicture, ARegionBesideTheOutputIsRefused)
{
    const Memory memory(90, 80);
    StreamPicture picture({45, 0, 10, 10}, always({45, 40}));
    try {
        (void)picture.update(memory.buffer(), std::nullopt);
        FAIL() << "it was accepted";
    } catch (const CaptureError& error) {
        EXPECT_EQ(error.reason(), CaptureError::Reason::OutsideDisplay);
        EXPECT_STREQ(error.what(), "The region lies outside the display, which is 45×40");
    }
}

} // namespace
} // namespace quillbox
