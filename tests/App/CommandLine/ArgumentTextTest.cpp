#include "App/CommandLine/ArgumentText.h"

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

} // namespace
} // namespace quillbox
