#include "Views/Controls/TextLabel.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace quillbox {
namespace {

constexpr int comfortableWidth = 280; // of a wrapped text that may choose, device-independent pixels
constexpr int narrowest = 48;         // of a text that can give way

/// Breaks the layout's text into lines of `width` and returns their height.
qreal breakLines(QTextLayout& layout, qreal width)
{
    QTextOption option(layout.textOption());
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    qreal height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, height));
        height += std::ceil(line.height());
    }
    layout.endLayout();
    return height;
}

/// A text layout's line separator is not the newline.
QString lines(QString text)
{
    return text.replace(QLatin1Char('\n'), QChar::LineSeparator);
}

} // namespace

TextLabel::TextLabel(const QString& text, TextStyle style, Role role, Overflow overflow, QWidget* parent)
    : QLabel(parent)
    , m_style(style)
    , m_role(role)
    , m_overflow(overflow)
{
    setTextFormat(Qt::PlainText);
    setFont(Theme::font(style));
    setText(text);
    const bool wraps = overflow == Overflow::Wrap;
    setWordWrap(wraps); // makes the height depend on the width
    QSizePolicy policy = sizePolicy();
    policy.setHorizontalPolicy(wraps ? QSizePolicy::Expanding : QSizePolicy::Preferred);
    setSizePolicy(policy);
}

void TextLabel::setRole(Role role)
{
    m_role = role;
    update();
}

QSize TextLabel::oneLine() const
{
    return QSize(fontMetrics().horizontalAdvance(text()) + 1, fontMetrics().height());
}

QSize TextLabel::sizeHint() const
{
    if (m_overflow != Overflow::Wrap)
        return oneLine();
    const int width = std::min(oneLine().width(), comfortableWidth);
    return QSize(width, heightForWidth(width));
}

QSize TextLabel::minimumSizeHint() const
{
    if (m_overflow == Overflow::None)
        return oneLine();
    return QSize(std::min(oneLine().width(), narrowest), oneLine().height());
}

int TextLabel::heightForWidth(int width) const
{
    if (m_overflow != Overflow::Wrap)
        return -1;
    QTextLayout layout(lines(text()), font());
    return std::max(static_cast<int>(breakLines(layout, width)), fontMetrics().height());
}

void TextLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(Theme(palette()).color(m_role));
    if (m_overflow != Overflow::Wrap) {
        const QString shown
            = m_overflow == Overflow::ElideMiddle ? fontMetrics().elidedText(text(), Qt::ElideMiddle, width()) : text();
        painter.drawText(rect(), static_cast<int>(alignment() | Qt::TextSingleLine), shown);
        return;
    }
    QTextLayout layout(lines(text()), font());
    QTextOption option(QStyle::visualAlignment(layoutDirection(), alignment()));
    option.setTextDirection(layoutDirection());
    layout.setTextOption(option);
    const qreal height = breakLines(layout, width());
    const bool centered = (alignment() & Qt::AlignVCenter) != 0;
    layout.draw(&painter, QPointF(0, centered ? std::max<qreal>(0, std::floor((this->height() - height) / 2)) : 0));
}

void TextLabel::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (Theme::followFont(*this, m_style, *event))
        updateGeometry();
}

QString withoutMnemonic(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString plainToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped()) : text;
}

} // namespace quillbox

#include "moc_TextLabel.cpp"
