#include "Views/History/EmptyState.h"

#include "Views/Controls/SymbolLabel.h"
#include "Views/Controls/TextLabel.h"

#include <QEvent>

#include <algorithm>
#include <array>
#include <cstddef>

namespace quillbox {
namespace {

constexpr int emptySymbolSize = 36;
constexpr int bottomInset = Theme::spacing;

} // namespace

EmptyState::EmptyState(Symbol symbol, const QString& title, const QString& description, QWidget* parent)
    : QWidget(parent)
    , m_symbol(new SymbolLabel(symbol, Role::Tertiary, emptySymbolSize, this))
    , m_title(new TextLabel(title, TextStyle::Headline, Role::Primary, TextLabel::Overflow::Wrap, this))
    , m_description(new TextLabel(description, TextStyle::Callout, Role::Secondary, TextLabel::Overflow::Wrap, this))
{
    m_title->setAlignment(Qt::AlignCenter);
    m_description->setAlignment(Qt::AlignCenter);
}

QSize EmptyState::sizeHint() const
{
    const auto title = m_title->sizeHint();
    const auto description = m_description->sizeHint();
    return QSize(std::max(title.width(), description.width()) + 2 * Theme::margin,
        m_symbol->sizeHint().height() + title.height() + description.height() + 2 * Theme::tightSpacing + bottomInset);
}

QSize EmptyState::minimumSizeHint() const
{
    const int widest = std::max(m_title->minimumSizeHint().width(), m_description->minimumSizeHint().width());
    return QSize(widest + 2 * Theme::margin, 0);
}

bool EmptyState::event(QEvent* event)
{
    const bool isHandled = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest) { // another font
        arrange();
        updateGeometry();
    }
    return isHandled;
}

void EmptyState::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void EmptyState::arrange()
{
    const int room = std::max(0, width() - 2 * Theme::margin);
    struct Part {
        QWidget* widget;
        int height;
        bool isShown = true;
    };
    std::array parts{Part{m_symbol, m_symbol->sizeHint().height()}, Part{m_title, m_title->heightForWidth(room)},
        Part{m_description, m_description->heightForWidth(room)}};
    const auto needed = [&parts] {
        int sum = bottomInset - Theme::tightSpacing; // spaces are between the parts
        for (const auto& part : parts)
            sum += part.isShown ? part.height + Theme::tightSpacing : 0;
        return sum;
    };
    constexpr std::array<std::size_t, 3> firstToGo{0, 2, 1};
    for (const std::size_t next : firstToGo) {
        if (needed() <= height())
            break;
        parts.at(next).isShown = false;
    }
    int top = std::max(0, (height() - needed()) / 2);
    for (const auto& part : parts) {
        part.widget->setVisible(part.isShown);
        if (!part.isShown)
            continue;
        const int width = part.widget == m_symbol ? part.height : room; // it is a square
        part.widget->setGeometry((this->width() - width) / 2, top, width, part.height);
        top += part.height + Theme::tightSpacing;
    }
}

} // namespace quillbox

#include "moc_EmptyState.cpp"
