#include "Encoding/Precise/PictureDelays.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace quillbox {
namespace {

using Delays = std::vector<std::int64_t>;

TEST(PictureDelays, AtThirtyASecondAre3And3And4)
{
    EXPECT_EQ(PictureDelays::of(std::vector<std::int64_t>{0, 1, 2, 3, 4, 5}, 6, 30), (Delays{3, 4, 3, 3, 4, 3}));
}

TEST(PictureDelays, EndWhenTheRecordingEnds)
{
    const Delays delays = PictureDelays::of(std::vector<std::int64_t>{0, 7, 11}, 1000, 30);
    EXPECT_EQ(std::accumulate(delays.begin(), delays.end(), std::int64_t{0}), 3333);
    EXPECT_EQ(delays, (Delays{23, 14, 3296}));
}

TEST(PictureDelays, AreNeverSoShortThatBrowsersPlayThemSlowly)
{
    EXPECT_EQ(PictureDelays::of(std::vector<std::int64_t>{0, 1, 2, 10}, 20, 100), (Delays{2, 2, 6, 10}));
    EXPECT_EQ(PictureDelays::of(std::vector<std::int64_t>{0}, 1, 1000), (Delays{2}));
}

TEST(PictureDelaysDeathTest, PicturesBeginOneAfterAnother)
{
    EXPECT_DEATH((void)PictureDelays::of(std::vector<std::int64_t>{0, 0}, 1, 30), "one after another");
}

} // namespace
} // namespace quillbox
