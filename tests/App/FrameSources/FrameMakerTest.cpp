#include "App/FrameSources/FrameMaker.h"

#include <gtest/gtest.h>

#include <utility>

namespace quillbox {
namespace {

TEST(FrameMaker, LetsEqualNeighboursShareTheirPixels)
{
    FrameMaker maker;
    const auto first = maker.frame({1, 1}, Bytes{1, 2, 3, 4});
    const auto repeated = maker.frame({1, 1}, Bytes{1, 2, 3, 4});
    const auto other = maker.frame({1, 1}, Bytes{1, 2, 3, 5});
    const auto again = maker.frame({1, 1}, Bytes{1, 2, 3, 4});
    EXPECT_TRUE(first.sharesPixels(repeated));
    EXPECT_FALSE(repeated.sharesPixels(other));
    EXPECT_FALSE(first.sharesPixels(again)) << "only neighbours are compared";
    EXPECT_EQ(again.pixels(), (Bytes{1, 2, 3, 4}));
}

TEST(FrameMaker, TellsFramesOfAnotherShapeApartEvenIfTheirBytesAreEqual)
{
    FrameMaker maker;
    const auto wide = maker.frame({2, 1}, Bytes(8, 7));
    const auto tall = maker.frame({1, 2}, Bytes(8, 7));
    EXPECT_EQ(tall.width(), 1);
    EXPECT_EQ(tall.height(), 2);
    EXPECT_FALSE(wide.sharesPixels(tall));
}

TEST(FrameMaker, HandsTheBufferOfARepeatedFrameOutAgain)
{
    FrameMaker maker;
    const auto first = maker.frame({2, 1}, Bytes(8, 7));
    Bytes repeated = maker.takeBuffer(8);
    repeated.assign(8, 7);
    const auto* const storage = repeated.data();
    (void)maker.frame({2, 1}, std::move(repeated));
    EXPECT_EQ(maker.takeBuffer(8).data(), storage);
}

TEST(FrameMaker, HandsTheBufferOfAForgottenFrameOutAgain)
{
    FrameMaker maker;
    const void* const storage = maker.frame({2, 1}, Bytes(8, 7)).bandIdentity(0);
    (void)maker.frame({2, 1}, Bytes(8, 8)); // the maker itself remembers the newest frame only
    EXPECT_EQ(maker.takeBuffer(8).data(), storage);
}

} // namespace
} // namespace quillbox
