#include "App/FrameSources/ByteSource.h"

#include "App/FrameSources/FrameReadError.h"
#include "support/MemoryByteSource.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace quillbox {
namespace {

using support::MemoryByteSource;

std::vector<std::uint8_t> bytesOf(const std::string& text)
{
    return {text.begin(), text.end()};
}

std::string textOf(std::span<const std::uint8_t> bytes)
{
    return {bytes.begin(), bytes.end()};
}

std::string readText(ByteSource& source, std::size_t count)
{
    std::vector<std::uint8_t> bytes(count);
    bytes.resize(source.read(bytes));
    return textOf(bytes);
}

TEST(ByteSource, PeekingLeavesTheBytesUnread)
{
    const auto bytes = bytesOf("abcdef");
    MemoryByteSource source("memory", bytes);
    EXPECT_EQ(textOf(source.peek(3)), "abc");
    EXPECT_EQ(textOf(source.peek(2)), "ab");
    EXPECT_EQ(readText(source, 4), "abcd");
    EXPECT_EQ(textOf(source.peek(10)), "ef");
}

TEST(ByteSource, ReadsAcrossTheEndOfItsLookahead)
{
    std::vector<std::uint8_t> bytes(3 * ByteSource::lookaheadSize + 7);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i % 251);
    MemoryByteSource source("memory", bytes);
    EXPECT_EQ(source.peek(ByteSource::lookaheadSize).size(), ByteSource::lookaheadSize);
    std::vector<std::uint8_t> got(bytes.size() + 1);
    EXPECT_EQ(source.read(got), bytes.size());
    EXPECT_TRUE(std::equal(bytes.begin(), bytes.end(), got.begin()));
}

TEST(ByteSource, TellsHowMuchIsLeftIncludingWhatWasPeekedAt)
{
    const auto bytes = bytesOf("abcdef");
    MemoryByteSource source("memory", bytes);
    (void)source.peek(3);
    EXPECT_EQ(source.remaining(), 6);
    EXPECT_EQ(readText(source, 2), "ab");
    EXPECT_EQ(source.remaining(), 4);
}

TEST(ByteSource, ReadsAheadAcrossTheEndOfItsLookaheadAndStaysWhereItIs)
{
    std::vector<std::uint8_t> bytes(3 * ByteSource::lookaheadSize);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i % 251);
    MemoryByteSource source("memory", bytes);
    EXPECT_EQ(source.peek(1).size(), 1U);
    for (const std::size_t distance : {std::size_t{0}, ByteSource::lookaheadSize - 1, ByteSource::lookaheadSize,
             bytes.size() - 10, bytes.size(), bytes.size() + 5}) {
        std::vector<std::uint8_t> got(20);
        const auto expected = std::min(got.size(), bytes.size() - std::min(distance, bytes.size()));
        EXPECT_EQ(source.readAhead(static_cast<std::int64_t>(distance), got), expected) << distance;
        EXPECT_TRUE(std::equal(got.begin(), got.begin() + static_cast<std::ptrdiff_t>(expected),
            bytes.begin() + static_cast<std::ptrdiff_t>(std::min(distance, bytes.size()))))
            << distance;
    }
    EXPECT_EQ(source.remaining(), std::ssize(bytes));
}

TEST(ByteSource, SkipsWhatWasPeekedAtAndMore)
{
    const auto bytes = std::vector<std::uint8_t>(2 * ByteSource::lookaheadSize, 'x');
    MemoryByteSource source("memory", bytes);
    EXPECT_EQ(source.peek(1).size(), 1U);
    source.skip(3);
    EXPECT_EQ(source.remaining(), std::ssize(bytes) - 3);
    source.skip(std::int64_t{ByteSource::lookaheadSize});
    EXPECT_EQ(source.remaining(), std::ssize(bytes) - 3 - std::int64_t{ByteSource::lookaheadSize});
}

TEST(ByteSource, TakesOneLineAtATime)
{
    const auto bytes = bytesOf("first\n\nthird");
    MemoryByteSource source("memory", bytes);
    auto line = source.readLine();
    EXPECT_EQ(line.text, "first");
    EXPECT_TRUE(line.complete);
    line = source.readLine();
    EXPECT_EQ(line.text, "");
    EXPECT_TRUE(line.complete);
    line = source.readLine();
    EXPECT_EQ(line.text, "third");
    EXPECT_FALSE(line.complete);
    line = source.readLine();
    EXPECT_EQ(line.text, "");
    EXPECT_FALSE(line.complete);
}

