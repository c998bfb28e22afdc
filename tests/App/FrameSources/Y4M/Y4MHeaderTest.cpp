#include "App/FrameSources/Y4M/Y4MHeader.h"

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
    EXPECT_EQ(header, (Y4MHeader{{64, 48}, YUVFormat{}, FrameRate{25, 1}}));
}

TEST(Y4MHeader, TakesTheTagsInAnyOrder)
{
    EXPECT_EQ(parse("YUV4MPEG2 C444 F30:1 H2 W1"),
        (Y4MHeader{{1, 2}, {.subsampling = ChromaSubsampling::yuv444}, FrameRate{30, 1}}));
}

TEST(Y4MHeader, AssumesLimitedRangeAnd420WhenNothingIsSaid)
{
    const auto header = parse("YUV4MPEG2 W1 H1");
    EXPECT_EQ(header.format.subsampling, ChromaSubsampling::yuv420);
    EXPECT_EQ(header.format.range, YUVRange::limited);
    EXPECT_EQ(header.rate, std::nullopt);
}

TEST(Y4MHeader, KnowsEveryKindOfChroma)
{
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C420mpeg2").format.subsampling, ChromaSubsampling::yuv420);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C420paldv").format.subsampling, ChromaSubsampling::yuv420);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C422").format.subsampling, ChromaSubsampling::yuv422);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C411").format.subsampling, ChromaSubsampling::yuv411);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 Cmono").format.subsampling, ChromaSubsampling::mono);
}

TEST(Y4MHeader, TakesGreyForFullRangeUnlessItSaysOtherwise)
{
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 Cmono").format.range, YUVRange::full);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 Cmono XCOLORRANGE=LIMITED").format.range, YUVRange::limited);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C444 XCOLORRANGE=FULL").format.range, YUVRange::full);
}

TEST(Y4MHeader, KeepsTheRateAsTheFractionThatItIs)
{
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 F30000:1001").rate, (FrameRate{30000, 1001}));
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 F25:2").rate, (FrameRate{25, 2}));
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 F1:10").rate, (FrameRate{1, 10}));
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 F0:0").rate, std::nullopt) << "says that the rate is unknown";
}

TEST(Y4MHeader, RefusesARateThatNoClipCanHave)
{
    EXPECT_EQ(complaintAboutHeader("YUV4MPEG2 W1 H1 F1:4294967296"),
        "clip.y4m: header has \"F1:4294967296\"; expected at least one frame in ten minutes");
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

TEST(Y4MHeader, KnowsWhereChromaLies)
{
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C420").format.siting, ChromaSiting::center);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C420jpeg").format.siting, ChromaSiting::center);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C420mpeg2").format.siting, ChromaSiting::left);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C420paldv").format.siting, ChromaSiting::topLeft);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C420p10").format.siting, ChromaSiting::left);
}

TEST(Y4MHeader, KnowsSamplesOfMoreThanEightBitsAndAlpha)
{
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C420p10").format.bitDepth, 10);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C422p12").format.bitDepth, 12);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C444p16").format.bitDepth, 16);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 Cmono9").format.bitDepth, 9);
    EXPECT_TRUE(parse("YUV4MPEG2 W1 H1 C444alpha").format.hasAlpha);
    EXPECT_EQ(parse("YUV4MPEG2 W1 H1 C444alpha").format.bitDepth, 8);
}

TEST(Y4MHeader, GuessesTheMatrixByTheHeight)
{
    EXPECT_EQ(parse("YUV4MPEG2 W1280 H719 C444").format.matrix, YUVMatrix::bt601);
    EXPECT_EQ(parse("YUV4MPEG2 W16 H720 C444").format.matrix, YUVMatrix::bt709);
}

TEST(Y4MHeader, RefusesKindsThatItDoesNotKnowAndSaysWhatToAskFor)
{
    for (const std::string tag : {"C440", "C420p8", "C420p17", "C444p", "C420alpha", "C411p10", "C422jpeg", "Cmonop10",
             "C444alpha10", "C420p10x"}) {
        EXPECT_EQ(complaintAboutHeader("YUV4MPEG2 W1 H1 " + tag),
            "clip.y4m: header has \"" + tag
                + "\"; expected C420, C422, C444, C411 or Cmono of 8 to 16 bits (with FFmpeg: -pix_fmt yuv444p)");
    }
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
