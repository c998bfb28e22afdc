#include "Capture/Region/SelectionWindow.h"

#include "Capture/Region/ScreenBackdrop.h"
#include "Capture/Region/SelectionGeometry.h"
#include "Platform/WindowSystem.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillbox {
namespace {

constexpr double lineWidth = 1.5;   // points
constexpr double edgeWidth = 1;     // points, of the line around the selection's own
constexpr double tagPadding = 6;    // points
constexpr double hintPadding = 14;  // points
constexpr double hintPlace = 0.125; // of the height, from the top
constexpr double tagDistance = 8;   // points, from the selection

/// Whether windows may go past the window manager: it would animate the overlay, or keep it below panels.
bool managesItself()
{
    return toolkitWindowSystem() != WindowSystem::Wayland;
}

Qt::WindowFlags windowKind()
{
    const Qt::WindowFlags kind = Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
    return managesItself() ? kind | Qt::BypassWindowManagerHint : kind;
}

/// Of a line beside one in `color`: one of the two is seen on any picture.
QColor edgeOf(const QColor& color)
{
    constexpr int middleGray = 128;
    return qGray(color.rgb()) < middleGray ? Qt::white : Qt::black;
}

RegionMath::Point pointOf(QPointF position)
{
    return {position.x(), position.y()};
}

} // namespace

SelectionWindow::SelectionWindow(const QRect& screenFrame, QPixmap backdrop, ResultCallback onResult)
    : QWidget(nullptr, windowKind())
    , m_onResult(std::move(onResult))
    , m_backdrop(std::move(backdrop))
{
    setObjectName(QStringLiteral("SelectionWindow"));
    setWindowTitle(tr("Select a region"));
    setAccessibleName(windowTitle());
    setAttribute(m_backdrop.isNull() ? Qt::WA_TranslucentBackground : Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setGeometry(screenFrame);
    if (!managesItself())
        setFixedSize(screenFrame.size()); // tiling compositors make no room for such a window among the others
}

SelectionWindow::~SelectionWindow() = default;

void SelectionWindow::makeKeyAndOrderFront()
{
    if (!managesItself()) {
        showFullScreen();
        activateWindow(); // where the compositor wants to be asked for the keyboard
        return;
    }
    show();
    raise();
    activateWindow();
    grabKeyboard(); // the focus alone could be taken away
    if (QGuiApplication::screens().size() > 1)
        grabMouse(); // a press on another monitor is told that it is on the wrong one
}

void SelectionWindow::withdraw()
{
    if (std::exchange(m_isFinished, true))
        return;
    m_onResult = {};
    hide();
    deleteLater();
}

void SelectionWindow::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && !m_startPoint && !rect().contains(event->position().toPoint())) {
        m_isPressElsewhere = true;
        Q_EMIT pressedElsewhere(event->globalPosition().toPoint());
        return;
    }
    if (event->button() == Qt::LeftButton && !m_startPoint)
        m_startPoint = event->position();
    update(hintTag().toAlignedRect());
}

void SelectionWindow::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_startPoint || m_isFinished)
        return;
    const QRect before = drawnArea();
    m_selection = QRectF(*m_startPoint, event->position()).normalized();
    update(drawnArea().united(before));
}

void SelectionWindow::mouseReleaseEvent(QMouseEvent* event)
{
    const bool isCancelled = event->button() == Qt::RightButton;
    if (!isCancelled && (event->button() != Qt::LeftButton || std::exchange(m_isPressElsewhere, false)))
        return;
    if (isCancelled || !m_startPoint || QWidget::screen() == nullptr) {
        finish(std::nullopt);
        return;
    }
    const QSizeF bounds(size());
    finish(SelectionGeometry::selected(
        pointOf(*m_startPoint), pointOf(event->position()), {bounds.width(), bounds.height()}));
}

void SelectionWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        finish(std::nullopt);
    event->accept(); // no key goes anywhere else
}

void SelectionWindow::closeEvent(QCloseEvent* event)
{
    finish(std::nullopt); // somebody else wants the window gone: that is a cancel
    event->accept();      // a window that refuses would keep the application from quitting
}

