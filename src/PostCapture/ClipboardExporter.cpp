#include "PostCapture/ClipboardExporter.h"

#include "PostCapture/Clipboard/Clipboard.h"

#include <QDir>
#include <QLocale>
#include <QStandardPaths>

namespace quillbox {

QString ClipboardExporter::clipsPath()
{
    auto parent = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    if (!QDir::isAbsolutePath(parent)) // none, or a user-dirs.dirs that names a folder relative to anywhere
        parent = QDir::homePath();
    return QDir(parent).filePath(QStringLiteral("Quillbox"));
}

QString ClipboardExporter::clipsDirectory()
{
    auto folder = clipsPath();
    (void)QDir().mkpath(folder); // a folder that can't be made is reported by the save that follows
    return folder;
}

QString ClipboardExporter::fileName(const QDateTime& date, const QString& ext, QCalendar calendar)
{
    const auto format = QStringLiteral("yyyy-MM-dd 'at' HH.mm.ss");
    const auto moment = QLocale::c().toString(date.toLocalTime(), format, calendar);
    return QStringLiteral("Quillbox ") + moment + QLatin1Char('.') + ext;
}

void ClipboardExporter::copyToPasteboard(const QUrl& fileURL, const std::optional<ClipboardBytes>& gifData)
{
    Clipboard::general().setClip(fileURL, gifData);
}

} // namespace quillbox
