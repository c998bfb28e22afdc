#include "Encoding/Pixels/FramePool.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <utility>

namespace quillbox {
namespace {

TEST(FramePool, GivesTheMemoryOfAForgottenFrameToTheNext)
{
    FramePool pool;
    std::optional frame = pool.frame(2, 1, Bytes(8, 1));
    const void* const storage = frame->bandIdentity(0);
    std::optional copy = frame;
    frame.reset();
    EXPECT_NE(pool.take(8).data(), storage) << "a copy still holds it";
    copy.reset();
    EXPECT_EQ(pool.take(8).data(), storage);
}

TEST(FramePool, LargeBuffersBeginAtAPage)
{
    const FramePool pool;
    const Bytes buffer = pool.take(70'000);
    EXPECT_EQ(buffer.size(), 70'000U);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(buffer.data()) % 4096, 0U);
}

TEST(FramePool, SharedBuffersComeBackToo)
{
    const FramePool pool;
    auto shared = pool.shared(pool.take(8));
    const auto* const storage = shared->data();
    EXPECT_NE(pool.take(8).data(), storage);
    shared.reset();
    EXPECT_EQ(pool.take(8).data(), storage);
}

TEST(FramePool, TakesBackABufferThatBecameNoFrame)
{
    FramePool pool;
    Bytes buffer = pool.take(8);
    const auto* const storage = buffer.data();
    pool.giveBack(std::move(buffer));
    EXPECT_EQ(pool.take(4).data(), storage) << "a smaller buffer fits too";
}

TEST(FramePool, CopiesShareTheirBuffers)
{
    FramePool pool;
    FramePool copy = pool;
    const void* const storage = copy.frame(2, 1, Bytes(8, 1)).bandIdentity(0);
    EXPECT_EQ(pool.take(8).data(), storage);
}

TEST(FramePool, MayGoBeforeItsFrames)
{
    std::optional<FramePool> pool(std::in_place);
    const RGBAFrame frame = pool->frame(1, 1, Bytes{1, 2, 3, 4});
    pool.reset();
    EXPECT_EQ(frame.pixels(), (Bytes{1, 2, 3, 4}));
}

TEST(FramePoolDeathTest, RejectsAMissingByte)
{
    EXPECT_DEATH((void)FramePool().frame(1, 1, Bytes(3)), "four bytes per pixel");
}

} // namespace
} // namespace quillbox
