#include "Views/Controls/SegmentedPicker.h"

#include "Views/Controls/TextLabel.h"

#include <QButtonGroup>
#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

namespace quillbox {
namespace {

constexpr int groove = 2; // between the frame and the segments

} // namespace

Segment::Segment(const QString& label, QWidget* parent)
    : QRadioButton(withoutMnemonic(label), parent)
{
    setAccessibleName(label);
    setFont(Theme::font(TextStyle::Callout));
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize Segment::sizeHint() const
{
    return QSize(fontMetrics().horizontalAdvance(accessibleName()) + 22, fontMetrics().height() + 12);
}

void Segment::paintEvent(QPaintEvent* /*event*/)
{
    const Theme theme(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr qreal radius = Theme::controlRadius - 1;
    if (isChecked()) {
        Theme::drawFrame(painter, rect(), radius, theme.border(), theme.raised());
    } else if (underMouse()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.pressed());
        painter.drawRoundedRect(rect(), radius, radius);
    }
    if (Theme::showsFocus(*this))
        Theme::drawRing(painter, rect(), radius, theme.color(Role::Accent));
    painter.setPen(theme.color(isChecked() ? Role::Primary : Role::Secondary));
    painter.drawText(rect(), static_cast<int>(Qt::AlignCenter | Qt::TextSingleLine), accessibleName());
}

void Segment::changeEvent(QEvent* event)
{
    QRadioButton::changeEvent(event);
    if (Theme::followFont(*this, TextStyle::Callout, *event))
        updateGeometry();
}

SegmentedPicker::SegmentedPicker(const QString& title, const std::vector<QString>& labels, QWidget* parent)
    : QWidget(parent)
    , m_group(new QButtonGroup(this))
{
    setAccessibleName(title);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(groove, groove, groove, groove);
    row->setSpacing(groove);
    int width = 0;
    for (const QString& label : labels) {
        auto* segment = new Segment(label, this);
        segment->setAccessibleDescription(title);
        m_group->addButton(segment, row->count());
        row->addWidget(segment, 1);
        width = std::max(width, segment->sizeHint().width());
    }
    for (QAbstractButton* segment : m_group->buttons())
        segment->setMinimumWidth(width); // all alike
    connect(m_group, &QButtonGroup::idToggled, this, [this](int index, bool on) {
        if (on)
            Q_EMIT chosen(index);
    });
}

int SegmentedPicker::choice() const
{
    return m_group->checkedId();
}

void SegmentedPicker::setChoice(int index)
{
    const QSignalBlocker silence(m_group);
    if (QAbstractButton* segment = m_group->button(index))
        segment->setChecked(true);
}

void SegmentedPicker::paintEvent(QPaintEvent* /*event*/)
{
    const Theme theme(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    Theme::drawFrame(painter, rect(), Theme::controlRadius + 1, theme.border(), theme.sunken());
}

} // namespace quillbox

#include "moc_SegmentedPicker.cpp"