TEST(ByteSource, FindsANewlineAtTheVeryEndOfItsLookahead)
{
    auto bytes = std::vector<std::uint8_t>(ByteSource::lookaheadSize - 1, 'x');
    bytes.push_back('\n');
    MemoryByteSource source("memory", bytes);
    const auto line = source.readLine();
    EXPECT_TRUE(line.complete);
    EXPECT_EQ(line.text.size(), ByteSource::lookaheadSize - 1);
}

TEST(ByteSource, GivesUpOnALineThatIsTooLong)
{
    auto bytes = std::vector<std::uint8_t>(ByteSource::lookaheadSize, 'x');
    bytes.push_back('\n');
    MemoryByteSource source("memory", bytes);
    EXPECT_FALSE(source.readLine().complete);
}

TEST(FileByteSource, KnowsTheLengthOfAFile)
{
    const support::TemporaryFolder folder;
    const auto path = (folder.path() / "six").string();
    support::writeFile(path, bytesOf("abcdef"));
    FileByteSource source(path);
    EXPECT_TRUE(source.isRegularFile());
    EXPECT_EQ(source.remaining(), 6);
    EXPECT_TRUE(source.canReadAhead());
    EXPECT_EQ(readText(source, 100), "abcdef");
    EXPECT_EQ(source.remaining(), 0);
}

TEST(FileByteSource, ReadsAPipeToItsEndInWhateverPiecesItComes)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(write(ends[1], "abc", 3), 3);
    FileByteSource source("standard input", ends[0]);
    EXPECT_EQ(source.remaining(), std::nullopt);
    EXPECT_FALSE(source.canReadAhead());
    EXPECT_EQ(textOf(source.peek(2)), "ab");
    ASSERT_EQ(write(ends[1], "def", 3), 3);
    close(ends[1]);
    EXPECT_EQ(readText(source, 100), "abcdef");
    close(ends[0]);
}

TEST(FileByteSource, GivesWhatIsStillToBeReadAgainLater)
{
    const support::TemporaryFolder folder;
    const auto path = folder.path() / "letters";
    support::writeFile(path, bytesOf("abcdefgh"));
    std::shared_ptr<const FileExtract> extract;
    {
        FileByteSource source(path.string());
        EXPECT_EQ(readText(source, 2), "ab");
        EXPECT_EQ(textOf(source.peek(1)), "c") << "looking ahead does no harm";
        extract = source.extract();
        EXPECT_EQ(readText(source, 100), "cdefgh");
    }
    std::filesystem::rename(path, folder.path() / "moved");
    std::vector<std::uint8_t> bytes(3);
    extract->read(0, bytes);
    EXPECT_EQ(textOf(bytes), "cde");
    extract->read(3, bytes);
    EXPECT_EQ(textOf(bytes), "fgh");
    try {
        extract->read(4, bytes);
        FAIL() << "read more than there is";
    } catch (const FrameReadError& error) {
        EXPECT_EQ(error.what(), path.string() + ": became shorter while it was being read; run the command again");
        EXPECT_TRUE(std::holds_alternative<FrameReadError::BecameShorter>(error.reason()));
    }
}

TEST(ByteSource, GivesAgainOnlyWhatAFileOnADiskHolds)
{
    EXPECT_EQ(MemoryByteSource("memory", {}).extract(), nullptr);
    EXPECT_EQ(FileByteSource("/dev/zero").extract(), nullptr);
    EXPECT_EQ(FileByteSource("/proc/self/status").extract(), nullptr);
}

TEST(FileByteSource, NamesAFileThatIsNotThere)
{
    try {
        const FileByteSource source("/nonexistent/clip.y4m");
        FAIL() << "opened a file that isn't there";
    } catch (const FrameReadError& error) {
        EXPECT_STREQ(error.what(), "/nonexistent/clip.y4m: can't be opened: No such file or directory");
        EXPECT_TRUE(std::holds_alternative<FrameReadError::CannotOpen>(error.reason()));
    }
}

TEST(FileByteSource, RefusesAFolder)
{
    const support::TemporaryFolder folder;
    EXPECT_THROW(FileByteSource source(folder.path().string()), FrameReadError);
}

} // namespace
} // namespace quillbox
