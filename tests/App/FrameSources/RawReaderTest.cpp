#include "App/FrameSources/RawReader.h"

#include "App/FrameSources/FrameReadError.h"

#include "support/MemoryByteSource.h"
#include "support/SourceClip.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <numeric>
#include <string>
#include <unistd.h>
#include <vector>

namespace quillbox {
namespace {

using support::MemoryByteSource;
using support::SourceClip;

std::vector<RGBAFrame> readRaw(const std::vector<std::uint8_t>& bytes, PixelSize size)
{
    MemoryByteSource source("clip.rgba", bytes);
    support::SourceClip clip;
    RawReader::read(source, size, clip);
    return clip.frames;
}

std::string complaintAbout(const std::vector<std::uint8_t>& bytes, PixelSize size)
{
    try {
        (void)readRaw(bytes, size);
    } catch (const FrameReadError& error) {
        return error.what();
    }
    return "none";
}

TEST(RawReader, CutsTheBytesIntoFrames)
{
    std::vector<std::uint8_t> bytes(2 * 2 * 3 * 4);
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{0});
    const auto frames = readRaw(bytes, {2, 3});
    ASSERT_EQ(frames.size(), 2U);
    EXPECT_EQ(frames[0], RGBAFrame(2, 3, Bytes(bytes.begin(), bytes.begin() + 24)));
    EXPECT_EQ(frames[1], RGBAFrame(2, 3, Bytes(bytes.begin() + 24, bytes.end())));
}

TEST(RawReader, LetsRepeatedFramesShareTheirPixels)
{
    const auto frames = readRaw(std::vector<std::uint8_t>(90 * 4, 9), {1, 1});
    ASSERT_EQ(frames.size(), 90U);
    EXPECT_TRUE(frames.front().sharesPixels(frames.back()));
}

TEST(RawReader, SaysWhereAFileIsCutOff)
{
    EXPECT_EQ(complaintAbout(std::vector<std::uint8_t>(16 + 5), {2, 2}),
        "clip.rgba: frame 2 ends after 5 of 16 bytes; is --raw 2x2 its true size?");
}

TEST(RawReader, SaysWhereAPipeIsCutOff)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const std::vector<std::uint8_t> bytes(16 + 5);
    ASSERT_EQ(write(ends[1], bytes.data(), bytes.size()), std::ssize(bytes));
    close(ends[1]);
    FileByteSource source("standard input", ends[0]);
    try {
        support::SourceClip clip;
        RawReader::read(source, {2, 2}, clip);
        FAIL() << "took half a frame";
    } catch (const FrameReadError& error) {
        EXPECT_STREQ(error.what(), "standard input: frame 2 ends after 5 of 16 bytes; is --raw 2x2 its true size?");
    }
    close(ends[0]);
}

TEST(RawReader, RefusesAnInputWithoutAnyByte)
{
    EXPECT_EQ(complaintAbout({}, {2, 2}), "clip.rgba: holds no frame; at least one is needed");
}

TEST(RawReader, RefusesSidesThatAGifCannotHave)
{
    EXPECT_EQ(complaintAbout({1}, {0, 2}), "clip.rgba: frame 1 is 0×2; each side must be 1 to 65535 pixels");
    EXPECT_EQ(complaintAbout({1}, {2, 65536}), "clip.rgba: frame 1 is 2×65536; each side must be 1 to 65535 pixels");
    EXPECT_EQ(complaintAbout({1}, {INT64_MAX, INT64_MAX}),
        "clip.rgba: frame 1 is 9223372036854775807×9223372036854775807; each side must be 1 to 65535 pixels");
}

TEST(RawReader, FindsAFileTooShortForAHugeFrameBeforeItMakesRoomForIt)
{
    // Neither a missing gigabyte nor one that is there may be asked for.
    const auto complaint = complaintAbout(std::vector<std::uint8_t>(3), {65535, 16000});
    EXPECT_EQ(complaint, "clip.rgba: frame 1 ends after 3 of 4194240000 bytes; is --raw 65535x16000 its true size?");
}

TEST(RawReader, TakesTheWidestRow)
{
    const auto frames = readRaw(std::vector<std::uint8_t>(65535 * 4), {65535, 1});
    EXPECT_EQ(frames.front().width(), 65535);
}

} // namespace
} // namespace quillbox
