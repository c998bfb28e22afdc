#include "Views/Controls/Card.h"

#include "Views/Controls/TextLabel.h"

#include <QPainter>
#include <QVBoxLayout>

namespace quillbox {

Card::Card(const QString& title, QWidget* parent)
    : QWidget(parent)
    , m_body(new QWidget(this))
{
    setAccessibleName(title);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Theme::tightSpacing);
    column->addWidget(new TextLabel(title, TextStyle::Headline, Role::Primary, TextLabel::Overflow::None, this));
    column->addWidget(m_body);
}

void Card::paintEvent(QPaintEvent* /*event*/)
{
    const Theme theme(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    Theme::drawFrame(painter, m_body->geometry(), Theme::controlRadius + 2, theme.divider(), theme.raised());
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

#include "moc_Card.cpp"
