#pragma once

#include <QByteArray>
#include <QUrl>

#include <optional>

class QMimeData;

namespace quillbox {

/// A clip as the toolkit's clipboard takes it: exactly the file's URL and, if given, its bytes as image/gif. The caller
/// owns the result.
[[nodiscard]] QMimeData* makeMimeData(const QUrl& fileURL, const std::optional<QByteArray>& gifData);

} // namespace quillbox
