#include "Views/Controls/ProgressBar.h"

#include "Views/Theme.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quillbox {
namespace {

constexpr int thickness = 4; // device-independent pixels
constexpr int usualLength = 120;
constexpr int shortest = 40;

} // namespace

ProgressBar::ProgressBar(const QString& name, QWidget* parent)
    : QProgressBar(parent)
{
    setAccessibleName(name);
    setRange(0, 100);
    setValue(0);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ProgressBar::setFraction(double fraction)
{
    setValue(static_cast<int>(std::floor(std::clamp(fraction, 0.0, 1.0) * 100)));
}

QSize ProgressBar::sizeHint() const
{
    return QSize(usualLength, thickness);
}

QSize ProgressBar::minimumSizeHint() const
{
    return QSize(shortest, thickness);
}

void ProgressBar::paintEvent(QPaintEvent* /*event*/)
{
    const Theme theme(palette());
    const QRectF track = rect();
    const qreal radius = track.height() / 2;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.pressed());
    painter.drawRoundedRect(track, radius, radius);
    if (value() == minimum())
        return;
    QRectF done = track;
    done.setWidth(std::max(track.height(), track.width() * value() / maximum())); // at least a dot
    if (layoutDirection() == Qt::RightToLeft)
        done.moveRight(track.right());
    painter.setBrush(theme.color(Role::Accent));
    painter.drawRoundedRect(done, radius, radius);
}

} // namespace quillbox

#include "moc_ProgressBar.cpp"
