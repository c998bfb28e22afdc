#pragma once

#include <QString>

namespace quillbox {

/// The last part of a path as a person is shown it: in place of characters that can't be seen, or that turn around
/// what stands beside them, there is U+FFFD.
/// @see Unicode Technical Report #36, "Bidirectional Text Spoofing"
[[nodiscard]] QString shownName(const QString& path);

} // namespace quillbox
