#include "Views/Controls/Switch.h"

#include "Views/Controls/TextLabel.h"
#include "Views/Theme.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace quillbox {
namespace {

// Device-independent pixels.
constexpr int trackWidth = 24;
constexpr int trackHeight = 14;
constexpr int knobGap = 2;   // between the knob and the track's edge
constexpr int textGap = 6;   // between track and text
constexpr int ringInset = 3; // around both

} // namespace

Switch::Switch(const QString& label, QWidget* parent)
    : QCheckBox(withoutMnemonic(label), parent)
{
    setAccessibleName(label);
    setFont(Theme::font(TextStyle::Caption));
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Switch::sizeHint() const
{
    return QSize(trackWidth + textGap + fontMetrics().horizontalAdvance(accessibleName()) + 1 + 2 * ringInset,
        std::max(trackHeight, fontMetrics().height()) + 2 * ringInset);
}

void Switch::paintEvent(QPaintEvent* /*event*/)
{
    const Theme theme(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const QRectF content = QRectF(rect()).adjusted(ringInset, ringInset, -ringInset, -ringInset);

    QRectF track(content.left(), 0, trackWidth, trackHeight);
    track.moveTop(static_cast<int>(content.center().y() - track.height() / 2));
    if (mirrored)
        track.moveRight(content.right());
    const QColor fill = isChecked() ? theme.accentFill() : underMouse() ? theme.pressed() : theme.sunken();
    const QColor outline = isChecked() ? theme.accentFill() : theme.color(Role::Tertiary);
    Theme::drawFrame(painter, track, track.height() / 2, outline, fill);

    QRectF knob = track.adjusted(knobGap, knobGap, -knobGap, -knobGap);
    knob.setWidth(knob.height());
    if (isChecked() != mirrored)
        knob.moveRight(track.right() - knobGap);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.color(isChecked() ? Role::OnAccent : Role::Tertiary));
    painter.drawEllipse(knob);

    painter.setPen(theme.color(isChecked() || underMouse() ? Role::Primary : Role::Secondary));
    constexpr qreal besides = trackWidth + textGap;
    painter.drawText(mirrored ? content.adjusted(0, 0, -besides, 0) : content.adjusted(besides, 0, 0, 0),
        static_cast<int>((mirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter | Qt::TextSingleLine),
        accessibleName());
    if (Theme::showsFocus(*this))
        Theme::drawRing(painter, rect(), Theme::controlRadius, theme.color(Role::Accent));
}

void Switch::changeEvent(QEvent* event)
{
    QCheckBox::changeEvent(event);
    if (Theme::followFont(*this, TextStyle::Caption, *event))
        updateGeometry();
}

} // namespace quillbox

#include "moc_Switch.cpp"
