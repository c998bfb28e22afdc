#include "Platform/PixelRect.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

TEST(PixelRect, TheIntersectionIsWhatBothCover)
{
    EXPECT_EQ((PixelRect{0, 0, 10, 10}).intersected({5, 6, 10, 10}), (PixelRect{5, 6, 5, 4}));
    EXPECT_EQ((PixelRect{0, 0, 10, 10}).intersected({2, 3, 4, 5}), (PixelRect{2, 3, 4, 5}));
}

TEST(PixelRect, NeighboursHaveNothingInCommon)
{
    EXPECT_TRUE((PixelRect{0, 0, 10, 10}).intersected({10, 0, 5, 5}).isEmpty());
    EXPECT_TRUE((PixelRect{0, 0, 10, 10}).intersected({0, -5, 5, 5}).isEmpty());
}

TEST(PixelRect, TheUnionIsTheSmallestBoxAroundBoth)
{
    EXPECT_EQ((PixelRect{0, 1, 2, 3}).united({10, -5, 1, 1}), (PixelRect{0, -5, 11, 9}));
}

TEST(PixelRect, AnEmptyRectangleAddsNothingToAUnion)
{
    const PixelRect some{3, 4, 5, 6};
    EXPECT_EQ(some.united({100, 100, 0, 7}), some);
    EXPECT_EQ((PixelRect{100, 100, 7, 0}).united(some), some);
}

TEST(PixelRect, TheAreaOfAnEmptyRectangleIsZero)
{
    EXPECT_EQ((PixelRect{0, 0, -3, -4}).area(), 0);
    EXPECT_EQ((PixelRect{0, 0, 65535, 65535}).area(), 4'294'836'225);
}

} // namespace
} // namespace quillbox
