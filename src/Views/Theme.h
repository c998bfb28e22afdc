#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

class QEvent;
class QPainter;
class QRectF;
class QWidget;

namespace quillbox {

/// What a text or a symbol means; the theme knows its colour.
enum class Role {
    Primary,
    Secondary, ///< at least 4.5:1 against the surface
    Tertiary,  ///< at least 3:1 against the surface
    Accent,
    Red,
    Green,
    Amber,
    OnAccent, ///< on a filled accent-coloured button
};

/// The sizes of text, relative to the desktop's own.
enum class TextStyle {
    Headline,
    Body,
    Callout,
    Caption,
    SmallCaption,
    Monospaced, ///< as large as Body
};

/// The colours of the views, derived from a palette, so that they suit the desktop in light and dark. A value.
class Theme {
public:
    explicit Theme(const QPalette& palette);

    /// Light text on a dark window.
    [[nodiscard]] bool isDark() const { return m_dark; }
    [[nodiscard]] QColor color(Role role) const;
    [[nodiscard]] QColor surface() const { return m_surface; } ///< behind everything
    [[nodiscard]] QColor raised() const { return m_raised; }   ///< of cards and of the chosen segment
    [[nodiscard]] QColor sunken() const { return m_sunken; }   ///< of the groove that segments lie in
    [[nodiscard]] QColor hovered() const { return m_hovered; } ///< under the pointer
    [[nodiscard]] QColor pressed() const { return m_pressed; }
    [[nodiscard]] QColor border() const { return m_border; } ///< around controls and windows
    [[nodiscard]] QColor divider() const { return m_divider; }
    [[nodiscard]] QColor accentFill() const { return m_accentFill; } ///< carries Role::OnAccent at 4.5:1 or more

    /// The desktop's font in the size and weight of `style`.
    [[nodiscard]] static QFont font(TextStyle style);
    /// To be called from `changeEvent`: keeps a widget's text in its style when the desktop's font changes.
    /// @return whether the font may have changed, and with it the size that the widget asks for
    static bool followFont(QWidget& widget, TextStyle style, const QEvent& event);
    /// WCAG 2 contrast of two opaque colours, 1…21.
    [[nodiscard]] static double contrast(const QColor& one, const QColor& other);
    /// Whether `widget` has the keyboard and the user works with it: a pointer alone shows no ring.
    [[nodiscard]] static bool showsFocus(const QWidget& widget);
    /// Fills `bounds` and draws a line of one pixel just inside them.
    static void drawFrame(
        QPainter& painter, const QRectF& bounds, qreal radius, const QColor& line, const QColor& fill);
    /// The ring that marks what has the keyboard, just inside `bounds`.
    static void drawRing(QPainter& painter, const QRectF& bounds, qreal radius, const QColor& color);

    // Lengths in device-independent pixels.
    static constexpr int margin = 16;       ///< around the parts of a window
    static constexpr int spacing = 10;      ///< between unrelated things
    static constexpr int tightSpacing = 6;  ///< between things that belong together
    static constexpr int symbolSize = 16;   ///< of symbols beside text
    static constexpr int controlRadius = 6; ///< of corners of controls
    static constexpr int panelRadius = 12;  ///< of the corners of the panel

private:
    bool m_dark;
    QColor m_surface, m_raised, m_sunken, m_hovered, m_pressed, m_border, m_divider;
    QColor m_primary, m_secondary, m_tertiary, m_accent, m_accentFill, m_onAccent, m_red, m_green, m_amber;
};

} // namespace quillbox
