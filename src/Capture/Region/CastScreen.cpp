#include "Capture/Region/CastScreen.h"

#include "Capture/Wayland/CastOutput.h"

#include <QGuiApplication>
#include <QImage>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace quillbox {

std::vector<QScreen*> CastScreen::candidates(const CastPicture& first)
{
    const PixelSize picture{first.picture.width(), first.picture.height()};
    const QSize pixels(static_cast<int>(first.picture.width()), static_cast<int>(first.picture.height()));
    // What a screen has in common with the cast, the most telling first.
    const auto likeness = [&](const QScreen& screen) {
        const QSize size = frame(screen, picture).size();
        const bool hasThatShape = isOfOneShape({size.width(), size.height()}, picture);
        const bool hasThoseEdges
            = first.points && size.width() == first.points->width && size.height() == first.points->height;
        const bool hasThosePixels = size * screen.devicePixelRatio() == pixels;
        const bool isThere = first.position && screen.geometry().topLeft() == *first.position;
        return (hasThatShape ? 8 : 0) + (hasThoseEdges ? 4 : 0) + (hasThosePixels ? 2 : 0) + (isThere ? 1 : 0);
    };
    std::vector<QScreen*> best;
    for (QScreen* const screen : QGuiApplication::screens()) {
        if (!best.empty() && likeness(*screen) > likeness(*best.front()))
            best.clear();
        if (best.empty() || likeness(*screen) == likeness(*best.front()))
            best.push_back(screen);
    }
    return best;
}

bool CastScreen::isOfOneScreen(const CastPicture& first)
{
    const PixelSize picture{first.picture.width(), first.picture.height()};
    return std::ranges::any_of(QGuiApplication::screens(), [picture](const QScreen* screen) {
        const QSize size = frame(*screen, picture).size();
        return isOfOneShape({size.width(), size.height()}, picture);
    });
}

QRect CastScreen::frame(const QScreen& screen, PixelSize picture)
{
    const QSize said = screen.geometry().size();
    const auto scale = std::max<std::int64_t>(std::lround(screen.devicePixelRatio()), 1);
    const auto points = pointsOfOutput({said.width(), said.height()}, picture, scale);
    return {screen.geometry().topLeft(), QSize(static_cast<int>(points.width), static_cast<int>(points.height))};
}

QPixmap CastScreen::pixmap(const RGBAFrame& picture, const QScreen& screen)
{
    const auto pixels = picture.pixels();
    const QImage image(pixels.data(), static_cast<int>(picture.width()), static_cast<int>(picture.height()),
        static_cast<int>(picture.width() * RGBAFrame::bytesPerPixel), QImage::Format_RGBX8888);
    auto pixmap = QPixmap::fromImage(image); // a copy
    pixmap.setDevicePixelRatio(
        static_cast<double>(picture.width()) / frame(screen, {picture.width(), picture.height()}).width());
    return pixmap;
}

} // namespace quillbox
