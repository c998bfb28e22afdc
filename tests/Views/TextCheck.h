#pragma once

#include <QStringList>

class QWidget;

namespace quillbox::test {

/// One sentence for each visible text below `root` that is cut off: a button, tab or label smaller than what it shows,
/// or a child that sticks out of its parent. Texts that may be elided are only asked for their height.
[[nodiscard]] QStringList clippedTexts(const QWidget& root);

} // namespace quillbox::test
