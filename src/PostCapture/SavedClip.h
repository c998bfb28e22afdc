#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quillbox::SavedClip {

/// The bytes of a saved clip, read as a whole: for a worker thread. @return none where the path is not that of a
/// regular file that begins as a GIF does and has a size that anybody would paste, 256 MB at most. Thread: any.
[[nodiscard]] std::optional<QByteArray> read(const QString& path);

} // namespace quillbox::SavedClip
