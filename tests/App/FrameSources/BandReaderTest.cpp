#include "App/FrameSources/BandReader.h"

#include "App/FrameSources/FrameReadError.h"
#include "support/MemoryByteSource.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace quillbox {
namespace {

using support::MemoryByteSource;

constexpr PixelSize smallPicture{.width = 3, .height = 70};
constexpr PixelSize largePicture{.width = 701, .height = 901}; // read by two threads, several at once

std::int64_t byteCountOf(PixelSize size)
{
    return size.width * size.height * 4;
}

/// Bytes that hardly repeat themselves.
Bytes bytesOf(PixelSize size)
{
    Bytes bytes(static_cast<std::size_t>(byteCountOf(size)));
    std::uint32_t state = 1;
    for (std::uint8_t& byte : bytes) {
        state = state * 1664525 + 1013904223;
        byte = static_cast<std::uint8_t>(state >> 24U);
    }
    return bytes;
}

Bytes joined(const std::vector<Bytes>& pictures)
{
    Bytes bytes;
    for (const Bytes& picture : pictures)
        bytes.insert(bytes.end(), picture.begin(), picture.end());
    return bytes;
}

class BandReaderOf : public ::testing::TestWithParam<PixelSize> { };

TEST_P(BandReaderOf, APictureSharesWhatRepeatsTheOneBefore)
{
    const Bytes original = bytesOf(GetParam());
    for (const std::size_t changed : {std::size_t{0}, original.size() / 2, original.size() - 1}) {
        Bytes other = original;
        ++other[changed];
        const Bytes bytes = joined({original, original, other, other, original});
        MemoryByteSource source("memory", bytes);
        BandReader reader(source, GetParam());
        std::vector<RGBAFrame> frames;
        for (auto next = reader.read(); next.frame; next = reader.read())
            frames.push_back(*next.frame);

        ASSERT_EQ(frames.size(), 5U);
        for (std::size_t i = 0; i < frames.size(); ++i)
            EXPECT_EQ(frames[i].pixels(), i == 2 || i == 3 ? other : original) << i;
        EXPECT_TRUE(frames[1].sharesPixels(frames[0]));
        EXPECT_FALSE(frames[2].sharesPixels(frames[1])) << changed;
        EXPECT_TRUE(frames[3].sharesPixels(frames[2]));
        EXPECT_FALSE(frames[4].sharesPixels(frames[3]));
        const auto changedBand = static_cast<std::int64_t>(changed)
            / (GetParam().width * RGBAFrame::rowsPerBand * RGBAFrame::bytesPerPixel);
        for (std::int64_t band = 0; band < frames[0].bandCount(); ++band)
            EXPECT_EQ(frames[2].sharesBand(frames[1], band), band != changedBand) << band;
        EXPECT_EQ(reader.read().byteCount, 0) << "the end stays the end";
    }
}

TEST_P(BandReaderOf, APictureTellsHowMuchThereIsOfOneThatIsCutOff)
{
    const Bytes whole = bytesOf(GetParam());
    for (const std::size_t length : {std::size_t{1}, whole.size() / 3, whole.size() / 2 + 1, whole.size() - 1}) {
        Bytes bytes = joined({whole, whole, whole});
        bytes.resize(2 * whole.size() + length);
        MemoryByteSource source("memory", bytes);
        BandReader reader(source, GetParam());
        EXPECT_EQ(reader.read().frame->pixels(), whole);
        EXPECT_EQ(reader.read().frame->pixels(), whole);
        const auto [frame, byteCount] = reader.read();
        EXPECT_FALSE(frame);
        EXPECT_EQ(byteCount, static_cast<std::int64_t>(length));
    }
}

TEST_P(BandReaderOf, APictureOfAFileCanBeEvicted)
{
    const support::TemporaryFolder folder;
    const auto path = folder.path() / "pictures";
    const Bytes first = bytesOf(GetParam());
    Bytes second = first;
    second.back() ^= 1U;
    const Bytes header(5, 'x');
    const Bytes bytes = joined({header, first, second});
    support::writeFile(path.string(), {bytes.begin(), bytes.end()});
    std::vector<RGBAFrame> frames;
    {
        FileByteSource source(path.string());
        Bytes passed(header.size());
        EXPECT_EQ(source.read(passed), header.size());
        EXPECT_EQ(source.peek(1).size(), 1U) << "looking ahead does no harm";
        BandReader reader(source, GetParam());
        frames.push_back(reader.read().frame.value());
        ASSERT_TRUE(frames[0].isBacked());
        frames[0].evict();
        frames.push_back(reader.read().frame.value());
        frames[1].evict();
    }
    EXPECT_EQ(frames[0].pixels(), first);
    EXPECT_EQ(frames[1].pixels(), second);
    EXPECT_EQ(frames[0].bandCount() > 1, frames[0].sharesBand(frames[1], 0))
        << "what is evicted is shared nevertheless";

    std::filesystem::resize_file(path, bytes.size() - 1);
    EXPECT_EQ(frames[0].pixels(), first);
    EXPECT_THROW((void)frames[1].pixels(), FrameReadError);
}

INSTANTIATE_TEST_SUITE_P(Sizes, BandReaderOf, ::testing::Values(PixelSize{1, 1}, smallPicture, largePicture));

TEST(BandReader, ReadsLargePicturesFromAPipe)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const Bytes picture = bytesOf(largePicture);
    const Bytes bytes = joined({picture, picture});
    std::thread writer([&bytes, end = ends[1]] {
        for (std::size_t done = 0; done < bytes.size();)
            done += static_cast<std::size_t>(std::max<ssize_t>(::write(end, &bytes[done], bytes.size() - done), 0));
        close(end);
    });
    FileByteSource source("standard input", ends[0]);
    BandReader reader(source, largePicture);
    const auto first = reader.read().frame;
    const auto second = reader.read().frame;
    EXPECT_EQ(first->pixels(), picture);
    EXPECT_TRUE(first->sharesPixels(*second));
    EXPECT_FALSE(first->isBacked()) << "what came through a pipe is nowhere else";
    EXPECT_EQ(reader.read().byteCount, 0);
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

TEST(BandReader, PassesOnWhatGoesWrongInEitherHalf)
{
    for (const std::int64_t brokenFrom : {std::int64_t{0}, byteCountOf(largePicture) * 3 / 4}) {
        BrokenSource source(brokenFrom);
        BandReader reader(source, largePicture);
        EXPECT_THROW((void)reader.read(), FrameReadError) << brokenFrom;
    }
}

} // namespace
} // namespace quillbox
