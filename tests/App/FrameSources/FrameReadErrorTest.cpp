#include "App/FrameSources/FrameReadError.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <utility>

namespace quillbox {
namespace {

std::string sentence(FrameReadError::Reason reason)
{
    return FrameReadError("in", std::move(reason)).what();
}

TEST(FrameReadError, SaysWhatTheSystemSaid)
{
    EXPECT_EQ(sentence(FrameReadError::CannotOpen{ENOENT}), "in: can't be opened: No such file or directory");
    EXPECT_EQ(sentence(FrameReadError::CannotRead{EIO}), "in: can't be read: Input/output error");
}

TEST(FrameReadError, NamesTheFrameThatIsWrong)
{
    EXPECT_EQ(sentence(FrameReadError::Truncated{3, 10, 16, "look again"}),
        "in: frame 3 ends after 10 of 16 bytes; look again");
    EXPECT_EQ(sentence(FrameReadError::SideOutOfRange{2, 70000, 1}),
        "in: frame 2 is 70000×1; each side must be 1 to 65535 pixels");
    EXPECT_EQ(sentence(FrameReadError::TooLargeForMemory{2, 60000, 50000}),
        "in: frame 2 is 60000×50000, more than this machine's memory holds; use smaller frames");
    EXPECT_EQ(sentence(FrameReadError::AnotherSize{4, 3, 2, 5, 6}),
        "in: frame 4 is 3×2, but the first is 5×6; without --strict it is fitted into that");
    EXPECT_EQ(sentence(FrameReadError::CannotDecode{5, "bad CRC"}), "in: frame 5 can't be decoded: bad CRC");
}

TEST(FrameReadError, TellsTheInputsHeaderFromAFrames)
{
    EXPECT_EQ(sentence(FrameReadError::InvalidHeader{0, "W0", "a width"}), "in: header has \"W0\"; expected a width");
    EXPECT_EQ(sentence(FrameReadError::InvalidHeader{2, "FRAM", "FRAME"}), "in: frame 2 has \"FRAM\"; expected FRAME");
}

TEST(FrameReadError, SaysWhatToDoAboutTheWholeInput)
{
    EXPECT_EQ(sentence(FrameReadError::NoFrames{}), "in: holds no frame; at least one is needed");
    EXPECT_EQ(
        sentence(FrameReadError::BecameShorter{}), "in: became shorter while it was being read; run the command again");
    EXPECT_EQ(
        sentence(FrameReadError::NotInFrame{8, 6}), "in: frames are 8×6, so --crop names a part that they don't have");
    EXPECT_EQ(sentence(FrameReadError::NoFiles{}),
        "in: no image is there; name a folder with images, or a pattern that some fit");
    EXPECT_EQ(sentence(FrameReadError::TooLong{90'000'000, 86'400'000}),
        "in: plays for 90000 s, more than 86400 s; use --source-fps to take its frames one each");
}

TEST(FrameReadError, NamesThePackageOfADecoderThatIsMissing)
{
    EXPECT_NE(
        sentence(FrameReadError::NotAnImage{"WebP"}).find("install qt6-image-formats-plugins"), std::string::npos);
    EXPECT_EQ(sentence(FrameReadError::NotAnImage{}).find("in: is not an image that can be read; expected PNG"), 0U);
    EXPECT_NE(sentence(FrameReadError::IsVideo{}).find("ffmpeg -i VIDEO"), std::string::npos);
}

TEST(FrameReadError, CountsTheFramesBeforeTheCut)
{
    EXPECT_EQ(
        sentence(FrameReadError::CutOff{0}), "in: is cut off: not even its first frame is whole; get the file again");
    const std::string two = sentence(FrameReadError::CutOff{2});
    EXPECT_EQ(two.find("in: is cut off after 2 whole frame"), 0U) << two;
}

} // namespace
} // namespace quillbox
