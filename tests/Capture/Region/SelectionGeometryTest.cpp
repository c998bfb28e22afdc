#include "Capture/Region/SelectionGeometry.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

constexpr RegionMath::Size screenSize{1440, 900};

TEST(SelectionGeometry, ATopLeftDragGivesTheSameRegionAsTheReverseDrag)
{
    const CaptureRegion expected{20, 20, 80, 80};
    EXPECT_EQ(SelectionGeometry::selected({20, 20}, {100, 100}, screenSize), expected);
    EXPECT_EQ(SelectionGeometry::selected({100, 100}, {20, 20}, screenSize), expected);
    EXPECT_EQ(SelectionGeometry::selected({20, 100}, {100, 20}, screenSize), expected);
}

TEST(SelectionGeometry, AClickSelectsNothing)
{
    EXPECT_EQ(SelectionGeometry::selected({50, 50}, {50, 50}, screenSize), std::nullopt);
}

TEST(SelectionGeometry, LessThanFivePointsEitherWaySelectsNothing)
{
    EXPECT_EQ(SelectionGeometry::selected({0, 0}, {4.4, 100}, screenSize), std::nullopt);
    EXPECT_EQ(SelectionGeometry::selected({0, 0}, {100, 4.4}, screenSize), std::nullopt);
}

TEST(SelectionGeometry, HalfAPointMoreIsFivePoints)
{
    EXPECT_EQ(SelectionGeometry::selected({0, 0}, {4.5, 100}, screenSize), (CaptureRegion{0, 0, 5, 100}));
}

TEST(SelectionGeometry, ADragThatLeavesTheScreenIsCutToIt)
{
    EXPECT_EQ(SelectionGeometry::selected({1400, 880}, {2000, 3000}, screenSize), (CaptureRegion{1400, 880, 40, 20}));
    EXPECT_EQ(SelectionGeometry::selected({-50, -10}, {30, 20}, screenSize), (CaptureRegion{0, 0, 30, 20}));
}

TEST(SelectionGeometry, TheSizeCountsAfterCutting)
{
    EXPECT_EQ(SelectionGeometry::selected({1437, 100}, {1600, 200}, screenSize), std::nullopt);
}

} // namespace
} // namespace quillbox
