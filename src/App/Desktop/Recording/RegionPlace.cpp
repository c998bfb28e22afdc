#include "App/Desktop/Recording/RegionPlace.h"

#include "App/Desktop/Recording/LayerPlacement.h"
#include "Platform/Wayland/LayerSurface.h"

#include <QGuiApplication>
#include <QScreen>

namespace quillbox {

QRect placeOf(const CaptureRegion& region)
{
    const auto* const screen = QGuiApplication::primaryScreen();
    const auto origin = screen == nullptr ? QPoint() : screen->geometry().topLeft();
    return QRect(static_cast<int>(region.x), static_cast<int>(region.y), static_cast<int>(region.width),
        static_cast<int>(region.height))
        .translated(origin);
}

QRect placeOn(const QScreen& screen, const CaptureRegion& region)
{
    const auto output = LayerOutput::open(screen.name());
    const QSize points = output ? output->points() : screen.size();
    return LayerPlacement::covered(region, screen.size(), points).translated(screen.geometry().topLeft());
}

} // namespace quillbox
