#include "Views/Controls/TabStrip.h"

#include "Views/Theme.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace quillbox {
namespace {

constexpr int symbolSize = 20;
constexpr int inset = 6;
constexpr int narrowestTab = 72;

} // namespace

TabStrip::TabStrip(QWidget* parent)
    : QTabBar(parent)
{
    setFont(Theme::font(TextStyle::Caption));
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(false);
    setElideMode(Qt::ElideNone);
}

QSize TabStrip::tabSizeHint(int index) const
{
    const QFontMetrics metrics = fontMetrics();
    return QSize(std::max(narrowestTab, metrics.horizontalAdvance(tabText(index)) + 1 + 4 * inset),
        inset + symbolSize + inset / 2 + metrics.height() + inset);
}

QSize TabStrip::sizeHint() const
{
    QSize size;
    for (int i = 0; i < count(); ++i) {
        const QSize tab = tabSizeHint(i);
        size = QSize(size.width() + tab.width(), std::max(size.height(), tab.height()));
    }
    return size;
}

void TabStrip::paintEvent(QPaintEvent* /*event*/)
{
    const Theme theme(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < count(); ++i) {
        const QRect tab = tabRect(i).intersected(rect());
        const bool current = i == currentIndex();
        painter.setPen(Qt::NoPen);
        if (current) {
            painter.setBrush(theme.sunken());
            painter.drawRoundedRect(tab, Theme::controlRadius, Theme::controlRadius);
            if (Theme::showsFocus(*this))
                Theme::drawRing(painter, tab, Theme::controlRadius, theme.color(Role::Accent));
        }
        const QRect box(tab.center().x() - symbolSize / 2, tab.top() + inset, symbolSize, symbolSize);
        tabIcon(i).paint(&painter, box);
        painter.setPen(theme.color(current ? Role::Primary : Role::Secondary));
        painter.drawText(tab.adjusted(0, inset + symbolSize + inset / 2, 0, -inset),
            static_cast<int>(Qt::AlignCenter | Qt::TextSingleLine), tabText(i));
    }
}

void TabStrip::changeEvent(QEvent* event)
{
    QTabBar::changeEvent(event);
    Theme::followFont(*this, TextStyle::Caption, *event);
}

} // namespace quillbox

#include "moc_TabStrip.cpp"
