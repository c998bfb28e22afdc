#include "Capture/OverlayRemains.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace quillbox {
namespace {

using std::chrono_literals::operator""ms;
using Answer = OverlayRemains::Answer;

constexpr std::int64_t screenWidth = 100;
constexpr std::int64_t screenHeight = 80;

using Level = std::function<double(std::int64_t x, std::int64_t y)>;

RGBAFrame picture(const Level& level, std::int64_t width = screenWidth, std::int64_t height = screenHeight)
{
    Bytes pixels;
    for (std::int64_t y = 0; y < height; ++y) {
        for (std::int64_t x = 0; x < width; ++x) {
            const auto gray = static_cast<std::uint8_t>(std::lround(level(x, y)));
            pixels.insert(pixels.end(), {gray, gray, gray, 255});
        }
    }
    return RGBAFrame(width, height, std::move(pixels));
}

double text(std::int64_t x, std::int64_t y)
{
    return x % 7 < 3 && y % 11 < 6 ? 30 : 240;
}

double veiled(double level)
{
    return level * 0.75 * 0.85 + 180 * 0.15;
}

/// The screen with a share of the overlay, 0…1.
RGBAFrame withShare(double share)
{
    return picture([share](auto x, auto y) { return text(x, y) * (1 - share) + veiled(text(x, y)) * share; });
}

OverlayRemains remains()
{
    return {withShare(0), withShare(1)};
}

TEST(OverlayRemains, BeginsAtOnceWhereTheScreenIsAsItWas)
{
    const auto likeness = remains().likenessOf(withShare(0));
    EXPECT_TRUE(likeness.isUncovered);
    EXPECT_EQ(OverlayRemains::answer(likeness, 0ms, 0ms), Answer::Begin);
}

TEST(OverlayRemains, WaitsWhileAnyShareOfTheOverlayIsLeft)
{
    for (const double share : {1.0, 0.7, 0.3, 0.05, 0.02, 0.01}) {
        const auto likeness = remains().likenessOf(withShare(share));
        EXPECT_TRUE(likeness.isCovered) << share;
        EXPECT_EQ(OverlayRemains::answer(likeness, 1999ms, 1999ms), Answer::Wait) << share;
        EXPECT_EQ(OverlayRemains::answer(likeness, 2000ms, 0ms), Answer::BeginAnyway) << share;
    }
}

TEST(OverlayRemains, WaitsWhileTheOverlayShrinksAwayFromTheEdges)
{
    const auto shrinking = picture([](auto x, auto y) {
        const bool isBeside = x < 20 || x >= 80 || y < 16 || y >= 64;
        return isBeside ? text(x, y) : text(x, y) * 0.6 + veiled(text(x * 5 / 4, y * 5 / 4)) * 0.4;
    });
    const auto likeness = remains().likenessOf(shrinking);
    EXPECT_FALSE(likeness.isUncovered);
    EXPECT_EQ(OverlayRemains::answer(likeness, 249ms, 100ms), Answer::Wait);
}

TEST(OverlayRemains, BeginsAtOnceWhereOnlyThePointerDiffers)
{
    const auto pointed
        = picture([](auto x, auto y) { return x >= 60 && x < 84 && y >= 40 && y < 72 ? 0 : text(x, y); });
    EXPECT_TRUE(remains().likenessOf(pointed).isUncovered);
}

TEST(OverlayRemains, BeginsWithinTheUsualFadingWhereAPartOfTheScreenIsAsItWas)
{
    const auto half = picture([](auto x, auto y) { return y < 40 ? 128 + 90 * std::sin(x * y) : text(x, y); });
    const auto likeness = remains().likenessOf(half);
    EXPECT_FALSE(likeness.isUncovered);
    EXPECT_EQ(OverlayRemains::answer(likeness, 249ms, 0ms), Answer::Wait);
    EXPECT_EQ(OverlayRemains::answer(likeness, 250ms, 0ms), Answer::Begin);
}

TEST(OverlayRemains, BeginsWhereTheScreenShowsSomethingElseAndRests)
{
    const auto film = picture([](auto x, auto y) { return 128 + 90 * std::sin(x * 3 + y * y); });
    const auto likeness = remains().likenessOf(film);
    EXPECT_FALSE(likeness.isCovered);
    EXPECT_EQ(OverlayRemains::answer(likeness, 300ms, 100ms), Answer::Wait) << "it may be fading";
    EXPECT_EQ(OverlayRemains::answer(likeness, 300ms, 250ms), Answer::Begin);
    EXPECT_EQ(OverlayRemains::answer(likeness, 500ms, 0ms), Answer::Begin) << "a film";
}

TEST(OverlayRemains, TakesADarkScreenForNoOverlay)
{
    EXPECT_FALSE(remains().likenessOf(picture([](auto, auto) { return 0; })).isCovered);
}

TEST(OverlayRemains, TakesTheContraryOfAnOverlayForNone)
{
    EXPECT_FALSE(remains().likenessOf(withShare(-0.2)).isCovered);
}

TEST(OverlayRemains, TakesAPictureThatIsLikeTheOverlayOnAverageAloneForNone)
{
    const auto other = picture([](auto x, auto y) {
        const double halfway = (text(x, y) + veiled(text(x, y))) / 2;
        return halfway + ((x / 4 + y / 4) % 2 == 0 ? 35 : -35);
    });
    EXPECT_FALSE(remains().likenessOf(other).isCovered);
}

TEST(OverlayRemains, SeesTheOverlayOnARegionThatThePointerWouldCover)
{
    const OverlayRemains small(
        picture(text, 32, 32), picture([](auto x, auto y) { return veiled(text(x, y)); }, 32, 32));
    EXPECT_TRUE(small.likenessOf(picture(text, 32, 32)).isUncovered);
    EXPECT_FALSE(small.likenessOf(picture([](auto x, auto y) { return veiled(text(x, y)); }, 32, 32)).isUncovered);
}

TEST(OverlayRemains, SeesAnOverlayOnABlackScreenByItsColor)
{
    const auto black = picture([](auto, auto) { return 0; });
    const OverlayRemains remains(black, picture([](auto, auto) { return veiled(0); }));
    EXPECT_TRUE(remains.likenessOf(black).isUncovered);
    EXPECT_TRUE(remains.likenessOf(picture([](auto, auto) { return veiled(0); })).isCovered);
}

TEST(OverlayRemains, TakesAPictureOfAnotherSizeForAnotherScreen)
{
    const auto likeness = remains().likenessOf(RGBAFrame(1, 1, Bytes(4)));
    EXPECT_FALSE(likeness.isUncovered || likeness.isCovered || likeness.isPartlySame);
}

} // namespace
} // namespace quillbox
