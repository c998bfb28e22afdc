#include "App/CommandLine/Arguments/ArgumentText.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace quillbox {
namespace {

TEST(ArgumentText, ReadsASize)
{
    EXPECT_EQ(ArgumentText::size("1280x720"), (PixelSize{1280, 720}));
    EXPECT_EQ(ArgumentText::size("0x0"), (PixelSize{0, 0}));
}

TEST(ArgumentText, ReadsAnAbsurdSizeAsTheLargestOne)
{
    EXPECT_EQ(ArgumentText::size("99999999999999999999x1"), (PixelSize{INT64_MAX, 1}));
}

TEST(ArgumentText, RefusesWhatIsNoSize)
{
    for (const char* text :
        {"", "x", "10", "10x", "x10", "10X10", "-1x5", "+1x5", "10x10x10", "10x10 ", "0x1Fx2", "1.5x2"})
        EXPECT_EQ(ArgumentText::size(text), std::nullopt) << text;
}

TEST(ArgumentText, ReadsARegion)
{
    EXPECT_EQ(ArgumentText::region("100,50,640x480"), (CaptureRegion{100, 50, 640, 480}));
    EXPECT_EQ(ArgumentText::region("-5,-7,1x1"), (CaptureRegion{-5, -7, 1, 1}));
}

TEST(ArgumentText, RefusesWhatIsNoRegion)
{
    for (const char* text : {"", ",", ",,", "1,2", "1,2,3", "1,2,3x", "1,2,0x5", "1,2,5x0", "1,2,-3x5", "1;2;3x4",
             "1,2,3,4", "1 ,2,3x4", "a,2,3x4", "2147483648,0,1x1", "0,0,2147483648x1", "1,2,99999999999999999999x1"})
        EXPECT_EQ(ArgumentText::region(text), std::nullopt) << text;
}

TEST(ArgumentText, ReadsADurationWithOrWithoutAFraction)
{
    EXPECT_EQ(ArgumentText::duration("5"), 5.0);
    EXPECT_EQ(ArgumentText::duration("0.25"), 0.25);
    EXPECT_EQ(ArgumentText::duration("86400"), 86400.0);
}

TEST(ArgumentText, RefusesWhatIsNoDuration)
{
    for (const char* text : {"", "0", "-1", "86400.1", "nan", "inf", "1e300", "5s", " 5", "1,5"})
        EXPECT_EQ(ArgumentText::duration(text), std::nullopt) << text;
}

TEST(ArgumentText, ReadsByteCountsWithTheirUnits)
{
    EXPECT_EQ(ArgumentText::byteCount("750000"), 750'000);
    EXPECT_EQ(ArgumentText::byteCount("750K"), 750'000);
    EXPECT_EQ(ArgumentText::byteCount("1.5M"), 1'500'000);
    EXPECT_EQ(ArgumentText::byteCount(".5K"), 500);
}

TEST(ArgumentText, RefusesOtherByteCounts)
{
    for (const char* const text : {"", "0", "K", "-5", "1.5", "2MB", "1 M", "nan", "inf", "1e400", "9999999999999999"})
        EXPECT_EQ(ArgumentText::byteCount(text), std::nullopt) << text;
}

TEST(ArgumentText, ReadsARateAsTheFractionThatItIs)
{
    EXPECT_EQ(ArgumentText::rate("12"), (FrameRate{12, 1}));
    EXPECT_EQ(ArgumentText::rate("0.5"), (FrameRate{5, 10}));
    EXPECT_EQ(ArgumentText::rate("29.97"), (FrameRate{2997, 100}));
    EXPECT_EQ(ArgumentText::rate("30000/1001"), (FrameRate{30000, 1001}));
    EXPECT_EQ(ArgumentText::rate("1000"), (FrameRate{1000, 1}));
    EXPECT_EQ(ArgumentText::rate("100/65535"), (FrameRate{100, 65535})) << "the longest delay of a GIF";
}

TEST(ArgumentText, RefusesWhatIsNoRate)
{
    for (const char* text :
        {"", "0", "-1", "+1", "1000.1", "1001", "1/1000", "100/65536", ".", "1.", "1.2345678", "1/0", "0/1", "1/", "/1",
            "1.5/2", "1e3", "nan", "12 ", "1,5", "99999999999999999999", "1/99999999999999999999"})
        EXPECT_EQ(ArgumentText::rate(text), std::nullopt) << text;
}

TEST(ArgumentText, ReadsADelayAsARate)
{
    EXPECT_EQ(ArgumentText::delay("2"), (FrameRate{1, 2}));
    EXPECT_EQ(ArgumentText::delay(".25"), (FrameRate{100, 25}));
    EXPECT_EQ(ArgumentText::delay("655.35"), (FrameRate{100, 65535}));
    EXPECT_EQ(ArgumentText::delay("0.001"), (FrameRate{1000, 1}));
    for (const char* text : {"", "0", "0.0", "-1", "655.36", "0.0009", "1/2", "5s"})
        EXPECT_EQ(ArgumentText::delay(text), std::nullopt) << text;
}

TEST(ArgumentText, ReadsAColor)
{
    EXPECT_EQ(ArgumentText::color("#102030"), RGBColor(0x10, 0x20, 0x30));
    EXPECT_EQ(ArgumentText::color("abcDEF"), RGBColor(0xAB, 0xCD, 0xEF));
    EXPECT_EQ(ArgumentText::color("#1aF"), RGBColor(0x11, 0xAA, 0xFF));
    EXPECT_EQ(ArgumentText::color("white"), RGBColor(255, 255, 255));
    EXPECT_EQ(ArgumentText::color("black"), RGBColor(0, 0, 0));
    for (const char* text : {"", "#", "#12", "#1234", "12345", "1234567", "#-12345", "0x1234", "whitish", "#12345g"})
        EXPECT_EQ(ArgumentText::color(text), std::nullopt) << text;
}

TEST(ArgumentText, ReadsAWholeNumber)
{
    EXPECT_EQ(ArgumentText::number("0"), 0);
    EXPECT_EQ(ArgumentText::number("9223372036854775807"), INT64_MAX);
    for (const char* text : {"", "-1", "+1", "1.0", " 1", "9223372036854775808", "0x10"})
        EXPECT_EQ(ArgumentText::number(text), std::nullopt) << text;
}

} // namespace
} // namespace quillbox
