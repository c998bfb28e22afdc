#include "Palettes.h"

namespace quillbox::test {
namespace {

QPalette palette(const QColor& window, const QColor& base, const QColor& text, const QColor& highlight)
{
    QPalette result(window, window); // buttons and shades follow from them
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        result.setColor(role, text);
    result.setColor(QPalette::Base, base);
    result.setColor(QPalette::ToolTipBase, base);
    result.setColor(QPalette::Highlight, highlight);
    result.setColor(QPalette::HighlightedText, Qt::white);
    return result;
}

} // namespace

QPalette lightPalette()
{
    return palette(QColor(0xef, 0xef, 0xef), Qt::white, Qt::black, QColor(0x30, 0x8c, 0xc6));
}

QPalette darkPalette()
{
    return palette(
        QColor(0x2a, 0x2a, 0x2e), QColor(0x1e, 0x1e, 0x20), QColor(0xee, 0xee, 0xf0), QColor(0x3d, 0x8b, 0xe0));
}

} // namespace quillbox::test
