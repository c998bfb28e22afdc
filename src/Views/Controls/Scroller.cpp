#include "Views/Controls/Scroller.h"

#include <QEvent>
#include <QLayout>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace quillbox {
namespace {

constexpr int scrollBarWidth = 10; // device-independent pixels

} // namespace

Scroller::Scroller(QWidget* contents, std::function<int()> spareHeight, QWidget* parent)
    : QScrollArea(parent)
    , m_spareHeight(std::move(spareHeight))
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus); // what is in it has the keyboard, and scrolls into view
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // until there is something to scroll
    setWidget(contents);
    contents->setAutoFillBackground(false); // the window's surface shows through
    viewport()->setAutoFillBackground(false);
    style(*verticalScrollBar());
}

void Scroller::style(QScrollBar& bar)
{
    bar.setStyleSheet(QStringLiteral(
        "QScrollBar:vertical { background: transparent; width: %1px; margin: 0; }"
        "QScrollBar::handle:vertical { background: rgba(128, 128, 128, 190); border-radius: 3px; margin: 2px;"
        " min-height: 24px; }"
        "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
        "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }")
                          .arg(scrollBarWidth));
}

int Scroller::spareHeight() const
{
    return m_spareHeight ? m_spareHeight() : 0;
}

QSize Scroller::fittingSize(int usualWidth, int maxHeight) const
{
    auto* const column = widget()->layout();
    column->activate();
    const int narrowest = column->totalMinimumSize().width();
    const int width = std::max(usualWidth, narrowest);
    const QSize size(width, column->totalHeightForWidth(width));
    if (size.height() - spareHeight() <= maxHeight)
        return size;
    return QSize(std::max(usualWidth, narrowest + scrollBarWidth), size.height());
}

/// Gives the contents the room that there is, or all the room they would like to have and a scroll bar.
void Scroller::arrange()
{
    const auto* const column = widget()->layout();
    m_isScrolling = column->totalHeightForWidth(width()) - spareHeight() > height();
    setVerticalScrollBarPolicy(m_isScrolling ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    const int room = viewport()->width();
    widget()->resize(room, m_isScrolling ? column->totalHeightForWidth(room) : height());
}

void Scroller::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    arrange();
}

bool Scroller::eventFilter(QObject* watched, QEvent* event)
{
    const bool isHandled = QScrollArea::eventFilter(watched, event);
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        arrange();
        updateGeometry(); // the window may have to become larger, or can be smaller
    }
    return isHandled;
}

} // namespace quillbox

#include "moc_Scroller.cpp"
