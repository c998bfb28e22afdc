#include "Views/Recording/StopControl.h"

#include "App/Workflow/CurrentCoordinator.h"
#include "Views/Controls/FlatButton.h"
#include "Views/Controls/SymbolLabel.h"
#include "Views/Controls/TextLabel.h"
#include "Views/Recording/TimeLabel.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace quillbox {

StopControl::StopControl(CurrentCoordinator& coordinator, QWidget* parent)
    : QWidget(parent,
        Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::X11BypassWindowManagerHint
            | Qt::WindowDoesNotAcceptFocus)
    , m_lines(new QVBoxLayout(this))
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(tr("Recording — Quillbox"));
    m_lines->setContentsMargins(Theme::spacing, Theme::tightSpacing, Theme::tightSpacing, Theme::tightSpacing);
    m_lines->setSpacing(Theme::tightSpacing);
    auto* row = new QHBoxLayout;
    m_lines->addLayout(row);
    row->setSpacing(Theme::spacing);
    auto* stop = new FlatButton(FlatButton::Kind::Prominent, tr("Stop & Copy"), Symbol::StopCircleFill, this);
    stop->setFocusPolicy(Qt::NoFocus); // the keyboard belongs to what is recorded
    connect(stop, &FlatButton::clicked, &coordinator, &CurrentCoordinator::stop);
    row->addWidget(new SymbolLabel(Symbol::RecordCircle, Role::Red, Theme::symbolSize, this));
    auto* time = new TimeLabel(coordinator.recordingClock(), TextStyle::Headline, Role::Primary, this);
    time->setMinimumWidth(time->fontMetrics().horizontalAdvance(QStringLiteral("00:00"))); // as it becomes
    row->addWidget(time);
    row->addWidget(stop);
}

void StopControl::setHint(const QString& text)
{
    m_lines->addWidget(new TextLabel(text, TextStyle::Caption, Role::Secondary, TextLabel::Overflow::None, this));
}

bool StopControl::appear(const QRect& region, const std::vector<QRect>& screens)
{
    const auto corner = place(sizeHint(), region, screens);
    if (!corner)
        return false;
    setFixedSize(sizeHint());
    move(*corner);
    show();
    return true;
}

std::optional<QPoint> StopControl::place(const QSize& size, const QRect& region, const std::vector<QRect>& screens)
{
    const QRect kept = region.adjusted(-distance, -distance, distance, distance);
    for (const QRect& screen : screens) {
        const int right = screen.left() + screen.width() - size.width();
        const int bottom = screen.top() + screen.height() - size.height();
        const int x = std::max(screen.left(), std::min(region.left() + region.width() - size.width(), right));
        const int y = std::max(screen.top(), std::min(region.top(), bottom));
        const std::array corners{QPoint(x, kept.bottom() + 1), QPoint(x, kept.top() - size.height()),
            QPoint(kept.right() + 1, y), QPoint(kept.left() - size.width(), y), screen.topLeft()};
        for (const QPoint corner : corners) {
            const QRect wished(corner, size);
            if (screen.contains(wished) && !wished.intersects(kept))
                return corner;
        }
    }
    return std::nullopt;
}

void StopControl::paintEvent(QPaintEvent* /*event*/)
{
    const Theme theme(palette());
    QPainter painter(this);
    Theme::drawFrame(painter, rect(), 0, theme.border(), theme.surface());
}

} // namespace quillbox

#include "moc_StopControl.cpp"
