#include "Views/Card.h"

#include "Views/Theme.h"

#include <QEvent>
#include <QPainter>
#include <QStyleOptionGroupBox>

namespace quillbox {

Card::Card(const QString& title, QWidget* parent)
    : QGroupBox(title, parent)
{
    setFont(Theme::font(TextStyle::Headline));
}

void Card::paintEvent(QPaintEvent* /*event*/)
{
    // The style decides where title, frame and contents lie; only the look is ours.
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    const auto part = [&](QStyle::SubControl control) {
        return style()->subControlRect(QStyle::CC_GroupBox, &option, control, this);
    };
    const Theme theme(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme.divider(), 1));
    painter.setBrush(theme.raised());
    painter.drawRoundedRect(QRectF(part(QStyle::SC_GroupBoxFrame)).adjusted(0.5, 0.5, -0.5, -0.5),
        Theme::controlRadius + 2, Theme::controlRadius + 2);
    painter.setPen(theme.color(Role::Primary));
    painter.drawText(part(QStyle::SC_GroupBoxLabel), static_cast<int>(Qt::AlignVCenter | Qt::TextDontClip), title());
}

void Card::changeEvent(QEvent* event)
{
    QGroupBox::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::ApplicationFontChange) {
        const QFont wanted = Theme::font(TextStyle::Headline);
        if (font() != wanted)
            setFont(wanted);
    }
}

Divider::Divider(QWidget* parent)
    : QWidget(parent)
{
    setFixedHeight(1);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Divider::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), Theme(palette()).divider());
}

} // namespace quillbox
