#pragma once

#include "Platform/Mailbox.h"
#include "PostCapture/ClipEntry.h"
#include "PostCapture/HistoryMirror.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace quillbox {

/// The clips made lately, newest first, mirrored to a file. Never touches the clips themselves. Nothing here reports an
/// error: a list that can't be written is still the list. Several processes may have the same file: what one records,
/// the others keep. The file is read in the caller's thread when this is made. It is written by `FileWorker`: usually
/// it has been once a change returns, and what others have done meanwhile is in the list; where it takes longer, that
/// follows. Thread: main.
class HistoryStore : public QObject {
    Q_OBJECT

public:
    /// How many clips are kept.
    static constexpr std::int64_t cap = 20;

    /// "history.json" in the folder "Quillbox" of the user's data folder, which is created if needed.
    /// @pre the user has a data folder; without one the process ends.
    [[nodiscard]] static QString defaultURL();

    /// Reads the list: as it stands in the file, however long. No file gives an empty list, and so does one that can't
    /// be understood; its bytes are then kept beside it as "history.corrupt.json".
    /// @param fileURL  A path; none for `defaultURL()`.
    explicit HistoryStore(std::optional<QString> fileURL = std::nullopt, QObject* parent = nullptr);
    /// Waits until the file is written, for five seconds at most.
    ~HistoryStore() override;

    [[nodiscard]] const std::vector<ClipEntry>& entries() const { return m_entries; }
    [[nodiscard]] const QString& fileURL() const { return m_fileURL; }

    /// Puts `entry` in front, lets go of all but the first `cap` entries, and writes the file.
    void record(ClipEntry entry);
    /// Forgets all clips and writes the file.
    void clear();
    /// Forgets the clips of that identity and writes the file.
    void remove(const QUuid& id);
    /// Puts `older` behind what there is, lets go of all but the first `cap` entries, and writes the file.
    void restore(const std::vector<ClipEntry>& older);

Q_SIGNALS:
    /// Announced before entries() becomes `next`.
    void entriesAboutToChange(const std::vector<quillbox::ClipEntry>& next);
    /// Announced after entries() has changed.
    void entriesChanged();

private:
    void change(HistoryMirror::Change change);
    void write(HistoryMirror::Change change);
    void takeWritten();
    void setEntries(std::vector<ClipEntry> next);

    std::shared_ptr<HistoryMirror> m_mirror; // the worker's
    QString m_fileURL;
    std::vector<ClipEntry> m_entries;
    Mailbox<std::vector<ClipEntry>> m_written;
    std::int64_t m_unwritten = 0; // changes that are on their way to the file
};

} // namespace quillbox
