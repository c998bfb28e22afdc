#pragma once

#include <QByteArray>
#include <QFuture>
#include <QString>

#include <optional>

class QObject;

namespace quillbox::SavedClip {

/// The bytes of a saved clip, read as a whole: for a worker thread. @return none where the path is not that of a
/// regular file that begins as a GIF does and has a size that anybody would paste, 256 MB at most. Thread: any.
[[nodiscard]] std::optional<QByteArray> read(const QString& path);

/// Puts it on the clipboard, once a worker thread has read it. Thread: main.
/// @param context  Where it is gone by then, nothing is copied, and the future is cancelled.
/// @return whether there was a clip to copy
[[nodiscard]] QFuture<bool> copy(const QString& path, QObject& context);

} // namespace quillbox::SavedClip
