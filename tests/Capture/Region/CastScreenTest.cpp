#include "Capture/Region/CastScreen.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>
#include <QTemporaryFile>

#include <algorithm>
#include <vector>

namespace quillbox {
namespace {

using Corners = std::vector<QPoint>;

/// Three monitors of 1920 × 1080 pixels: one as it is, one that is turned, and one with two pixels a point; and one
/// with two pixels a point that the toolkit was told the pixels of, as by mutter.
constexpr auto monitors = R"({ "screens": [
    { "name": "plain", "x": 0, "y": 0, "width": 1920, "height": 1080 },
    { "name": "turned", "x": 1920, "y": 0, "width": 1080, "height": 1920 },
    { "name": "dense", "x": 3000, "y": 0, "width": 960, "height": 540, "dpr": 2 },
    { "name": "told in pixels", "x": 4000, "y": 0, "width": 2560, "height": 1440, "dpr": 2 } ] })";

/// Where the screens are, from left to right, on which a region of such a cast is selected.
Corners candidates(PixelSize picture, std::optional<PixelSize> points, std::optional<QPoint> position)
{
    const auto bytes = static_cast<std::size_t>(picture.width * picture.height * RGBAFrame::bytesPerPixel);
    const CastPicture first{RGBAFrame(picture.width, picture.height, Bytes(bytes)), points, position};
    Corners result;
    for (const QScreen* const screen : CastScreen::candidates(first))
        result.push_back(screen->geometry().topLeft());
    std::ranges::sort(result, {}, [](QPoint corner) { return corner.x(); });
    return result;
}

TEST(CastScreen, IsTheOneThatIsTurnedLikeThePicture)
{
    EXPECT_EQ(candidates({1080, 1920}, std::nullopt, std::nullopt), (Corners{{1920, 0}}));
    EXPECT_EQ(candidates({1080, 1920}, std::nullopt, QPoint(0, 0)), (Corners{{1920, 0}})) << "the position is none";
    EXPECT_EQ(candidates({1080, 1920}, PixelSize{1920, 1080}, std::nullopt), (Corners{{1920, 0}}));
    EXPECT_EQ(candidates({540, 960}, std::nullopt, QPoint(0, 0)), (Corners{{1920, 0}})) << "a picture that is smaller";
}

TEST(CastScreen, IsNoneWhereThePictureIsOfAllOfThem)
{
    const auto isOfOne = [](std::int64_t width, std::int64_t height) {
        const auto bytes = static_cast<std::size_t>(width * height * RGBAFrame::bytesPerPixel);
        return CastScreen::isOfOneScreen({RGBAFrame(width, height, Bytes(bytes)), std::nullopt, std::nullopt});
    };
    EXPECT_FALSE(isOfOne(3960, 1920));
    EXPECT_FALSE(isOfOne(1920 + 1080, 1920));
    EXPECT_TRUE(isOfOne(1920, 1080));
    EXPECT_TRUE(isOfOne(1080, 1920));
    EXPECT_TRUE(isOfOne(961, 540)) << "points are rounded";
}

TEST(CastScreen, MayBeEachOfThoseWithAsManyPixelsWhereNoPointsAreKnown)
{
    EXPECT_EQ(candidates({1920, 1080}, std::nullopt, std::nullopt), (Corners{{0, 0}, {3000, 0}}));
}

TEST(CastScreen, IsTheOneThatHasThePoints)
{
    EXPECT_EQ(candidates({1920, 1080}, PixelSize{960, 540}, std::nullopt), (Corners{{3000, 0}}));
    EXPECT_EQ(candidates({1920, 1080}, PixelSize{1920, 1080}, std::nullopt), (Corners{{0, 0}}));
}

TEST(CastScreen, IsTheOneAtThePositionWhereNothingElseTells)
{
    EXPECT_EQ(candidates({1920, 1080}, std::nullopt, QPoint(3000, 0)), (Corners{{3000, 0}}));
}

/// The one whose left edge is there.
const QScreen& screenAt(int x)
{
    const auto screens = QGuiApplication::screens();
    return **std::ranges::find(screens, x, [](const QScreen* screen) { return screen->geometry().x(); });
}

TEST(CastScreen, IsCoveredInPointsWhereTheToolkitWasToldPixels)
{
    EXPECT_EQ(candidates({2560, 1440}, PixelSize{1280, 720}, std::nullopt), (Corners{{4000, 0}}));
    EXPECT_EQ(CastScreen::frame(screenAt(4000), {2560, 1440}), QRect(4000, 0, 1280, 720));
    EXPECT_EQ(CastScreen::frame(screenAt(3000), {1920, 1080}), QRect(3000, 0, 960, 540));
    EXPECT_EQ(CastScreen::frame(screenAt(1920), {1080, 1920}), QRect(1920, 0, 1080, 1920));
    const RGBAFrame picture(2560, 1440, Bytes(std::size_t{2560} * 1440 * 4));
    EXPECT_EQ(CastScreen::pixmap(picture, screenAt(4000)).devicePixelRatio(), 2);
}

} // namespace
} // namespace quillbox

int main(int argc, char** argv)
{
    QTemporaryFile file;
    if (!file.open() || file.write(quillbox::monitors) < 0 || !file.flush())
        return 1;
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toUtf8());
    const QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
