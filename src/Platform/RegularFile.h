#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quillbox::RegularFile {

/// Reads a file that somebody else may have put there. What is no regular file (a pipe, a device, a folder) is not
/// read, so that neither an endless one nor one that never answers holds the caller up. Waits for the disk; thread:
/// any.
/// @param maxBytes  A longer file is not read.
/// @return none where the file can't be read, or is not to be.
[[nodiscard]] std::optional<QByteArray> read(const QString& path, qint64 maxBytes);

} // namespace quillbox::RegularFile
