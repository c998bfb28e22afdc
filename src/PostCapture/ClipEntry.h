#pragma once

#include <QDateTime>
#include <QString>
#include <QUuid>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

namespace quillbox {

/// One finished clip, as the history remembers it. A value, compared and hashed field by field. What is optional is
/// missing in files that were written with fewer keys.
struct ClipEntry {
    QUuid id = QUuid::createUuid();      ///< its identity in lists
    QDateTime date;                      ///< when it was made
    QString format;                      ///< the container, "GIF"
    QString preset;                      ///< title of the export preset: "Slack", "GitHub" or "Docs"
    std::optional<QString> outputPath{}; ///< the saved file; a path, not a URL
    std::optional<std::int64_t> byteCount{};
    std::optional<double> durationSeconds{}; ///< playing time
    std::optional<std::int64_t> width{};     ///< of the first captured frame, pixels; the GIF may be narrower
    std::optional<std::int64_t> height{};    ///< of the first captured frame, pixels

    friend bool operator==(const ClipEntry&, const ClipEntry&) = default;
};

} // namespace quillbox

template <> struct std::hash<quillbox::ClipEntry> {
    std::size_t operator()(const quillbox::ClipEntry& entry) const noexcept;
};
