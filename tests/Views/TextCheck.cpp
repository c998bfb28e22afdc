#include "TextCheck.h"

#include "Views/Controls/TextLabel.h"

#include <QAbstractButton>
#include <QScrollArea>
#include <QTabBar>

namespace quillbox::test {
namespace {

QSize needed(const QWidget& widget)
{
    if (const auto* label = qobject_cast<const TextLabel*>(&widget)) {
        switch (label->overflow()) {
        case TextLabel::Overflow::None:
            return label->sizeHint();
        case TextLabel::Overflow::Wrap:
            return QSize(0, label->heightForWidth(label->width()));
        case TextLabel::Overflow::ElideMiddle:
            return QSize(0, label->sizeHint().height());
        }
    }
    return widget.sizeHint();
}

bool scrolls(const QWidget& widget)
{
    const QWidget* viewport = widget.parentWidget();
    return viewport && qobject_cast<const QScrollArea*>(viewport->parentWidget());
}

QString text(const QSize& size)
{
    return QStringLiteral("%1×%2").arg(size.width()).arg(size.height());
}

} // namespace

QStringList clippedTexts(const QWidget& root)
{
    QStringList complaints;
    for (const QWidget* widget : root.findChildren<QWidget*>()) {
        if (!widget->isVisible())
            continue;
        const bool hasText = qobject_cast<const TextLabel*>(widget) || qobject_cast<const QAbstractButton*>(widget)
            || qobject_cast<const QTabBar*>(widget);
        const QString name = QLatin1String(widget->metaObject()->className()) + QStringLiteral(" \"")
            + (widget->accessibleName().isEmpty() ? widget->property("text").toString() : widget->accessibleName())
            + QLatin1Char('"');
        if (hasText && needed(*widget).boundedTo(widget->size()) != needed(*widget))
            complaints.append(name + QStringLiteral(" has ") + text(widget->size()) + QStringLiteral(" but needs ")
                + text(needed(*widget)));
        const QWidget* parent = widget->parentWidget();
        if (hasText && parent && !scrolls(*widget) && !parent->rect().contains(widget->geometry()))
            complaints.append(name + QStringLiteral(" sticks out of its parent"));
    }
    return complaints;
}

} // namespace quillbox::test
