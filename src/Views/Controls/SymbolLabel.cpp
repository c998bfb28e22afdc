#include "Views/Controls/SymbolLabel.h"

#include <QPainter>

namespace quillbox {

SymbolLabel::SymbolLabel(Symbol symbol, Role role, int side, QWidget* parent)
    : QWidget(parent)
    , m_symbol(symbol)
    , m_role(role)
    , m_side(side)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolLabel::setSymbol(Symbol symbol, Role role)
{
    m_symbol = symbol;
    m_role = role;
    update();
}

void SymbolLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    Icons::paint(painter, rect(), m_symbol, Theme(palette()).color(m_role));
}

} // namespace quillbox

#include "moc_SymbolLabel.cpp"
