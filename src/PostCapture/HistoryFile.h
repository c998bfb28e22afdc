#pragma once

#include "PostCapture/ClipEntry.h"

#include <QByteArray>

#include <optional>
#include <span>
#include <vector>

namespace quillbox {

/// The format of "history.json": an array of objects, one a clip, with the keys "id", "date", "format", "preset",
/// "outputPath", "byteCount", "durationSeconds", "width" and "height" in that order. What is absent has no key. Dates
/// are RFC 3339 in UTC with whole seconds and a Z, ids upper-case UUIDs. Stateless; thread: any.
namespace HistoryFile {

/// @return UTF-8, indented by two spaces, ending in a line feed.
[[nodiscard]] QByteArray encode(std::span<const ClipEntry> entries);

/// @return The entries in the order of the file; none when any part of it is not as the format demands. The optional
///         keys may be missing or null, and keys of other names are passed over.
[[nodiscard]] std::optional<std::vector<ClipEntry>> decode(const QByteArray& bytes);

} // namespace HistoryFile
} // namespace quillbox
