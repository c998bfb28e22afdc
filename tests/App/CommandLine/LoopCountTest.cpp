#include "App/CommandLine/LoopCount.h"

#include "Encoding/GIFEncoder.h"
#include "support/GifDecoding.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillbox {
namespace {

Bytes smallGIF()
{
    return GIFEncoder::encode(std::vector<IndexedFrame>{{1, 1, {RGBColor(1, 2, 3)}, Bytes{0}, 10}});
}

std::optional<std::int64_t> repeatsOf(std::int64_t plays)
{
    Bytes gif = smallGIF();
    LoopCount::setPlays(gif, plays);
    const auto decoded = support::decodeWithGiflib(gif);
    EXPECT_EQ(decoded.frames.size(), 1U);
    return decoded.loopCount;
}

TEST(LoopCount, RepeatsOnceLessThanItPlays)
{
    EXPECT_EQ(repeatsOf(0), 0) << "for ever";
    EXPECT_EQ(repeatsOf(1), std::nullopt) << "once, without the extension";
    EXPECT_EQ(repeatsOf(2), 1);
    EXPECT_EQ(repeatsOf(300), 299);
    EXPECT_EQ(repeatsOf(65536), 65535);
}

TEST(LoopCount, LeavesAGIFThatPlaysForEverAsItIs)
{
    Bytes gif = smallGIF();
    LoopCount::setPlays(gif, 0);
    EXPECT_EQ(gif, smallGIF());
}

TEST(LoopCountDeathTest, RejectsAFileWithoutTheExtension)
{
    Bytes gif = smallGIF();
    LoopCount::setPlays(gif, 1);
    EXPECT_DEATH(LoopCount::setPlays(gif, 2), "follows the header");
}

} // namespace
} // namespace quillbox
