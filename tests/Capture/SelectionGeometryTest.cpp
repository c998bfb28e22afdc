#include "Capture/SelectionGeometry.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

constexpr RegionMath::Size screen{1440, 900};

TEST(SelectionGeometry, ATopLeftDragGivesTheSameRegionAsTheReverseDrag)
{
    const CaptureRegion expected{20, 20, 80, 80};
    EXPECT_EQ(SelectionGeometry::selected({20, 20}, {100, 100}, screen), expected);
    EXPECT_EQ(SelectionGeometry::selected({100, 100}, {20, 20}, screen), expected);
    EXPECT_EQ(SelectionGeometry::selected({20, 100}, {100, 20}, screen), expected);
}

TEST(SelectionGeometry, AClickSelectsNothing)
{
    EXPECT_EQ(SelectionGeometry::selected({50, 50}, {50, 50}, screen), std::nullopt);
}

TEST(SelectionGeometry, LessThanFivePointsEitherWaySelectsNothing)
{
    EXPECT_EQ(SelectionGeometry::selected({0, 0}, {4.4, 100}, screen), std::nullopt);
    EXPECT_EQ(SelectionGeometry::selected({0, 0}, {100, 4.4}, screen), std::nullopt);
}

TEST(SelectionGeometry, HalfAPointMoreIsFivePoints)
{
    EXPECT_EQ(SelectionGeometry::selected({0, 0}, {4.5, 100}, screen), (CaptureRegion{0, 0, 5, 100}));
}

TEST(SelectionGeometry, ADragThatLeavesTheScreenIsCutToIt)
{
    EXPECT_EQ(SelectionGeometry::selected({1400, 880}, {2000, 3000}, screen), (CaptureRegion{1400, 880, 40, 20}));
    EXPECT_EQ(SelectionGeometry::selected({-50, -10}, {30, 20}, screen), (CaptureRegion{0, 0, 30, 20}));
}

TEST(SelectionGeometry, TheSizeCountsAfterCutting)
{
    EXPECT_EQ(SelectionGeometry::selected({1437, 100}, {1600, 200}, screen), std::nullopt);
}

} // namespace
} // namespace quillbox
