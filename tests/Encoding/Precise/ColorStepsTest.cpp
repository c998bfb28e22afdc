#include "Encoding/Precise/ColorSteps.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

TEST(ColorSteps, TellTheLastOneThatHasNoMoreColours)
{
    EXPECT_EQ(ColorSteps::of(2), 0);
    EXPECT_EQ(ColorSteps::of(8), 0);
    EXPECT_EQ(ColorSteps::of(9), 1);
    EXPECT_EQ(ColorSteps::of(12), 3);
    EXPECT_EQ(ColorSteps::of(255), 29);
    EXPECT_EQ(ColorSteps::of(256), 30);
}

TEST(SizeByColors, GrowsByAsMuchWithEveryStepAndEvenlyInBetween)
{
    const SizeByColors sizes(57, 1000, 72, 1200); // 57, 64, 72
    EXPECT_EQ(sizes.colorsFor(1000), 57);
    EXPECT_EQ(sizes.colorsFor(1099), 63);
    EXPECT_EQ(sizes.colorsFor(1100), 64);
    EXPECT_EQ(sizes.colorsFor(1150), 68);
    EXPECT_EQ(sizes.colorsFor(900), 51);
    EXPECT_EQ(sizes.colorsFor(-10'000), 8);
    EXPECT_EQ(sizes.colorsFor(1'000'000), 256);
}

TEST(SizeByColors, KnowsNoGrowthFromOneNumberOfColours)
{
    const SizeByColors sizes(64, 1000, 64, 1000);
    EXPECT_EQ(sizes.colorsFor(999), 8);
    EXPECT_EQ(sizes.colorsFor(1000), 256);
}

} // namespace
} // namespace quillbox
