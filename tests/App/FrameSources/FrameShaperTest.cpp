#include "App/FrameSources/FrameShaper.h"

#include "App/FrameSources/FrameFitting.h"
#include "App/FrameSources/FrameReadError.h"
#include "support/Pictures.h"
#include "support/SourceClip.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

/// Column and row as red and green.
RGBAFrame grid(std::int64_t width, std::int64_t height)
{
    return support::picture(width, height, [](std::int64_t x, std::int64_t y) {
        return RGBColor(static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), 0);
    });
}

TEST(FrameFitting, CutsOutAPartAcrossBands)
{
    const RGBAFrame whole = grid(50, 100);
    for (const RGBAFrame& frame : {whole, support::inBands({whole}).front()}) {
        const RGBAFrame part = FrameFitting::cropped(frame, 7, 20, {.width = 40, .height = 70});
        EXPECT_EQ(part, support::picture(40, 70, [](std::int64_t x, std::int64_t y) {
            return RGBColor(static_cast<std::uint8_t>(x + 7), static_cast<std::uint8_t>(y + 20), 0);
        }));
    }
}

TEST(FrameFitting, SharesAPictureThatFits)
{
    const RGBAFrame frame = grid(4, 3);
    EXPECT_TRUE(FrameFitting::onCanvas(frame, {.width = 4, .height = 3}, {}).sharesPixels(frame));
}

TEST(FrameFitting, CentresASmallerPicture)
{
    const RGBAFrame fitted
        = FrameFitting::onCanvas(support::solid(1, 1, RGBColor(9, 9, 9)), {.width = 3, .height = 2}, RGBColor(1, 2, 3));
    const RGBColor back(1, 2, 3);
    const RGBColor front(9, 9, 9);
    EXPECT_EQ(fitted, support::rows(3, std::vector{back, front, back, back, back, back}));
}

TEST(FrameFitting, ShrinksALargerPictureAndKeepsItsProportions)
{
    const RGBAFrame fitted
        = FrameFitting::onCanvas(support::solid(20, 10, RGBColor(9, 9, 9)), {.width = 4, .height = 4}, RGBColor());
    for (std::int64_t row = 0; row < 4; ++row)
        EXPECT_EQ(fitted.pixels()[static_cast<std::size_t>(row * 16)], row == 1 || row == 2 ? 9 : 0) << row;
    const RGBAFrame thin = FrameFitting::onCanvas(grid(2000, 1), {.width = 10, .height = 10}, RGBColor());
    EXPECT_EQ(thin.height(), 10) << "a side never vanishes";
}

TEST(FrameShaper, CropsFirstAndShrinksThenAndSharesRepeats)
{
    support::SourceClip clip;
    FrameShaper shaper("a", {.crop = FrameShape::Part{2, 0, {8, 8}}, .maxWidth = 4}, clip);
    const RGBAFrame frame = grid(20, 8);
    shaper.take(frame);
    shaper.take(frame);
    shaper.take(grid(20, 8));
    ASSERT_EQ(clip.frames.size(), 3U);
    EXPECT_EQ(clip.frames[0].width(), 4);
    EXPECT_EQ(clip.frames[0].height(), 4);
    EXPECT_EQ(clip.frames[0].pixels()[0], 2) << "the mean of columns 2 and 3, cut off";
    EXPECT_TRUE(clip.frames[0].sharesPixels(clip.frames[1]));
    EXPECT_FALSE(clip.frames[1].sharesPixels(clip.frames[2]));
}

TEST(FrameShaper, PassesFramesOnWhereNothingIsAskedFor)
{
    support::SourceClip clip;
    FrameShaper shaper("a", {}, clip);
    const RGBAFrame frame = grid(5, 5);
    shaper.take(frame);
    EXPECT_TRUE(clip.frames[0].sharesPixels(frame));
}

TEST(FrameShaper, RefusesAPartBeyondTheFrame)
{
    support::SourceClip clip;
    for (const FrameShape::Part part : {FrameShape::Part{0, 0, {6, 5}}, {0, 0, {5, 6}}, {1, 0, {5, 5}}, {0, 1, {5, 5}},
             {INT32_MAX, 0, {INT32_MAX, 1}}}) {
        FrameShaper shaper("a", {.crop = part, .maxWidth = std::nullopt}, clip);
        EXPECT_THROW(shaper.take(grid(5, 5)), FrameReadError);
    }
}

} // namespace
} // namespace quillbox
