#pragma once

#include "Views/Controls/FlatButton.h"
#include "Views/Controls/SegmentedPicker.h"
#include "Views/Controls/SymbolLabel.h"
#include "Views/Controls/TextLabel.h"

#include <QStringList>
#include <QWidget>

#include <algorithm>

namespace quillbox::test {

template <typename T> QList<T*> visible(const QWidget& root)
{
    QList<T*> found;
    for (T* each : root.findChildren<T*>())
        if (each->isVisibleTo(&root))
            found.append(each);
    return found;
}

/// The button that is called `label`, or none.
inline FlatButton* button(const QWidget& root, const QString& label)
{
    for (FlatButton* each : visible<FlatButton>(root))
        if (each->label() == label)
            return each;
    return nullptr;
}

/// The first label that reads `text`, or none.
inline TextLabel* label(const QWidget& root, const QString& text)
{
    for (TextLabel* each : visible<TextLabel>(root))
        if (each->text() == text)
            return each;
    return nullptr;
}

/// The segment that is called `name`.
inline Segment* segment(const QWidget& root, const QString& name)
{
    for (Segment* each : visible<Segment>(root))
        if (each->accessibleName() == name)
            return each;
    return nullptr;
}

/// The symbol next to `text`: the one with the same parent.
inline SymbolLabel* symbolBeside(const QWidget* text)
{
    return text ? text->parentWidget()->findChild<SymbolLabel*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
}

inline QStringList texts(const QWidget& root)
{
    QStringList all;
    for (const TextLabel* each : visible<TextLabel>(root))
        all.append(each->text());
    return all;
}

} // namespace quillbox::test
