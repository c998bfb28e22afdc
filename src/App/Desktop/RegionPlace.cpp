#include "App/Desktop/RegionPlace.h"

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

} // namespace quillbox
