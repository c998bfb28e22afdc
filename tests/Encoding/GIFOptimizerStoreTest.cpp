#include "Encoding/FrameReducer.h"
#include "Encoding/GIFOptimizer.h"

#include "support/Pictures.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <iterator>
#include <memory>
#include <span>
#include <stdexcept>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

using GIFOptimizer::Execution;

/// Bytes in memory, as if they were elsewhere.
class HeapStore final : public BackingStore {
public:
    explicit HeapStore(std::span<const std::uint8_t> bytes)
        : m_bytes(std::make_shared<const Bytes>(bytes.begin(), bytes.end()))
    {
    }
    [[nodiscard]] std::shared_ptr<const Bytes> read() const override { return m_bytes; }

private:
    std::shared_ptr<const Bytes> m_bytes;
};

class BrokenStore final : public BackingStore {
public:
    [[nodiscard]] std::shared_ptr<const Bytes> read() const override { throw std::runtime_error("a bad sector"); }
};

/// Keeps nothing in memory that can be stored.
Execution storingAll(ByteStore store)
{
    Execution execution;
    execution.store = std::move(store);
    execution.frameMemory = 0;
    execution.partMemory = 0;
    return execution;
}

/// Twelve frames that a preset with a width has to shrink.
std::vector<RGBAFrame> wideNoise()
{
    support::Random random(7);
    std::vector<RGBAFrame> frames;
    for (int i = 0; i < 12; ++i)
        frames.push_back(support::noise(1200, 40, random));
    return frames;
}

const GIFOptimizer::Config slack{.preset = ExportPreset::slack, .sourceFPS = 12};

TEST(GIFOptimizerStore, HasAllFramesAndPartsThatMemoryShouldNotHold)
{
    const auto frames = wideNoise();
    const auto expected = GIFOptimizer::optimize(frames, slack);
    std::atomic<std::int64_t> storedBytes = 0;
    const auto execution = storingAll([&](std::span<const std::uint8_t> bytes) {
        storedBytes += std::ssize(bytes);
        return std::make_unique<const HeapStore>(bytes);
    });
    EXPECT_EQ(GIFOptimizer::optimize(frames, slack, execution), expected);
    constexpr std::int64_t shrunkBytes = std::int64_t{12} * 960 * 32 * 4;
    EXPECT_GE(storedBytes, shrunkBytes + expected.byteCount - 100) << "all but the file's beginning and end";
}

TEST(GIFOptimizerStore, IsNotAskedForWhatMemoryHasRoomFor)
{
    std::atomic<int> calls = 0;
    Execution execution = storingAll([&](std::span<const std::uint8_t> bytes) {
        ++calls;
        return std::make_unique<const HeapStore>(bytes);
    });
    execution.frameMemory = Execution().frameMemory;
    execution.partMemory = Execution().partMemory;
    EXPECT_EQ(GIFOptimizer::optimize(wideNoise(), slack, execution), GIFOptimizer::optimize(wideNoise(), slack));
    EXPECT_EQ(calls, 0);
}

TEST(GIFOptimizerStore, MayHaveNoRoom)
{
    const auto frames = wideNoise();
    const auto execution = storingAll([](std::span<const std::uint8_t> /*bytes*/) { return nullptr; });
    EXPECT_EQ(GIFOptimizer::optimize(frames, slack, execution), GIFOptimizer::optimize(frames, slack));
}

TEST(GIFOptimizerStore, TellsWhyItCantGiveBackWhatItTook)
{
    const auto execution
        = storingAll([](std::span<const std::uint8_t> /*bytes*/) { return std::make_unique<const BrokenStore>(); });
    EXPECT_THROW((void)GIFOptimizer::optimize(wideNoise(), slack, execution), std::runtime_error);
}

TEST(GIFOptimizerStore, PiecesOfAFileAreTheFile)
{
    const auto frames = wideNoise();
    FrameReducer reducer = FrameReducer::forAnyPreset(slack.sourceFPS);
    for (const RGBAFrame& frame : frames)
        reducer.append(frame);
    const auto made = GIFOptimizer::optimizeInPieces(reducer, slack);
    Bytes file;
    for (const KeptBytes& piece : made.file) {
        const auto bytes = piece.read();
        file.insert(file.end(), bytes->begin(), bytes->end());
    }
    EXPECT_TRUE(made.clip.data.empty());
    EXPECT_EQ(std::ssize(file), made.clip.byteCount);
    EXPECT_EQ(file, GIFOptimizer::optimize(reducer, slack).data);
}

} // namespace
} // namespace quillbox
