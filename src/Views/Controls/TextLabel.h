#pragma once

#include "Views/Theme.h"

#include <QLabel>

namespace quillbox {

/// Plain text, never markup, in a style and the colour of a role.
class TextLabel : public QLabel {
    Q_OBJECT

public:
    /// What happens to a text that is wider than the label.
    enum class Overflow {
        None,        ///< the label is never narrower than its one line
        Wrap,        ///< goes on in the next line, if need be in the middle of a word
        ElideMiddle, ///< one line; its middle gives way to "…"
    };

    TextLabel(
        const QString& text, TextStyle style, Role role, Overflow overflow = Overflow::None, QWidget* parent = nullptr);

    [[nodiscard]] TextStyle textStyle() const { return m_style; }
    [[nodiscard]] Role role() const { return m_role; }
    [[nodiscard]] Overflow overflow() const { return m_overflow; }
    void setRole(Role role);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] QSize oneLine() const;

    TextStyle m_style;
    Role m_role;
    Overflow m_overflow;
};

/// `text` as a button shows it letter by letter, where an ampersand alone would mark the key that presses it.
[[nodiscard]] QString withoutMnemonic(QString text);

/// `text` as a tooltip that shows it letter by letter, whatever markup it resembles.
[[nodiscard]] QString plainToolTip(const QString& text);

} // namespace quillbox
