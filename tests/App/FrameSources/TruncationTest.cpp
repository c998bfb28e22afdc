#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/RawReader.h"
#include "App/FrameSources/Y4M/Y4MReader.h"
#include "support/Random.h"
#include "support/SourceClip.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace quillbox {
namespace {

/// Memory that is read like a file which becomes shorter: from some call on there are only so many bytes.
class ShrinkingSource final : public ByteSource {
public:
    ShrinkingSource(std::span<const std::uint8_t> bytes, std::int64_t callsBefore, std::int64_t bytesLeft)
        : ByteSource("clip")
        , m_bytes(bytes)
        , m_callsLeft(callsBefore)
        , m_bytesLeft(bytesLeft)
    {
    }
    [[nodiscard]] bool canReadAhead() const override { return true; }

private:
    std::size_t readSome(std::span<std::uint8_t> into) override
    {
        const auto count = readSomeAhead(0, into);
        m_position += static_cast<std::int64_t>(count);
        return count;
    }
    [[nodiscard]] std::size_t readSomeAhead(std::int64_t distance, std::span<std::uint8_t> into) const override
    {
        const bool isShorter = m_callsLeft.fetch_sub(1) <= 0;
        const std::int64_t end = isShorter ? m_bytesLeft : std::ssize(m_bytes);
        const std::int64_t begin = m_position + distance;
        const auto count = std::clamp<std::int64_t>(end - begin, 0, std::ssize(into));
        if (count > 0)
            std::copy_n(m_bytes.begin() + begin, count, into.begin());
        return static_cast<std::size_t>(count);
    }
    void skipBelow(std::int64_t count) override { m_position += count; }
    [[nodiscard]] std::optional<std::int64_t> remainingBelow() const override
    {
        return std::max<std::int64_t>(std::ssize(m_bytes) - m_position, 0); // as it was when it was opened
    }

    std::span<const std::uint8_t> m_bytes;
    std::int64_t m_position = 0;
    mutable std::atomic<std::int64_t> m_callsLeft;
    std::int64_t m_bytesLeft;
};

/// Pictures whose first bytes and last bytes tell their number.
Bytes rawPictures(PixelSize size, int count)
{
    const auto pictureBytes = static_cast<std::size_t>(size.width * size.height * 4);
    Bytes bytes(pictureBytes * static_cast<std::size_t>(count), 7);
    for (int i = 0; i < count; ++i) {
        bytes[pictureBytes * static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(i);
        bytes[pictureBytes * static_cast<std::size_t>(i + 1) - 1] = static_cast<std::uint8_t>(i);
    }
    return bytes;
}

void expectFramesOf(const Bytes& bytes, const support::SourceClip& clip)
{
    std::size_t place = 0;
    for (const RGBAFrame& frame : clip.frames) {
        const PixelView pixels = frame.pixels();
        ASSERT_LE(place + pixels.size(), bytes.size());
        ASSERT_TRUE(std::equal(pixels.begin(), pixels.end(), bytes.begin() + static_cast<std::ptrdiff_t>(place)));
        place += pixels.size();
    }
}

void truncateRaw(PixelSize size, int pictureCount, int maxCalls, int times)
{
    support::Random random(11);
    const Bytes bytes = rawPictures(size, pictureCount);
    int refusals = 0;
    for (int i = 0; i < times; ++i) {
        ShrinkingSource source(bytes, random.between(0, maxCalls), random.between(0, std::ssize(bytes) - 1));
        support::SourceClip clip;
        try {
            RawReader::read(source, size, clip);
            ASSERT_EQ(clip.frames.size(), static_cast<std::size_t>(pictureCount)) << "all was read before";
        } catch (const FrameReadError& error) {
            ++refusals;
            ASSERT_STREQ(error.what(),
                clip.frames.empty() && std::string(error.what()).find("no frame") != std::string::npos
                    ? "clip: holds no frame; at least one is needed"
                    : "clip: became shorter while it was being read; run the command again");
        }
        expectFramesOf(bytes, clip);
    }
    EXPECT_GT(refusals, times / 4) << "most of them hit";
}

TEST(Truncation, OfRawPicturesThatOneThreadReadsIsNoticed)
{
    truncateRaw({.width = 40, .height = 70}, 6, 20, 1000);
}

TEST(Truncation, OfRawPicturesThatTwoThreadsReadIsNoticed)
{
    truncateRaw({.width = 512, .height = 520}, 3, 60, 1000);
}

TEST(Truncation, OfAStreamIsNoticed)
{
    support::Random random(5);
    const support::TemporaryFolder folder;
    const auto path = folder.path() / "clip.y4m";
    std::string stream = "YUV4MPEG2 W16 H8 F10:1 Cmono\n";
    for (int i = 0; i < 12; ++i)
        stream += "FRAME\n" + std::string(16 * 8, static_cast<char>(i));
    /// Cuts the file once some frames have come.
    class Cutter final : public FrameConsumer {
    public:
        Cutter(std::filesystem::path file, std::int64_t framesBefore, std::uintmax_t bytesLeft)
            : m_file(std::move(file))
            , m_framesLeft(framesBefore)
            , m_bytesLeft(bytesLeft)
        {
        }
        void setRate(FrameRate /*rate*/) override { }
        void take(const RGBAFrame& frame) override
        {
            EXPECT_EQ(frame.pixels()[0], m_count++);
            if (m_framesLeft-- == 0)
                std::filesystem::resize_file(m_file, m_bytesLeft);
        }
        [[nodiscard]] int count() const { return m_count; }

    private:
        std::filesystem::path m_file;
        std::int64_t m_framesLeft;
        std::uintmax_t m_bytesLeft;
        int m_count = 0;
    };
    for (int i = 0; i < 200; ++i) {
        support::writeFile(path.string(), Bytes(stream.begin(), stream.end()));
        Cutter cutter(
            path, random.between(0, 11), static_cast<std::uintmax_t>(random.between(0, std::ssize(stream) - 1)));
        FileByteSource source(path.string());
        try {
            Y4MReader::read(source, {}, cutter);
            EXPECT_EQ(cutter.count(), 12) << "all was read before";
        } catch (const FrameReadError&) {
            EXPECT_LE(cutter.count(), 12);
        }
    }
}

} // namespace
} // namespace quillbox
