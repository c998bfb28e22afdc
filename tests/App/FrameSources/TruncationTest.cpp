#include "App/FrameSources/FrameReadError.h"
#include "App/FrameSources/RawReader.h"
#include "App/FrameSources/Y4M/Y4MReader.h"
#include "support/Iterations.h"
#include "support/Random.h"
#include "support/SourceClip.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstring>
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
        ASSERT_EQ(std::memcmp(pixels.data(), bytes.data() + place, pixels.size()), 0);
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
    truncateRaw({.width = 512, .height = 520}, 3, 60, static_cast<int>(support::iterations(1000)));
}

TEST(Truncation, OfAStreamIsNoticed)
{
    constexpr std::size_t count = 12;
    constexpr PixelSize size{.width = 64, .height = 48};
    support::Random random(5);
    std::string stream = "YUV4MPEG2 W64 H48 F10:1 Cmono\n"; // more than a source looks ahead
    for (std::size_t i = 0; i < count; ++i)
        stream += "FRAME\n" + std::string(static_cast<std::size_t>(size.width * size.height), static_cast<char>(i));
    const Bytes bytes(stream.begin(), stream.end());
    int refusals = 0;
    for (int i = 0; i < 1000; ++i) {
        ShrinkingSource source(bytes, random.between(0, 30), random.between(0, std::ssize(bytes) - 1));
        support::SourceClip clip;
        try {
            Y4MReader::read(source, {}, clip);
            ASSERT_EQ(clip.frames.size(), count) << "all was read before";
        } catch (const FrameReadError& error) {
            ++refusals;
            ASSERT_LE(clip.frames.size(), count);
            ASSERT_EQ(std::string(error.what()).find('\n'), std::string::npos);
        }
        for (std::size_t frame = 0; frame < clip.frames.size(); ++frame)
            ASSERT_EQ(clip.frames[frame].pixels()[0], frame) << "what was handed over is whole and in order";
    }
    EXPECT_GT(refusals, 250) << "many of them hit";
}

} // namespace
} // namespace quillbox
