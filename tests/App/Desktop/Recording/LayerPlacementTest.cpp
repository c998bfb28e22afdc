#include "App/Desktop/Recording/LayerPlacement.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

TEST(LayerPlacement, IsTheRegionWhereThePointsAreTheSame)
{
    EXPECT_EQ(LayerPlacement::covered({10, 20, 300, 200}, {1280, 720}, {1280, 720}), QRect(10, 20, 300, 200));
    EXPECT_EQ(LayerPlacement::covered({0, 0, 1280, 720}, {1280, 720}, {1280, 720}), QRect(0, 0, 1280, 720));
}

TEST(LayerPlacement, IsAsMuchLargerAsThePointsAreSmaller)
{
    EXPECT_EQ(LayerPlacement::covered({10, 20, 300, 200}, {640, 360}, {1280, 720}), QRect(20, 40, 600, 400));
}

TEST(LayerPlacement, HasEveryPointThatIsCoveredInPart)
{
    EXPECT_EQ(LayerPlacement::covered({1, 1, 1, 1}, {900, 600}, {600, 400}), QRect(0, 0, 2, 2));
    EXPECT_EQ(LayerPlacement::covered({3, 3, 3, 4}, {900, 600}, {600, 400}), QRect(2, 2, 2, 3));
}

} // namespace
} // namespace quillbox
