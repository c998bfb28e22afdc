#include "App/FrameSources/Y4MHeader.h"

#include "App/FrameSources/FrameReadError.h"

#include <gtest/gtest.h>

#include <string>

namespace quillbox {
namespace {

Y4MHeader parse(const std::string& line)
{
    return Y4MHeader::parse("clip.y4m", line);
}

std::string complaintAboutHeader(const std::string& line)
{
    try {
        (void)parse(line);
    } catch (const FrameReadError& error) {
        return error.what();
    }
    return "none";
}

TEST(Y4MHeader, ReadsWhatFFmpegWrites)
{
    const auto header = parse("YUV4MPEG2 W64 H48 F25:1 Ip A1:1 C420jpeg XYSCSS=420JPEG XCOLORRANGE=LIMITED");
    EXPECT_EQ(header, (Y4MHeader{{64, 48}, ChromaSubsampling::yuv420, YUVRange::limited, 25}));
}

TEST(Y4MHeader, TakesTheTagsInAnyOrder)
{
    EXPECT_EQ(
        parse("YUV4MPEG2 C444 F30:1 H2 W1"), (Y4MHeader{{1, 2}, ChromaSubsampling::yuv444, YUVRange::limited, 30}));
}

TEST(Y4MHeader, AssumesLimitedRangeAnd420WhenNothingIsSaid)
{
    const auto header = parse("YUV4MPEG2 W1 H1");
    EXPECT_EQ(header.subsampling, ChromaSubsampling::yuv420);
    EXPECT_EQ(header.range, YUVRange::limited);
    EXPECT_EQ(header.framesPerSecond, std::nullopt);
}

TEST(Y4MHeader, KnowsEveryKindOfChroma)
{
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C420mpeg2").subsampling, ChromaSubsampling::yuv420);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C420paldv").subsampling, ChromaSubsampling::yuv420);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C422").subsampling, ChromaSubsampling::yuv422);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C411").subsampling, ChromaSubsampling::yuv411);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 Cmono").subsampling, ChromaSubsampling::mono);
}

TEST(Y4MHeader, TakesGreyForFullRangeUnlessItSaysOtherwise)
{
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 Cmono").range, YUVRange::full);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 Cmono XCOLORRANGE=LIMITED").range, YUVRange::limited);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C444 XCOLORRANGE=FULL").range, YUVRange::full);
}

TEST(Y4MHeader, RoundsTheRateToAWholeNumberOfAtLeastOne)
{
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 F30000:1001").framesPerSecond, 30);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 F25:2").framesPerSecond, 13) << "12.5";
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 F1:10").framesPerSecond, 1);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 F0:0").framesPerSecond, std::nullopt) << "says that the rate is unknown";
}

TEST(Y4MHeader, RefusesAMalformedRate)
{
    const std::string expected = "; expected a rate like F30:1 or F30000:1001";
    EXPECT_EQ(complaintAboutHeader("YUV4MPEG2 W1 H1 F30"), "clip.y4m: header has \"F30\"" + expected);
    EXPECT_EQ(complaintAboutHeader("YUV4MPEG2 W1 H1 F"), "clip.y4m: header has \"F\"" + expected);
    EXPECT_EQ(complaintAboutHeader("YUV4MPEG2 W1 H1 F-1:1"), "clip.y4m: header has \"F-1:1\"" + expected);
    EXPECT_EQ(complaintAboutHeader("YUV4MPEG2 W1 H1 F9223372036854775807:1"),
        "clip.y4m: header has \"F9223372036854775807:1\"" + expected);
}

TEST(Y4MHeader, RefusesMoreThanEightBitsAndSaysWhatToAskFor)
{
    EXPECT_EQ(complaintAboutHeader("YUV4MPEG2 W1 H1 C420p10"),
        "clip.y4m: header has \"C420p10\"; expected 8-bit C420, C422, C444, C411 or Cmono (with FFmpeg: -pix_fmt "
        "yuv444p)");
}

TEST(Y4MHeader, RefusesASizeThatIsMissingOrNoNumber)
{
    EXPECT_EQ(complaintAboutHeader("YUV4MPEG2 W5 F30:1"),
        "clip.y4m: header has \"YUV4MPEG2\"; expected the frame size in its tags W and H");
    EXPECT_EQ(
        complaintAboutHeader("YUV4MPEG2 W5x H5"), "clip.y4m: header has \"W5x\"; expected a whole number of pixels");
    EXPECT_EQ(
        complaintAboutHeader("YUV4MPEG2 W-5 H5"), "clip.y4m: header has \"W-5\"; expected a whole number of pixels");
    EXPECT_EQ(complaintAboutHeader("YUV4MPEG2 W99999999999999999999 H5"),
        "clip.y4m: header has \"W99999999999999999999\"; expected a whole number of pixels");
}

TEST(Y4MHeader, RefusesAnotherKindOfFileAndShowsOnlyItsStart)
{
    EXPECT_EQ(complaintAboutHeader(std::string(1000, 'z')),
        "clip.y4m: header has \"" + std::string(40, 'z')
            + "\"; expected a YUV4MPEG2 stream (or --raw WxH for raw RGBA frames)");
    EXPECT_NE(complaintAboutHeader("YUV4MPEG22 W1 H1"), "none");
}

TEST(Y4MHeader, RefusesAColorRangeItDoesNotKnow)
{
    EXPECT_EQ(complaintAboutHeader("YUV4MPEG2 W1 H1 XCOLORRANGE=HALF"),
        "clip.y4m: header has \"XCOLORRANGE=HALF\"; expected XCOLORRANGE=FULL or XCOLORRANGE=LIMITED");
}

TEST(Y4MHeader, SkipsBlanksInARow)
{
    EXPECT_EQ(parse("YUV4MPEG2  W3   H4 ").size, (PixelSize{3, 4}));
}

} // namespace
} // namespace quillbox
