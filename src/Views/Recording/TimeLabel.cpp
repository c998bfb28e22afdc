#include "Views/Recording/TimeLabel.h"

#include <QPainter>

#include <algorithm>

namespace quillbox {

TimeLabel::TimeLabel(const RecordingClock& clock, TextStyle style, Role role, QWidget* parent)
    : TextLabel(QString(), style, role, Overflow::None, parent)
    , m_clock(clock)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&clock, &RecordingClock::changed, this, &TimeLabel::showTime);
    showTime();
}

void TimeLabel::showTime()
{
    setText(RecordingClock::text(m_clock.elapsed()));
}

/// How wide a character's place is.
int TimeLabel::cell(QChar character) const
{
    const QFontMetrics metrics = fontMetrics();
    if (!character.isDigit())
        return metrics.horizontalAdvance(character);
    int widest = 0;
    for (char digit = '0'; digit <= '9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QLatin1Char(digit)));
    return widest;
}

QSize TimeLabel::sizeHint() const
{
    int width = 0;
    for (const QChar character : text())
        width += cell(character);
    return QSize(width, fontMetrics().height());
}

void TimeLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(Theme(palette()).color(role()));
    int left = std::max(0, width() - sizeHint().width()); // the last digit stays where it is
    for (const QChar character : text()) {
        const int place = cell(character);
        painter.drawText(QRect(left, 0, place, height()), Qt::AlignCenter, character);
        left += place;
    }
}

} // namespace quillbox

#include "moc_TimeLabel.cpp"
