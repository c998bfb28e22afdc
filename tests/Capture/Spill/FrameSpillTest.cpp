#include "Capture/Spill/FrameSpill.h"

#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <vector>

namespace quillbox {
namespace {

using support::Random;

constexpr std::int64_t noLimit = std::numeric_limits<std::int64_t>::max();

std::filesystem::path folder()
{
    return testing::TempDir();
}

/// Pictures of text and of noise, which can hardly be compressed, with still stretches; and the same made of bands.
std::vector<RGBAFrame> recording(int count)
{
    Random random(141);
    std::vector<RGBAFrame> frames;
    while (std::ssize(frames) < count) {
        frames.push_back(random.oneIn(3)             ? support::noise(60, 100, random)
                : random.oneIn(3) && !frames.empty() ? frames.back()
                                                     : support::textLike(60, 100, random.below(9)));
    }
    return frames;
}

void keepAll(FrameSpill& store, const std::vector<RGBAFrame>& frames)
{
    for (const RGBAFrame& frame : frames)
        store.keep(frame);
}

TEST(FrameSpill, LeavesAFewFramesAsTheyAre)
{
    FrameSpill store({.plainBytes = noLimit, .memoryBytes = noLimit, .diskSpaceToLeave = 0}, folder());
    const auto frames = support::inBands(recording(5));
    keepAll(store, frames);
    EXPECT_GT(store.plainBytes(), 0);
    EXPECT_EQ(store.compressedBytes(), 0);
    EXPECT_EQ(store.fileBytes(), 0);
}

TEST(FrameSpill, FramesComeBackFromMemory)
{
    const auto frames = recording(40);
    const auto kept = support::inBands(frames);
    FrameSpill store({.plainBytes = 50'000, .memoryBytes = noLimit, .diskSpaceToLeave = 0}, folder());
    keepAll(store, kept);
    EXPECT_LE(store.plainBytes(), 50'000);
    EXPECT_GT(store.compressedBytes(), 0);
    EXPECT_EQ(store.fileBytes(), 0);
    EXPECT_EQ(kept, frames);
}

TEST(FrameSpill, FramesComeBackFromTheFile)
{
    const auto frames = recording(40);
    const auto kept = support::inBands(frames);
    {
        FrameSpill store({.plainBytes = 0, .memoryBytes = 30'000, .diskSpaceToLeave = 0}, folder());
        keepAll(store, kept);
        EXPECT_EQ(store.plainBytes(), 0);
        EXPECT_LE(store.compressedBytes(), 30'000);
        EXPECT_GT(store.fileBytes(), 0);
    }
    EXPECT_EQ(kept, frames) << "they outlive the store";
}

TEST(FrameSpill, CountsAStillScreenOnce)
{
    const RGBAFrame frame = support::inBands({support::solid(60, 100, support::gray(5))}).front();
    FrameSpill store({.plainBytes = noLimit, .memoryBytes = noLimit, .diskSpaceToLeave = 0}, folder());
    for (int i = 0; i < 100; ++i)
        store.keep(frame);
    EXPECT_EQ(store.plainBytes(), 60 * 100 * 4);
}

TEST(FrameSpill, CompressesWhatScreensShow)
{
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < 20; ++i)
        frames.push_back(support::textLike(400, 300, i));
    FrameSpill store({.plainBytes = 0, .memoryBytes = noLimit, .diskSpaceToLeave = 0}, folder());
    const auto kept = support::inBands(frames);
    keepAll(store, kept);
    EXPECT_LT(store.compressedBytes(), 20 * 400 * 300 * 4 / 5);
}

TEST(FrameSpill, AFullDiskLosesNothing)
{
    const auto frames = recording(40);
    const auto kept = support::inBands(frames);
    FrameSpill store(
        {.plainBytes = 50'000, .memoryBytes = 0, .diskSpaceToLeave = std::numeric_limits<std::uint64_t>::max()},
        folder());
    EXPECT_THROW(keepAll(store, kept), SpillError);
    EXPECT_EQ(kept, frames);
}

TEST(FrameSpill, TakesWhatTheEnvironmentAllows)
{
    const auto memoryFor = [](const char* wish) {
        EXPECT_EQ(setenv("QUILLBOX_RECORDING_MEMORY", wish, 1), 0);
        const auto limits = FrameSpill::usualLimits();
        EXPECT_EQ(unsetenv("QUILLBOX_RECORDING_MEMORY"), 0);
        return limits.plainBytes + limits.memoryBytes;
    };
    const auto usual = FrameSpill::usualLimits();
    EXPECT_EQ(memoryFor("0"), 0);
    EXPECT_EQ(memoryFor("7"), 7'000'000);
    EXPECT_EQ(memoryFor("9000"), 2'000'000'000);
    for (const char* nonsense : {"", "many", "-1", "1.5", "99999999999999999999"})
        EXPECT_EQ(memoryFor(nonsense), usual.plainBytes + usual.memoryBytes) << nonsense;
    EXPECT_LE(usual.plainBytes + usual.memoryBytes, 128'000'000);
    EXPECT_GT(usual.plainBytes, 0);
}

TEST(FrameSpill, ForgetsWhatNobodyShows)
{
    FrameSpill store(
        {.plainBytes = 50'000, .memoryBytes = 0, .diskSpaceToLeave = std::numeric_limits<std::uint64_t>::max()},
        folder());
    for (const RGBAFrame& frame : recording(40)) // nothing is to be evicted, so the full disk does not matter
        store.keep(support::inBands({frame}).front());
    EXPECT_LE(store.plainBytes(), 50'000);
}

/// Gives a byte of its own again and again.
class Filled final : public BackingStore {
public:
    explicit Filled(std::size_t byteCount)
        : m_byteCount(byteCount)
    {
    }
    [[nodiscard]] std::shared_ptr<const Bytes> read() const override
    {
        return std::make_shared<const Bytes>(m_byteCount, std::uint8_t{7});
    }

private:
    std::size_t m_byteCount;
};

TEST(FrameSpill, WritesNothingThatHasABackingStore)
{
    const auto band = std::make_shared<const PixelBand>(
        std::make_shared<const Bytes>(400, std::uint8_t{1}), std::make_unique<Filled>(400));
    FrameSpill store({.plainBytes = 0, .memoryBytes = 0, .diskSpaceToLeave = 0}, "/proc/nowhere");
    store.keep(RGBAFrame::ofBands(10, 10, {band}));
    EXPECT_EQ(band->pixels(), Bytes(400, 7)) << "it was evicted";
    EXPECT_EQ(store.compressedBytes() + store.fileBytes(), 0);
}

TEST(FrameSpill, SaysWhenThereCanBeNoFile)
{
    FrameSpill store({.plainBytes = 0, .memoryBytes = 0, .diskSpaceToLeave = 0}, "/proc/nowhere");
    EXPECT_THROW(keepAll(store, support::inBands(recording(1))), SpillError);
}

TEST(FrameSpill, TakesFramesInOnePieceAsTheyAre)
{
    FrameSpill store({.plainBytes = 0, .memoryBytes = 0, .diskSpaceToLeave = 0}, folder());
    keepAll(store, recording(5));
    EXPECT_EQ(store.plainBytes(), 0);
    EXPECT_EQ(store.fileBytes(), 0);
}

TEST(FrameSpill, TheUsualLimitsFitTheMachine)
{
    const FrameSpill::Limits limits = FrameSpill::usualLimits();
    EXPECT_GT(limits.memoryBytes, 0);
    EXPECT_LE(limits.memoryBytes, 2'000'000'000);
    EXPECT_TRUE(FrameSpill::usualFolder().is_absolute());
    const FrameSpill::Limits input = FrameSpill::inputLimits();
    EXPECT_GE(input.plainBytes, 32'000'000);
    EXPECT_LE(input.plainBytes, 2'000'000'000);
    EXPECT_EQ(input.memoryBytes, 0);
}

TEST(FrameSpill, MovesAllToTheFile)
{
    const auto plain = recording(30);
    const auto frames = support::inBands(plain);
    FrameSpill store({.plainBytes = 100'000, .memoryBytes = 50'000, .diskSpaceToLeave = 0}, folder());
    keepAll(store, frames);
    ASSERT_GT(store.compressedBytes(), 0) << "some in memory";
    ASSERT_GT(store.fileBytes(), 0) << "some in the file";
    FrameSpill::moveToFile(frames, 0, folder());
    for (std::size_t i = 0; i < frames.size(); ++i) {
        for (std::int64_t band = 0; band < frames[i].bandCount(); ++band)
            EXPECT_EQ(frames[i].ownBand(band)->memoryBytes(), 0);
        EXPECT_EQ(frames[i], plain[i]);
    }
}

TEST(FrameSpill, LeavesInMemoryWhatTheDiskHasNoRoomFor)
{
    const auto plain = recording(5);
    const auto frames = support::inBands(plain);
    EXPECT_THROW(FrameSpill::moveToFile(frames, std::numeric_limits<std::uint64_t>::max(), folder()), SpillError);
    EXPECT_EQ(frames, plain);
}

} // namespace
} // namespace quillbox
