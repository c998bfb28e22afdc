#include "App/FrameSources/ReadingThreads.h"

#include "App/FrameSources/Y4M/Y4MReader.h"
#include "Encoding/FrameReducer.h"
#include "support/SourceClip.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>

namespace quillbox {
namespace {

TEST(ReadingThreads, AreNeverMoreThanAllowed)
{
    for (int threads = 1; threads < 20; ++threads) {
        const auto [reader, intake, measuring] = ReadingThreads::of(threads);
        EXPECT_GE(reader.threads, 1);
        EXPECT_EQ(measuring.threads, intake == Intake::here ? 1 : std::clamp(threads - reader.threads, 1, 2));
        EXPECT_EQ(reader.threads + (intake == Intake::here ? 0 : measuring.threads), threads);
    }
}

TEST(ReadingThreads, AreAsManyAsAreOfUseUnlessSomebodySays)
{
    EXPECT_EQ(ReadingThreads::of(0).reader.threads, 0);
    EXPECT_EQ(ReadingThreads::of(0).intake, Intake::onAThread);
    EXPECT_EQ(ReadingThreads::of(0).measuring.threads, 0);
}

/// Has a frame taken in. @return whether this thread did it
bool isTakenInHere(int threads)
{
    std::thread::id taker;
    const auto note = [&taker](const RGBAFrame&) {
        taker = std::this_thread::get_id();
    };
    BackgroundFrames<FrameReducer> frames(
        [&note](std::int64_t fps) { return FrameReducer::sparing(fps, ExportPreset::slack, note); },
        ReadingThreads::of(threads).intake);
    frames.take(RGBAFrame(2, 2, Bytes(16, 9)));
    (void)frames.finished();
    EXPECT_NE(taker, std::thread::id()) << "the picture is kept";
    return taker == std::this_thread::get_id();
}

TEST(ReadingThreads, HaveOneThreadTakeInWhatItRead)
{
    EXPECT_TRUE(isTakenInHere(1));
}

TEST(ReadingThreads, HaveASecondOneTakeItInMeanwhile)
{
    for (const int threads : {0, 2, 3})
        EXPECT_FALSE(isTakenInHere(threads));
}

/// A stream that notes how many of the pictures it gave have not been handed on yet.
class WatchedStream final : public ByteSource {
public:
    WatchedStream(std::string bytes, std::size_t headerBytes, std::size_t pictureBytes, const support::SourceClip& clip)
        : ByteSource("clip")
        , m_bytes(std::move(bytes))
        , m_headerBytes(headerBytes)
        , m_pictureBytes(pictureBytes)
        , m_clip(clip)
    {
    }
    [[nodiscard]] std::size_t mostUnderWay() const { return m_mostUnderWay; }

private:
    std::size_t readSome(std::span<std::uint8_t> into) override
    {
        const std::size_t ofPictures = m_position - std::min(m_position, m_headerBytes);
        m_mostUnderWay = std::max(m_mostUnderWay, ofPictures / m_pictureBytes - m_clip.frames.size());
        constexpr std::size_t most = 16;
        const std::size_t count = std::min({into.size(), most, m_bytes.size() - m_position});
        std::copy_n(m_bytes.begin() + static_cast<std::ptrdiff_t>(m_position), count, into.begin());
        m_position += count;
        return count;
    }
    [[nodiscard]] std::optional<std::int64_t> remainingBelow() const override { return std::nullopt; }

    std::string m_bytes;
    std::size_t m_headerBytes;
    std::size_t m_pictureBytes;
    const support::SourceClip& m_clip;
    std::size_t m_position = 0;
    std::size_t m_mostUnderWay = 0;
};

TEST(ReadingThreads, AreAsManyAsPicturesOfAStreamAreConvertedAtATime)
{
    const std::string line = "FRAME\n";
    for (const std::size_t threads : {1U, 2U, 5U}) {
        const std::string header = "YUV4MPEG2 W64 H32 Cmono\n";
        std::string stream = header;
        for (char level = 'a'; level < 'm'; ++level)
            stream += line + std::string(64 * 32, level);
        support::SourceClip clip;
        WatchedStream source(stream, header.size(), line.size() + 64 * 32, clip);
        Y4MReader::read(source, {}, clip, {static_cast<int>(threads)});
        EXPECT_EQ(clip.frames.size(), 12U);
        EXPECT_EQ(source.mostUnderWay(), threads - 1) << "all but the one being read";
    }
}

} // namespace
} // namespace quillbox
