#include "Capture/CaptureGeometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillbox {
namespace {

constexpr PixelRect display{0, 0, 1920, 1080};

CaptureGeometry plan(PixelRect source, std::int64_t width, std::int64_t height)
{
    CaptureGeometry result;
    result.source = source;
    result.output = {width, height};
    return result;
}

TEST(CaptureGeometry, AtScaleOneARegionIsItsPixels)
{
    EXPECT_EQ(captureGeometry({10, 20, 30, 40}, display, 1), plan({10, 20, 30, 40}, 30, 40));
}

TEST(CaptureGeometry, TheOriginIsTheDisplaysCorner)
{
    EXPECT_EQ(captureGeometry({10, 20, 30, 40}, {1920, 100, 800, 600}, 1), plan({1930, 120, 30, 40}, 30, 40));
}

TEST(CaptureGeometry, ARegionIsCutOnEverySide)
{
    EXPECT_EQ(captureGeometry({-10, -20, 5000, 6000}, display, 1), plan({0, 0, 1920, 1080}, 1920, 1080));
    EXPECT_EQ(captureGeometry({-10, 5, 11, 1}, display, 1), plan({0, 5, 1, 1}, 1, 1));
    EXPECT_EQ(captureGeometry({1919, 1079, 9, 9}, display, 1), plan({1919, 1079, 1, 1}, 1, 1));
}

TEST(CaptureGeometry, ARegionOutsideHasNoPlan)
{
    EXPECT_EQ(captureGeometry({1920, 0, 10, 10}, display, 1), std::nullopt);
    EXPECT_EQ(captureGeometry({0, 1080, 10, 10}, display, 1), std::nullopt);
    EXPECT_EQ(captureGeometry({-10, 0, 10, 10}, display, 1), std::nullopt);
    EXPECT_EQ(captureGeometry({0, -10, 10, 10}, display, 1), std::nullopt);
}

TEST(CaptureGeometry, NoNumberOverflows)
{
    constexpr auto lowest = std::numeric_limits<std::int64_t>::min();
    constexpr auto highest = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(captureGeometry({lowest, lowest, highest, highest}, display, 1), std::nullopt);
    EXPECT_EQ(captureGeometry({highest, highest, highest, highest}, display, 1), std::nullopt);
    EXPECT_EQ(captureGeometry({0, 0, highest, highest}, display, 1), plan(display, 1920, 1080));
    EXPECT_EQ(captureGeometry({-1, -1, highest, highest}, display, 1), plan(display, 1920, 1080));
}

TEST(CaptureGeometry, ARegionWithoutExtentIsOnePixel)
{
    EXPECT_EQ(captureGeometry({3, 4, 0, -9}, display, 1), plan({3, 4, 1, 1}, 1, 1));
}

TEST(CaptureGeometry, TheAxesMayDiffer)
{
    EXPECT_EQ(captureGeometry({10, 20, 30, 40}, display, PixelSize{960, 1080}), plan({20, 20, 60, 40}, 30, 40));
    EXPECT_EQ(captureGeometry({950, 1070, 30, 40}, display, PixelSize{960, 1080}), plan({1900, 1070, 20, 10}, 10, 10));
}

TEST(CaptureGeometry, AtScaleTwoAPointIsFourPixels)
{
    EXPECT_EQ(captureGeometry({5, 6, 20, 10}, display, 2), plan({10, 12, 40, 20}, 20, 10));
    EXPECT_EQ(captureGeometry({0, 0, 5000, 5000}, display, 2), plan(display, 960, 540));
    EXPECT_EQ(captureGeometry({960, 0, 1, 1}, display, 2), std::nullopt);
}

TEST(CaptureGeometry, AtAFractionEdgesRoundToTheNearestPixel)
{
    EXPECT_EQ(captureGeometry({1, 1, 3, 1}, display, 1.5), plan({2, 2, 4, 1}, 3, 1)); // 1.5…6 and 1.5…3
    EXPECT_EQ(captureGeometry({0, 0, 2000, 1}, {0, 0, 1000, 10}, 1.5), plan({0, 0, 1000, 2}, 667, 1)); // 666.7 points
}

TEST(CaptureGeometry, BelowScaleOneEveryPointHasAPixel)
{
    EXPECT_EQ(captureGeometry({3, 3, 1, 1}, display, 0.25), plan({1, 1, 1, 1}, 1, 1));
    EXPECT_EQ(captureGeometry({7679, 4319, 1, 1}, display, 0.25), plan({1919, 1079, 1, 1}, 1, 1));
}

TEST(ScaledTo, TheSameSizeSharesThePixels)
{
    const RGBAFrame frame(2, 1, Bytes{1, 2, 3, 4, 5, 6, 7, 8});
    EXPECT_TRUE(scaledTo(frame, {2, 1}).sharesPixels(frame));
}

TEST(ScaledTo, ShrinkingTakesTheMean)
{
    const RGBAFrame frame(2, 2, Bytes{0, 0, 0, 255, 10, 20, 30, 255, 0, 0, 0, 255, 10, 20, 31, 255});
    EXPECT_EQ(scaledTo(frame, {1, 1}), RGBAFrame(1, 1, Bytes{5, 10, 15, 255})); // truncated
}

TEST(ScaledTo, GrowingRepeatsTheNearestPixel)
{
    const RGBAFrame frame(2, 1, Bytes{1, 2, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(scaledTo(frame, {4, 2}),
        RGBAFrame(4, 2,
            Bytes{1, 2, 3, 4, 1, 2, 3, 4, 5, 6, 7, 8, 5, 6, 7, 8, 1, 2, 3, 4, 1, 2, 3, 4, 5, 6, 7, 8, 5, 6, 7, 8}));
}

} // namespace
} // namespace quillbox