void SelectionWindow::finish(std::optional<CaptureRegion> region)
{
    if (std::exchange(m_isFinished, true))
        return;
    if (managesItself()) {
        releaseKeyboard();
        releaseMouse();
    }
    // Without an own picture: a compositor that fades windows out has nothing to fade. But where it can't be kept from
    // that, what is left is told from the screen itself only if it is dimmed.
    if (managesItself() || !region)
        repaint();
    hide();
    Q_EMIT finished();
    ScreenBackdrop::waitUntilApplied();
    deleteLater();
    if (const auto onResult = std::exchange(m_onResult, {}))
        onResult(region);
}

void SelectionWindow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    if (m_isFinished && m_backdrop.isNull()) {
        painter.fillRect(rect(), Qt::transparent);
        return;
    }
    if (m_backdrop.isNull())
        painter.fillRect(rect(), QColor::fromRgbF(0, 0, 0, dimming));
    else
        painter.drawPixmap(rect(), m_backdrop);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (m_isFinished)
        return;
    if (!m_backdrop.isNull())
        painter.fillRect(rect(), QColor::fromRgbF(0, 0, 0, dimming));
    if (!m_startPoint)
        drawTag(painter, hintTag(), hintText());
    else if (!m_selection.isNull())
        drawSelection(painter);
}

void SelectionWindow::drawTag(QPainter& painter, const QRectF& tag, const QString& text)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(24, 24, 27, 220));
    painter.drawRoundedRect(tag, tagPadding, tagPadding);
    painter.setPen(Qt::white);
    painter.drawText(tag, Qt::AlignCenter, text);
}

QColor SelectionWindow::accentColor()
{
    return QGuiApplication::palette().color(QPalette::Highlight);
}

void SelectionWindow::drawSelection(QPainter& painter) const
{
    const auto accent = accentColor();
    auto fill = accent;
    fill.setAlphaF(fillOpacity);
    painter.setRenderHint(QPainter::Antialiasing);
    const double beside = (lineWidth + edgeWidth) / 2;
    painter.setPen(QPen(edgeOf(accent), edgeWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(m_selection.adjusted(-beside, -beside, beside, beside));
    painter.setPen(QPen(accent, lineWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(fill);
    painter.drawRect(m_selection);
    drawTag(painter, sizeTag(), sizeText());
}

QString SelectionWindow::hintText()
{
    return tr("Drag to record · Esc cancels");
}

/// In the middle of the upper part, where a screen's own bars are not.
QRectF SelectionWindow::hintTag() const
{
    const QFontMetricsF metrics(font());
    const QSizeF extent(metrics.horizontalAdvance(hintText()) + 2 * hintPadding, metrics.height() + hintPadding);
    return {{(width() - extent.width()) / 2, height() * hintPlace}, extent};
}

QString SelectionWindow::sizeText() const
{
    const auto region = RegionMath::rect(pointOf(m_selection.topLeft()), pointOf(m_selection.bottomRight()),
        {QSizeF(size()).width(), QSizeF(size()).height()});
    return QStringLiteral("%1 × %2").arg(region.width).arg(region.height);
}

/// Below the selection's right end, or inside it where there is no room below.
QRectF SelectionWindow::sizeTag() const
{
    const QFontMetricsF metrics(font());
    const QSizeF extent(metrics.horizontalAdvance(sizeText()) + 2 * tagPadding, metrics.height() + tagPadding);
    const QRectF whole(rect());
    const auto visible = m_selection.intersected(whole);
    QPointF corner(visible.right() - extent.width(), visible.bottom() + tagDistance);
    if (corner.y() + extent.height() > whole.bottom())
        corner.ry() = visible.bottom() - tagDistance - extent.height();
    corner.rx() = std::clamp(corner.x(), 0.0, std::max(0.0, whole.width() - extent.width()));
    corner.ry() = std::max(0.0, corner.y());
    return {corner, extent};
}

QRect SelectionWindow::drawnArea() const
{
    if (m_selection.isNull())
        return {};
    const double margin = lineWidth + edgeWidth + 1;
    return m_selection.adjusted(-margin, -margin, margin, margin).united(sizeTag()).toAlignedRect();
}

} // namespace quillbox

#include "moc_SelectionWindow.cpp"
