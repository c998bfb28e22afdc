#include "Views/PanelPlacement.h"

#include <algorithm>

namespace quillbox {
namespace {

/// Start of something `length` long that wants to be at `wished`, kept between two edges; too long, it starts at the
/// first.
int within(int wished, int length, int first, int last)
{
    return std::max(first, std::min(wished, last - length));
}

} // namespace

QRect PanelPlacement::place(const QSize& size, const QRect& anchor, const QRect& available, const QRect& screen)
{
    const int left = available.left() + gap;
    const int top = available.top() + gap;
    const int right = available.left() + available.width() - gap;
    const int bottom = available.top() + available.height() - gap;
    QPoint wished(right - size.width(), top);
    if (anchor.isEmpty()) {
        if (screen.bottom() - available.bottom() > available.top() - screen.top())
            wished.setY(bottom - size.height());
    } else {
        wished.setX(anchor.center().x() - size.width() / 2);
        wished.setY(
            anchor.center().y() < screen.center().y() ? anchor.bottom() + 1 + gap : anchor.top() - gap - size.height());
    }
    return QRect(
        QPoint(within(wished.x(), size.width(), left, right), within(wished.y(), size.height(), top, bottom)), size);
}

} // namespace quillbox
