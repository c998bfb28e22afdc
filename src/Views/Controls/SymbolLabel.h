#pragma once

#include "Views/Icons.h"

#include <QWidget>

namespace quillbox {

/// A symbol beside a text, in the colour of a role. Says nothing that the text does not say: screen readers skip it.
class SymbolLabel : public QWidget {
    Q_OBJECT

public:
    /// @param side  Device-independent pixels.
    SymbolLabel(Symbol symbol, Role role, int side, QWidget* parent = nullptr);

    [[nodiscard]] Symbol symbol() const { return m_symbol; }
    [[nodiscard]] Role role() const { return m_role; }
    void setSymbol(Symbol symbol, Role role);

    [[nodiscard]] QSize sizeHint() const override { return QSize(m_side, m_side); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Symbol m_symbol;
    Role m_role;
    int m_side;
};

} // namespace quillbox
