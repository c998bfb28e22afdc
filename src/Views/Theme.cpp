#include "Views/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QFontDatabase>
#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace quillbox {
namespace {

/// Relative luminance, 0…1, as WCAG 2 defines it.
double luminance(const QColor& color)
{
    const auto linear = [](float level) {
        const auto channel = static_cast<double>(level);
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// `share` of the way from one colour to the other, in whole steps of a screen's 8 bits.
QColor mix(const QColor& from, const QColor& to, double share)
{
    const auto between = [share](int a, int b) {
        return static_cast<int>(std::lround(a + (b - a) * share));
    };
    return QColor(between(from.red(), to.red()), between(from.green(), to.green()), between(from.blue(), to.blue()));
}

/// `color`, moved toward black or white, whichever is farther from `background`, until the contrast is reached.
QColor readable(const QColor& color, const QColor& background, double contrast)
{
    const QColor extreme
        = Theme::contrast(Qt::white, background) > Theme::contrast(Qt::black, background) ? Qt::white : Qt::black;
    for (int step = 0; step < 20; ++step) {
        const QColor candidate = mix(color, extreme, step / 20.0);
        if (Theme::contrast(candidate, background) >= contrast)
            return candidate;
    }
    return extreme;
}

} // namespace

Theme::Theme(const QPalette& palette)
{
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
    m_dark = window.lightnessF() < 0.5F;
    m_surface = m_dark ? window : mix(window, Qt::white, 0.6);
    m_primary = readable(text, m_surface, 7);
    m_raised = m_dark ? mix(m_surface, m_primary, 0.12) : QColor(Qt::white);
    // In dark themes the raised surface is the lighter one, where light text is harder to read.
    const QColor hardest = m_dark ? m_raised : m_surface;
    m_secondary = readable(mix(m_primary, m_surface, 0.32), hardest, 4.6);
    m_tertiary = readable(mix(m_primary, m_surface, 0.45), hardest, 3.2);
    m_sunken = mix(m_surface, m_primary, 0.07);
    m_hovered = mix(m_surface, m_primary, 0.06);
    m_pressed = mix(m_surface, m_primary, 0.13);
    m_border = mix(m_surface, m_primary, m_dark ? 0.24 : 0.18);
    m_divider = mix(m_surface, m_primary, m_dark ? 0.16 : 0.11);
    m_accent = readable(highlight, m_surface, 4.5);
    // White on the accent is what people know; a very light accent gets dark text instead.
    m_onAccent = contrast(Qt::white, highlight) >= 2.5 ? QColor(Qt::white) : QColor(0x10, 0x10, 0x10);
    m_accentFill = readable(highlight, m_onAccent, 4.6);
    m_red = readable(m_dark ? QColor(0xff, 0x5f, 0x57) : QColor(0xd9, 0x2c, 0x2c), m_surface, 4.6);
    m_green = readable(m_dark ? QColor(0x3c, 0xc8, 0x74) : QColor(0x1f, 0x9d, 0x4c), m_surface, 4.6);
    m_amber = readable(m_dark ? QColor(0xf5, 0xa6, 0x23) : QColor(0xb8, 0x6e, 0x00), m_surface, 4.6);
}

QColor Theme::color(Role role) const
{
    switch (role) {
    case Role::Primary:
        return m_primary;
    case Role::Secondary:
        return m_secondary;
    case Role::Tertiary:
        return m_tertiary;
    case Role::Accent:
        return m_accent;
    case Role::Red:
        return m_red;
    case Role::Green:
        return m_green;
    case Role::Amber:
        return m_amber;
    case Role::OnAccent:
        return m_onAccent;
    }
    return m_primary;
}

QFont Theme::font(TextStyle style)
{
    QFont font = QApplication::font();
    const auto scale = [&font](double factor) {
        // A desktop may give its font in points or in pixels; below these sizes nobody reads it.
        if (font.pointSizeF() > 0)
            font.setPointSizeF(std::max(font.pointSizeF() * factor, std::min(font.pointSizeF(), 7.5)));
        else
            font.setPixelSize(std::max(static_cast<int>(std::lround(font.pixelSize() * factor)), 10));
    };
    scale(1);
    font.setWeight(QFont::Weight(font.weight())); // said outright, or the parent's would apply
    switch (style) {
    case TextStyle::Headline:
        font.setWeight(QFont::DemiBold);
        break;
    case TextStyle::Body:
        break;
    case TextStyle::Callout:
        scale(0.95);
        break;
    case TextStyle::Caption:
        scale(0.9);
        break;
    case TextStyle::SmallCaption:
        scale(0.84);
        break;
    case TextStyle::Monospaced:
        font.setFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
        font.setStyleHint(QFont::Monospace);
        break;
    }
    return font;
}

double Theme::contrast(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

bool Theme::showsFocus(const QWidget& widget)
{
    return widget.hasFocus() && widget.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

bool Theme::followFont(QWidget& widget, TextStyle style, const QEvent& event)
{
    if (event.type() != QEvent::FontChange && event.type() != QEvent::ApplicationFontChange)
        return false;
    const QFont wanted = font(style);
    if (widget.font() != wanted)
        widget.setFont(wanted);
    return true;
}

void Theme::drawFrame(QPainter& painter, const QRectF& bounds, qreal radius, const QColor& line, const QColor& fill)
{
    painter.setPen(QPen(line, 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(bounds.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius); // a line is centred on its path
}

void Theme::drawRing(QPainter& painter, const QRectF& bounds, qreal radius, const QColor& color)
{
    constexpr qreal width = 2; // device-independent pixels
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(bounds.adjusted(width / 2, width / 2, -width / 2, -width / 2), radius - 1, radius - 1);
    painter.restore();
}

} // namespace quillbox
