#pragma once

#include "PostCapture/ClipEntry.h"

#include <QSet>
#include <QString>
#include <QUuid>

#include <functional>
#include <vector>

namespace quillbox {

/// The history's file, and the list as it is there, or would be could it be written. Several processes may have the
/// same file: what one adds, the others keep, and what one removes is gone. Nothing here reports an error: a list that
/// can't be written is still the list. Reads and writes in the caller's thread, which may take long; one at a time.
class HistoryMirror {
public:
    using Entries = std::vector<ClipEntry>; ///< newest first
    using Change = std::function<Entries(Entries)>;

    /// Reads the list, as `HistoryStore` does.
    explicit HistoryMirror(QString path);

    [[nodiscard]] const QString& path() const { return m_path; }
    [[nodiscard]] const Entries& entries() const { return m_entries; }

    /// Changes the list as it is by now, and writes it; other processes wait meanwhile.
    void apply(const Change& change);

private:
    void load();
    void save();
    void rememberFile();
    [[nodiscard]] Entries merged() const;

    QString m_path;
    Entries m_entries;
    QSet<QUuid> m_onFile; // those of them that were in the file when it was last read or written
};

} // namespace quillbox
