#pragma once

#include "Views/Theme.h"

#include <QIcon>
#include <QString>

namespace quillbox {

/// The symbols of the views. Each is a picture of 16 × 16 units in one colour.
enum class Symbol {
    RectangleDashedBadgeRecord,
    InfoCircle,
    RectangleDashed,
    RecordCircle,
    WandAndStars,
    CheckmarkCircleFill,
    ExclamationmarkTriangleFill,
    StopCircleFill,
    PhotoStack,
    Film,
    MagnifyingglassCircle,
    RectangleOnRectangleAngled,
    Gearshape,
    LockShield,
    ArrowDownCircle,
    Keyboard,
};

/// Where symbols become pictures. They are drawn as vectors at the device's own pixels, crisp at every scale. Thread:
/// main.
namespace Icons {

/// The resource that holds the symbol's SVG.
[[nodiscard]] QString resource(Symbol symbol);

/// Draws the symbol in `color`, as large as fits into the middle of `bounds`.
void paint(QPainter& painter, const QRectF& bounds, Symbol symbol, const QColor& color);

/// The symbol in the colour that the role has in the application's palette at the moment of drawing.
[[nodiscard]] QIcon icon(Symbol symbol, Role role);

/// The application in the desktop's tray, with a red dot while it records. Brings its own background, so that it shows
/// on light and dark panels, as pixmaps of 16 to 48 pixels.
[[nodiscard]] QIcon trayIcon(bool recording);

} // namespace Icons
} // namespace quillbox
