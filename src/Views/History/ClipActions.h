#pragma once

#include "PostCapture/ClipEntry.h"

#include <QObject>

namespace quillbox {

class FileReveal;
class HistoryStore;

/// What a user can do with a clip of the history.
enum class ClipAction {
    Copy,
    Open,
    Show,
    Trash,
};

/// Carries it out. Thread: main.
class ClipActions : public QObject {
    Q_OBJECT

public:
    /// @pre Both outlive this object.
    ClipActions(HistoryStore& store, FileReveal& fileReveal, QObject* parent = nullptr);

    /// Does nothing with a clip that has no file. What is moved to the trash, or is not there any more, leaves the
    /// history. Copying ends later.
    void carryOut(ClipAction action, const ClipEntry& entry);

Q_SIGNALS:
    /// A sentence for the user.
    void failed(const QString& message);

private:
    void copy(const QString& path);
    void moveToTrash(const ClipEntry& entry);

    HistoryStore& m_store;
    FileReveal& m_fileReveal;
};

} // namespace quillbox
