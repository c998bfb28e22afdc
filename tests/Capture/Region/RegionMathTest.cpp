#include "Capture/Region/RegionMath.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillbox {
namespace {

constexpr RegionMath::Size screen{1440, 900};
constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(RegionMath, EveryCornerGivesTheSameRegion)
{
    const CaptureRegion expected{10, 20, 90, 30};
    EXPECT_EQ(RegionMath::rect({100, 50}, {10, 20}, screen), expected);
    EXPECT_EQ(RegionMath::rect({10, 20}, {100, 50}, screen), expected);
    EXPECT_EQ(RegionMath::rect({100, 20}, {10, 50}, screen), expected);
    EXPECT_EQ(RegionMath::rect({10, 50}, {100, 20}, screen), expected);
}

TEST(RegionMath, ADragBeyondTheBoundsIsCut)
{
    EXPECT_EQ(RegionMath::rect({-20, -5}, {30.4, 10.6}, screen), (CaptureRegion{0, 0, 30, 11}));
    EXPECT_EQ(RegionMath::rect({1400, 890}, {2000, 2000}, screen), (CaptureRegion{1400, 890, 40, 10}));
}

TEST(RegionMath, HalvesRoundAwayFromZero)
{
    EXPECT_EQ(RegionMath::rect({0.5, 0.5}, {10, 10}, screen), (CaptureRegion{1, 1, 10, 10}));
}

TEST(RegionMath, ExtentsAreRoundedAfterTheSubtraction)
{
    // The edges round to 0 and 1, the extent of 0.2 to 0, which is raised to 1; 0.4…1.6 has 1.2 and not 2 − 0.
    EXPECT_EQ(RegionMath::rect({0.4, 0.4}, {0.6, 1.6}, screen), (CaptureRegion{0, 0, 1, 1}));
    EXPECT_EQ(RegionMath::rect({0.4, 0}, {3.0, 1}, screen).width, 3);
    EXPECT_EQ(RegionMath::rect({0.6, 0}, {3.0, 1}, screen).width, 2);
}

TEST(RegionMath, ADragWithoutExtentIsOneByOne)
{
    EXPECT_EQ(RegionMath::rect({7, 8}, {7, 8}, screen), (CaptureRegion{7, 8, 1, 1}));
}

TEST(RegionMath, ADragWholeOutsideSticksToTheEdge)
{
    EXPECT_EQ(RegionMath::rect({1500, 950}, {1600, 990}, screen), (CaptureRegion{1440, 900, 1, 1}));
    EXPECT_EQ(RegionMath::rect({-10, -20}, {-1, -2}, screen), (CaptureRegion{0, 0, 1, 1}));
}

TEST(RegionMath, AnInfiniteCornerIsCutToTheEdge)
{
    EXPECT_EQ(RegionMath::rect({10, 20}, {infinity, infinity}, screen), (CaptureRegion{10, 20, 1430, 880}));
    EXPECT_EQ(RegionMath::rect({10, 20}, {-infinity, -infinity}, screen), (CaptureRegion{0, 0, 10, 20}));
    EXPECT_EQ(RegionMath::rect({-infinity, infinity}, {infinity, -infinity}, screen), (CaptureRegion{0, 0, 1440, 900}));
    EXPECT_EQ(RegionMath::rect({10, 20}, {30, 50}, {infinity, infinity}), (CaptureRegion{10, 20, 20, 30}));
}

TEST(RegionMathDeathTest, RejectsWhatIsNotANumber)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_DEATH((void)RegionMath::rect({nan, 0}, {1, 1}, screen), "numbers");
    EXPECT_DEATH((void)RegionMath::rect({0, nan}, {1, 1}, screen), "numbers");
    EXPECT_DEATH((void)RegionMath::rect({0, 0}, {nan, 1}, screen), "numbers");
    EXPECT_DEATH((void)RegionMath::rect({0, 0}, {1, nan}, screen), "numbers");
    EXPECT_DEATH((void)RegionMath::rect({0, 0}, {1, 1}, {nan, 1}), "numbers");
    EXPECT_DEATH((void)RegionMath::rect({0, 0}, {1, 1}, {1, nan}), "numbers");
}

TEST(RegionMathDeathTest, RejectsWhatIsInfiniteAfterTheCut)
{
    EXPECT_DEATH((void)RegionMath::rect({0, 0}, {infinity, 1}, {infinity, 900}), "finite");
    EXPECT_DEATH((void)RegionMath::rect({0, infinity}, {1, infinity}, {1440, infinity}), "finite");
}

TEST(RegionMathDeathTest, RejectsWhatDoesNotFitSixtyFourBits)
{
    EXPECT_DEATH((void)RegionMath::rect({0, 0}, {1e19, 1}, {1e19, 1}), "fit 64 bits");
    EXPECT_DEATH((void)RegionMath::rect({0, 0}, {0x1p63, 1}, {0x1p63, 1}), "fit 64 bits");
}

TEST(RegionMath, TheLargestDoubleBelowTwoToTheSixtyThreeFits)
{
    const double largest = 0x1p63 - 1024;
    EXPECT_EQ(RegionMath::rect({0, 0}, {largest, 1}, {largest, 1}).width, 9'223'372'036'854'774'784);
}

} // namespace
} // namespace quillbox
