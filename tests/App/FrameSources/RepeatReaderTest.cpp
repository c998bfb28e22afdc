#include "App/FrameSources/RepeatReader.h"

#include "App/FrameSources/FrameReadError.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace quillbox {
namespace {

constexpr std::size_t smallPicture = 10;
constexpr std::size_t largePicture = 2'500'003; // read by two threads, and no multiple of anything

class RepeatReaderOf : public ::testing::TestWithParam<std::size_t> { };

std::vector<std::uint8_t> picture(std::size_t byteCount)
{
    std::vector<std::uint8_t> bytes(byteCount);
    for (std::size_t i = 0; i < byteCount; ++i)
        bytes[i] = static_cast<std::uint8_t>(i * i % 251);
    return bytes;
}

TEST_P(RepeatReaderOf, APictureTellsARepeatFromAChangeOfAnyByte)
{
    const auto original = picture(GetParam());
    for (const std::size_t changed : {std::size_t{0}, GetParam() / 2, GetParam() - 1}) {
        auto other = original;
        ++other[changed];
        std::vector<std::uint8_t> bytes = original;
        bytes.insert(bytes.end(), original.begin(), original.end());
        bytes.insert(bytes.end(), other.begin(), other.end());
        MemoryByteSource source("memory", bytes);
        RepeatReader reader(source);
        std::vector<std::uint8_t> previous(GetParam());
        std::vector<std::uint8_t> next(GetParam());

        EXPECT_FALSE(reader.read(previous, {}).isRepeat) << "nothing was there to repeat";
        EXPECT_EQ(source.peek(1).size(), 1U) << "looking ahead in between does no harm";
        EXPECT_TRUE(reader.read(next, previous).isRepeat);
        EXPECT_EQ(next, original);
        EXPECT_FALSE(reader.read(next, previous).isRepeat) << changed;
        EXPECT_EQ(next, other);
        EXPECT_EQ(reader.read(next, previous).byteCount, 0U);
    }
}

TEST_P(RepeatReaderOf, APictureReadsWhatThereIsOfOneThatIsCutOff)
{
    const auto whole = picture(GetParam());
    for (const std::size_t length : {std::size_t{1}, GetParam() / 3, GetParam() - 1}) {
        MemoryByteSource source("memory", std::span(whole).first(length));
        RepeatReader reader(source);
        std::vector<std::uint8_t> got(GetParam());
        const auto [byteCount, isRepeat] = reader.read(got, whole);
        EXPECT_EQ(byteCount, length);
        EXPECT_FALSE(isRepeat);
        EXPECT_TRUE(std::equal(got.begin(), got.begin() + static_cast<std::ptrdiff_t>(length), whole.begin()));
    }
}

TEST_P(RepeatReaderOf, APictureReadsAFileFromWhereItStands)
{
    const support::TemporaryFolder folder;
    const auto path = (folder.path() / "pictures").string();
    auto bytes = picture(3 * GetParam());
    support::writeFile(path, bytes);
    FileByteSource source(path);
    std::vector<std::uint8_t> first(GetParam());
    EXPECT_EQ(source.read(first), GetParam());
    RepeatReader reader(source);
    std::vector<std::uint8_t> next(GetParam());
    for (std::ptrdiff_t i = 1; i < 3; ++i) {
        EXPECT_EQ(reader.read(next, first).byteCount, GetParam());
        EXPECT_TRUE(std::equal(next.begin(), next.end(), bytes.begin() + i * std::ssize(next))) << i;
    }
    EXPECT_EQ(source.remaining(), 0);
}

INSTANTIATE_TEST_SUITE_P(Sizes, RepeatReaderOf, ::testing::Values(smallPicture, largePicture));

TEST(RepeatReader, ReadsALargePictureFromAPipe)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const auto bytes = picture(largePicture);
    std::thread writer([&bytes, end = ends[1]] {
        for (std::size_t done = 0; done < bytes.size();)
            done += static_cast<std::size_t>(std::max<ssize_t>(::write(end, &bytes[done], bytes.size() - done), 0));
        close(end);
    });
    FileByteSource source("standard input", ends[0]);
    RepeatReader reader(source);
    std::vector<std::uint8_t> got(largePicture);
    EXPECT_TRUE(reader.read(got, bytes).isRepeat);
    writer.join();
    close(ends[0]);
}

/// Fails to read from a place on.
class BrokenSource final : public ByteSource {
public:
    explicit BrokenSource(std::int64_t brokenFrom)
        : ByteSource("broken")
        , m_brokenFrom(brokenFrom)
    {
    }
    [[nodiscard]] bool canReadAhead() const override { return true; }

private:
    std::size_t readSome(std::span<std::uint8_t> into) override { return readSomeAhead(0, into); }
    [[nodiscard]] std::size_t readSomeAhead(std::int64_t distance, std::span<std::uint8_t> into) const override
    {
        if (distance >= m_brokenFrom)
            throw FrameReadError(name(), FrameReadError::CannotRead{EIO});
        return into.size();
    }
    void skipBelow(std::int64_t /*count*/) override { }
    [[nodiscard]] std::optional<std::int64_t> remainingBelow() const override { return std::nullopt; }

    std::int64_t m_brokenFrom;
};

TEST(RepeatReader, PassesOnWhatGoesWrongInEitherHalf)
{
    std::vector<std::uint8_t> got(largePicture);
    for (const std::int64_t brokenFrom : {std::int64_t{0}, std::int64_t{largePicture} * 3 / 4}) {
        BrokenSource source(brokenFrom);
        RepeatReader reader(source);
        EXPECT_THROW((void)reader.read(got, {}), FrameReadError) << brokenFrom;
    }
}

} // namespace
} // namespace quillbox
