#include "App/FrameSources/Y4M/Y4MReader.h"

#include "App/FrameSources/FrameReadError.h"

#include "support/MemoryByteSource.h"
#include "support/SourceClip.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillbox {
namespace {

using support::MemoryByteSource;
using support::SourceClip;

/// Frames of 2×2 grey pixels: no colour, one level for each frame.
std::string grayStream(const std::string& header, const std::vector<char>& levels)
{
    std::string stream = header + "\n";
    for (const char level : levels)
        stream += "FRAME\n" + std::string(4, level);
    return stream;
}

support::SourceClip readY4M(const std::string& stream)
{
    const std::vector<std::uint8_t> bytes(stream.begin(), stream.end());
    MemoryByteSource source("clip.y4m", bytes);
    support::SourceClip clip;
    Y4MReader::read(source, {}, clip);
    return clip;
}

std::string complaintAbout(const std::string& stream)
{
    try {
        (void)readY4M(stream);
    } catch (const FrameReadError& error) {
        return error.what();
    }
    return "none";
}

const std::string grayHeader = "YUV4MPEG2 W2 H2 F12:1 Cmono";

TEST(Y4MReader, ReadsEveryFrameAndTheRate)
{
    const auto clip = readY4M(grayStream(grayHeader, {'a', 'b'}));
    EXPECT_EQ(clip.ownRate, (FrameRate{12, 1}));
    ASSERT_EQ(clip.frames.size(), 2U);
    EXPECT_EQ(clip.frames[0].width(), 2);
    EXPECT_EQ(clip.frames[0].height(), 2);
    EXPECT_EQ(clip.frames[0].pixels()[0], 'a');
    EXPECT_EQ(clip.frames[1].pixels()[0], 'b');
}

TEST(Y4MReader, KeepsTheOrderOfMoreFramesThanItConvertsAtATime)
{
    // Large enough to be converted in the background.
    constexpr std::size_t pixels = 400 * 400;
    std::string stream = "YUV4MPEG2 W400 H400 Cmono\n";
    for (int i = 0; i < 40; ++i)
        stream += "FRAME\n" + std::string(pixels, static_cast<char>(i / 2)); // each twice
    const auto clip = readY4M(stream);
    ASSERT_EQ(clip.frames.size(), 40U);
    for (std::size_t i = 0; i < 40; ++i) {
        EXPECT_EQ(clip.frames[i].pixels()[0], i / 2);
        EXPECT_EQ(clip.frames[i].pixels()[pixels * 4 - 2], i / 2);
    }
    EXPECT_TRUE(clip.frames[0].sharesPixels(clip.frames[1]));
    EXPECT_FALSE(clip.frames[1].sharesPixels(clip.frames[2]));
    EXPECT_TRUE(clip.frames[38].sharesPixels(clip.frames[39]));
}

TEST(Y4MReader, LetsALongStandstillShareOnePicture)
{
    const auto clip = readY4M(grayStream(grayHeader, std::vector<char>(90, 'x')));
    ASSERT_EQ(clip.frames.size(), 90U);
    EXPECT_TRUE(clip.frames.front().sharesPixels(clip.frames.back()));
}

TEST(Y4MReader, SkipsTheParametersOfAFrame)
{
    const auto clip = readY4M(grayHeader + "\nFRAME Ippp XANYTHING\nabcd");
    ASSERT_EQ(clip.frames.size(), 1U);
    EXPECT_EQ(clip.frames[0].pixels()[12], 'd');
}

TEST(Y4MReader, SaysWhichFrameIsCutOff)
{
    EXPECT_EQ(complaintAbout(grayStream(grayHeader, {'a'}) + "FRAME\nabc"),
        "clip.y4m: frame 2 ends after 3 of 4 bytes; write the stream again");
    EXPECT_EQ(complaintAbout(grayStream(grayHeader, {'a'}) + "FRAME\n"),
        "clip.y4m: frame 2 ends after 0 of 4 bytes; write the stream again");
}

TEST(Y4MReader, NoticesAStreamThatIsCutOffInsideTheWordFrame)
{
    EXPECT_EQ(complaintAbout(grayStream(grayHeader, {'a'}) + "FRA"),
        "clip.y4m: frame 2 has \"FRA\"; expected FRAME and its picture; the stream is cut off");
}

TEST(Y4MReader, NoticesFramesOfAnotherSize)
{
    EXPECT_EQ(complaintAbout(grayHeader + "\nFRAME\nabcdefFRAME\nabcdef"),
        "clip.y4m: frame 2 has \"efFRAME\"; expected FRAME; the frame before it has another size");
}

TEST(Y4MReader, RefusesAStreamWithoutFrames)
{
    const std::string expected = "clip.y4m: holds no frame; at least one is needed";
    EXPECT_EQ(complaintAbout(grayHeader + "\n"), expected);
    EXPECT_EQ(complaintAbout(grayHeader), expected);
    EXPECT_EQ(complaintAbout(""), expected);
}

TEST(Y4MReader, RefusesSidesThatAGifCannotHave)
{
    EXPECT_EQ(complaintAbout("YUV4MPEG2 W65536 H1 Cmono\nFRAME\n"),
        "clip.y4m: frame 1 is 65536×1; each side must be 1 to 65535 pixels");
}

TEST(Y4MReader, FindsAStreamTooShortForAHugeFrameBeforeItMakesRoomForIt)
{
    EXPECT_EQ(complaintAbout("YUV4MPEG2 W65535 H16000 Cmono\nFRAME\nabc"),
        "clip.y4m: frame 1 ends after 3 of 1048560000 bytes; write the stream again");
}

TEST(Y4MReader, SurvivesAHeaderWithoutEnd)
{
    EXPECT_NE(complaintAbout("YUV4MPEG2 W2 H2 Cmono " + std::string(10000, 'X')), "none");
}

TEST(Y4MReader, RecognizesAStreamByItsFirstWord)
{
    const std::vector<std::uint8_t> stream{'Y', 'U', 'V', '4', 'M', 'P', 'E', 'G', '2', ' '};
    MemoryByteSource source("a", stream);
    EXPECT_TRUE(Y4MReader::recognizes(source));
    EXPECT_EQ(source.remaining(), 10) << "nothing is consumed";
    MemoryByteSource shorter("b", std::span(stream).first(8));
    EXPECT_FALSE(Y4MReader::recognizes(shorter));
}

} // namespace
} // namespace quillbox
