#include "Views/Icons.h"

#include <QCache>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>
#include <utility>

// Resources of a static library are dropped by the linker unless someone asks for them; a macro for the global
// namespace.
static void ensureResources()
{
    Q_INIT_RESOURCE(quillbox_icons);
}

namespace quillbox {
namespace {

QString trayResource(bool recording)
{
    return recording ? QStringLiteral(":/quillbox/icons/tray-recording.svg")
                     : QStringLiteral(":/quillbox/icons/tray.svg");
}

/// The symbol's drawing in the given colour. Few symbols appear in few colours, so the drawings are kept.
QSvgRenderer& drawing(Symbol symbol, const QColor& color)
{
    static QCache<std::pair<int, QRgb>, QSvgRenderer> drawings(64);
    const std::pair key(static_cast<int>(symbol), color.rgb());
    if (QSvgRenderer* known = drawings.object(key))
        return *known;
    ensureResources();
    QFile file(Icons::resource(symbol));
    (void)file.open(QIODevice::ReadOnly); // part of the program: a test opens each
    auto* made = new QSvgRenderer(file.readAll().replace("\"#000\"", '"' + color.name().toLatin1() + '"'));
    drawings.insert(key, made);
    return *made;
}

/// `bounds` moved by less than a pixel so that it starts on a pixel of the device.
QRectF snapped(const QPainter& painter, const QRectF& bounds)
{
    const QTransform toDevice = painter.deviceTransform();
    const QPointF corner = toDevice.map(bounds.topLeft());
    return QRectF(toDevice.inverted().map(QPointF(std::round(corner.x()), std::round(corner.y()))), bounds.size());
}

QPixmap transparentPixmap(const QSize& size)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

/// Asks for the role's colour at each drawing: follows the palette.
class SymbolEngine : public QIconEngine {
public:
    SymbolEngine(Symbol symbol, Role role)
        : m_symbol(symbol)
        , m_role(role)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const Theme theme(QGuiApplication::palette());
        Icons::paint(*painter, rect, m_symbol, theme.color(mode == QIcon::Disabled ? Role::Tertiary : m_role));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap result = transparentPixmap(size);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return result;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new SymbolEngine(m_symbol, m_role); }

private:
    Symbol m_symbol;
    Role m_role;
};

} // namespace

QString Icons::resource(Symbol symbol)
{
    const auto name = [symbol] {
        switch (symbol) {
        case Symbol::RectangleDashedBadgeRecord:
            return "rectangle.dashed.badge.record";
        case Symbol::InfoCircle:
            return "info.circle";
        case Symbol::RectangleDashed:
            return "rectangle.dashed";
        case Symbol::RecordCircle:
            return "record.circle";
        case Symbol::WandAndStars:
            return "wand.and.stars";
        case Symbol::CheckmarkCircleFill:
            return "checkmark.circle.fill";
        case Symbol::ExclamationmarkTriangleFill:
            return "exclamationmark.triangle.fill";
        case Symbol::StopCircleFill:
            return "stop.circle.fill";
        case Symbol::PhotoStack:
            return "photo.stack";
        case Symbol::Film:
            return "film";
        case Symbol::MagnifyingglassCircle:
            return "magnifyingglass.circle";
        case Symbol::RectangleOnRectangleAngled:
            return "rectangle.on.rectangle.angled";
        case Symbol::Gearshape:
            return "gearshape";
        case Symbol::LockShield:
            return "lock.shield";
        case Symbol::ArrowDownCircle:
            return "arrow.down.circle";
        case Symbol::Keyboard:
            return "keyboard";
        }
        return "";
    };
    ensureResources();
    return QStringLiteral(":/quillbox/icons/%1.svg").arg(QLatin1String(name()));
}

void Icons::paint(QPainter& painter, const QRectF& bounds, Symbol symbol, const QColor& color)
{
    const qreal side = std::min(bounds.width(), bounds.height());
    QRectF square(0, 0, side, side);
    square.moveCenter(bounds.center());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    drawing(symbol, color).render(&painter, snapped(painter, square));
    painter.restore();
}

QIcon Icons::icon(Symbol symbol, Role role)
{
    return QIcon(new SymbolEngine(symbol, role));
}

QIcon Icons::trayIcon(bool recording)
{
    ensureResources();
    QSvgRenderer renderer(trayResource(recording));
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 44, 48}) {
        QPixmap pixmap = transparentPixmap(QSize(side, side));
        QPainter painter(&pixmap);
        renderer.render(&painter, QRectF(0, 0, side, side));
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace quillbox
