#include "Views/History/ClipActions.h"

#include "PostCapture/FileReveal.h"
#include "PostCapture/HistoryStore.h"
#include "PostCapture/SavedClip.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>

namespace quillbox {

ClipActions::ClipActions(HistoryStore& store, FileReveal& fileReveal, QObject* parent)
    : QObject(parent)
    , m_store(store)
    , m_fileReveal(fileReveal)
{
}

void ClipActions::carryOut(ClipAction action, const ClipEntry& entry)
{
    if (!entry.outputPath)
        return;
    switch (action) {
    case ClipAction::Copy:
        copy(*entry.outputPath);
        break;
    case ClipAction::Open:
        if (!QDesktopServices::openUrl(QUrl::fromLocalFile(*entry.outputPath)))
            Q_EMIT failed(tr("No program opens the clip."));
        break;
    case ClipAction::Show:
        m_fileReveal.reveal(*entry.outputPath);
        break;
    case ClipAction::Trash:
        moveToTrash(entry);
        break;
    }
}

void ClipActions::copy(const QString& path)
{
    SavedClip::copy(path, *this).then(this, [this](bool isCopied) {
        if (!isCopied)
            Q_EMIT failed(tr("The clip can't be read."));
    });
}

void ClipActions::moveToTrash(const ClipEntry& entry)
{
    // Where this folder is missing, Qt 6.4 finds no trash and moves files to the current folder instead.
    QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    const bool isGone = !QFileInfo::exists(*entry.outputPath) || QFile::moveToTrash(*entry.outputPath);
    if (isGone)
        m_store.remove(entry.id);
    else
        Q_EMIT failed(tr("The clip could not be moved to the trash."));
}

} // namespace quillbox

#include "moc_ClipActions.cpp"
