#pragma once

#include "Views/Icons.h"

#include <QString>
#include <QWidget>

namespace quillbox {

class SymbolLabel;
class TextLabel;

/// What stands in the middle of a place that has nothing to show yet: a large symbol, a title and a sentence. In too
/// little room the symbol goes first, then the sentence, at last the title. Thread: main.
class EmptyState : public QWidget {
    Q_OBJECT

public:
    EmptyState(Symbol symbol, const QString& title, const QString& description, QWidget* parent = nullptr);

    /// Room for everything.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();

    SymbolLabel* m_symbol;
    TextLabel* m_title;
    TextLabel* m_description;
};

} // namespace quillbox
