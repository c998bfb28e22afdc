#include "Platform/StateFile.h"

#include "Platform/FileWorker.h"
#include "Platform/RegularFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace quillbox::StateFile {

namespace {

QString folder()
{
    const QString named = qEnvironmentVariable("XDG_STATE_HOME");
    const QString state
        = QDir::isAbsolutePath(named) ? named : QDir::homePath() + QStringLiteral("/.local/state"); // as XDG wants it
    return state + QStringLiteral("/quillbox");
}

void write(const QString& path, const QString& text)
{
    if (text.isEmpty()) {
        (void)QFile::remove(path); // most often there is none
        return;
    }
    (void)QDir().mkpath(QFileInfo(path).path()); // a folder that cannot be made is noticed by open()
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return;
    const QByteArray line = text.toUtf8() + '\n';
    const bool isWritten = file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner)
        && file.write(line) == line.size() && file.flush();
    if (!isWritten)
        file.cancelWriting();
    (void)file.commit(); // what was there before is no loss
}

} // namespace

QString path(const QString& name)
{
    return folder() + QLatin1Char('/') + name;
}

QString read(const QString& name)
{
    constexpr qint64 maxBytes = 4096; // far more than what is kept here
    return QString::fromUtf8(RegularFile::read(path(name), maxBytes).value_or(QByteArray())).trimmed();
}

void replace(const QString& name, const QString& text)
{
    FileWorker::run([path = path(name), text] { write(path, text); });
}

} // namespace quillbox::StateFile
