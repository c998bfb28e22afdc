#include "Capture/Region/MonitorNotice.h"

#include <QFontMetrics>
#include <QPainter>
#include <QScreen>

#include <algorithm>

namespace quillbox {
namespace {

constexpr int noticePadding = 14; // points
constexpr int pointerRoom = 12;   // points, between the line and the pointer

} // namespace

MonitorNotice::MonitorNotice(const QScreen& recordable)
    : QWidget(nullptr,
        Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::BypassWindowManagerHint
            | Qt::WindowDoesNotAcceptFocus)
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(tr("Recording is possible on %1 only. Drag there.").arg(recordable.name()));
    setAccessibleName(windowTitle());
    setFixedSize(sizeHint());
}

QRect MonitorNotice::place(const QPoint& pressed, const QRect& monitor) const
{
    const int right = monitor.left() + std::max(0, monitor.width() - width());
    const int bottom = monitor.top() + std::max(0, monitor.height() - height());
    const QPoint wished = pressed - QPoint(width() / 2, height() + pointerRoom);
    return {
        QPoint(std::clamp(wished.x(), monitor.left(), right), std::clamp(wished.y(), monitor.top(), bottom)), size()};
}

QSize MonitorNotice::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    return {metrics.horizontalAdvance(windowTitle()) + 2 * noticePadding, metrics.height() + noticePadding};
}

void MonitorNotice::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(24, 24, 27));
    painter.setPen(Qt::white);
    painter.drawText(rect(), static_cast<int>(Qt::AlignCenter | Qt::TextSingleLine), windowTitle());
}

} // namespace quillbox

#include "moc_MonitorNotice.cpp"
