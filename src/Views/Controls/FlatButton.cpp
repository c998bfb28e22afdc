#include "Views/Controls/FlatButton.h"

#include "Views/Controls/TextLabel.h"

#include <QEvent>
#include <QPainter>

#include <cmath>

namespace quillbox {
namespace {

constexpr int symbolGap = 8;      // between symbol and text
constexpr int bigSymbol = 20;     // of a button that is a symbol alone
constexpr int prominentInset = 9; // above and below the text, ring included
constexpr int smallInset = 6;

TextStyle textStyle(FlatButton::Kind kind)
{
    return kind == FlatButton::Kind::Prominent ? TextStyle::Headline : TextStyle::Caption;
}

int sideInset(FlatButton::Kind kind)
{
    switch (kind) {
    case FlatButton::Kind::Prominent:
        return 16;
    case FlatButton::Kind::Small:
        return 12;
    case FlatButton::Kind::Link:
        return 8;
    case FlatButton::Kind::Symbol:
        return 5;
    }
    return 0;
}

} // namespace

FlatButton::FlatButton(Kind kind, const QString& label, std::optional<Symbol> symbol, QWidget* parent)
    : QPushButton(parent)
    , m_kind(kind)
{
    setFont(Theme::font(textStyle(kind)));
    setAutoDefault(true); // Return presses it, as Space does
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(kind == Kind::Prominent ? QSizePolicy::Expanding : QSizePolicy::Fixed, QSizePolicy::Fixed);
    setLabel(label, symbol);
}

void FlatButton::setLabel(const QString& label, std::optional<Symbol> symbol)
{
    m_label = label;
    m_symbol = symbol;
    setAccessibleName(label);
    if (m_kind == Kind::Symbol)
        setToolTip(label);
    else
        setText(withoutMnemonic(label));
    updateGeometry();
    update();
}

void FlatButton::setIdle(bool isIdle)
{
    m_isIdle = isIdle;
    update();
}

QSize FlatButton::sizeHint() const
{
    if (m_kind == Kind::Symbol) {
        const int side = bigSymbol + 2 * sideInset(m_kind);
        return QSize(side, side);
    }
    const int symbolWidth = m_symbol ? Theme::symbolSize + symbolGap : 0;
    const int inset = m_kind == Kind::Prominent ? prominentInset : smallInset;
    return QSize(fontMetrics().horizontalAdvance(m_label) + 1 + symbolWidth + 2 * sideInset(m_kind),
        fontMetrics().height() + 2 * inset);
}

QColor FlatButton::fill(const Theme& theme) const
{
    if (m_isIdle)
        return theme.sunken();
    const bool hovered = underMouse() && isEnabled();
    if (m_kind == Kind::Prominent)
        return isDown() ? theme.accentFill().darker(118)
            : hovered   ? theme.accentFill().darker(108)
                        : theme.accentFill();
    if (isDown())
        return theme.pressed();
    if (hovered)
        return theme.hovered();
    return m_kind == Kind::Small ? theme.raised() : QColor(Qt::transparent);
}

Role FlatButton::textRole() const
{
    if (!isEnabled() || m_isIdle)
        return Role::Tertiary;
    switch (m_kind) {
    case Kind::Prominent:
        return Role::OnAccent;
    case Kind::Small:
        return Role::Primary;
    case Kind::Link:
        return Role::Accent;
    case Kind::Symbol:
        break;
    }
    return underMouse() ? Role::Primary : Role::Secondary;
}

void FlatButton::paintEvent(QPaintEvent* /*event*/)
{
    const Theme theme(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    const QRectF body = rect();
    if (m_kind == Kind::Small) {
        Theme::drawFrame(painter, body, Theme::controlRadius, theme.border(), fill(theme));
    } else {
        painter.setPen(Qt::NoPen);
        painter.setBrush(fill(theme));
        painter.drawRoundedRect(body, Theme::controlRadius, Theme::controlRadius);
    }
    if (Theme::showsFocus(*this) && m_kind == Kind::Prominent)
        Theme::drawRing(painter, body.adjusted(3, 3, -3, -3), Theme::controlRadius - 2,
            theme.color(m_isIdle ? Role::Accent : Role::OnAccent));
    else if (Theme::showsFocus(*this))
        Theme::drawRing(painter, body, Theme::controlRadius, theme.color(Role::Accent));

    const QColor ink = theme.color(textRole());
    if (m_kind == Kind::Symbol) {
        Icons::paint(painter, QRectF(body.center() - QPointF(bigSymbol, bigSymbol) / 2, QSizeF(bigSymbol, bigSymbol)),
            m_symbol.value_or(Symbol::InfoCircle), ink);
        return;
    }
    const int textWidth = fontMetrics().horizontalAdvance(m_label) + 1;
    const int symbolWidth = m_symbol ? Theme::symbolSize + symbolGap : 0;
    QRectF content(0, 0, symbolWidth + textWidth, height());
    content.moveCenter(body.center());
    content.moveLeft(std::floor(content.left()));
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    if (m_symbol) {
        const QRectF box(mirrored ? content.right() - Theme::symbolSize : content.left(), content.top(),
            Theme::symbolSize, content.height());
        Icons::paint(painter, box, *m_symbol, ink);
    }
    painter.setPen(ink);
    painter.drawText(mirrored ? content.adjusted(0, 0, -symbolWidth, 0) : content.adjusted(symbolWidth, 0, 0, 0),
        static_cast<int>(Qt::AlignCenter | Qt::TextSingleLine), m_label);
}

void FlatButton::changeEvent(QEvent* event)
{
    QPushButton::changeEvent(event);
    if (Theme::followFont(*this, textStyle(m_kind), *event))
        updateGeometry();
}

} // namespace quillbox

#include "moc_FlatButton.cpp"
