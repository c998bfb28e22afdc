#pragma once

#include "Views/Icons.h"

#include <QPushButton>

#include <optional>

namespace quillbox {

/// A button in the look of the panel. Space and Return press it.
class FlatButton : public QPushButton {
    Q_OBJECT

public:
    enum class Kind {
        Prominent, ///< filled with the accent colour, as wide as it gets: the one thing to do here
        Small,     ///< a bordered button with small text
        Link,      ///< small text in the accent colour
        Symbol,    ///< a symbol alone; its label is the help text
    };

    /// @param label  Plain text: an ampersand is one.
    FlatButton(Kind kind, const QString& label, std::optional<Symbol> symbol = std::nullopt, QWidget* parent = nullptr);

    [[nodiscard]] Kind kind() const { return m_kind; }
    [[nodiscard]] const QString& label() const { return m_label; }
    [[nodiscard]] std::optional<Symbol> symbol() const { return m_symbol; }
    void setLabel(const QString& label, std::optional<Symbol> symbol);

    /// Whether a press does nothing for now, which its look says; it can be pressed all the same. At first it does
    /// something.
    void setIdle(bool isIdle);
    [[nodiscard]] bool isIdle() const { return m_isIdle; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] QColor fill(const Theme& theme) const;
    [[nodiscard]] Role textRole() const;

    Kind m_kind;
    QString m_label;
    std::optional<Symbol> m_symbol;
    bool m_isIdle = false;
};

} // namespace quillbox
