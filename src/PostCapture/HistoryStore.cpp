#include "PostCapture/HistoryStore.h"

#include "Encoding/Precondition.h"
#include "Platform/FolderLock.h"
#include "Platform/RegularFile.h"
#include "PostCapture/HistoryFile.h"
#include "PostCapture/OutputFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <iterator>
#include <unistd.h>
#include <utility>

namespace quillbox {
namespace {

constexpr qint64 maxBytes = 4 << 20; // twenty clips make some ten thousand

/// Nobody is told of a failure, as nobody could do anything about it here. @return whether it was saved
bool saveIfPossible(const QString& path, const QByteArray& bytes)
{
    try {
        const auto* const first = reinterpret_cast<const std::uint8_t*>(bytes.constData());
        OutputFile::save(QFile::encodeName(path).toStdString(),
            std::span(first, static_cast<std::size_t>(bytes.size())), OutputFile::IfExists::Replace);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

std::filesystem::path folderOf(const QString& path)
{
    return QFile::encodeName(QFileInfo(path).absolutePath()).toStdString();
}

/// Gives a file that is too large to be copied a second name, so that it is still there once the first has been given
/// to another.
void keepAside(const QString& path, const QString& aside)
{
    (void)QFile::remove(aside); // the older one, if there is one
    const auto target = QFileInfo(path).canonicalFilePath();
    (void)::link(QFile::encodeName(target).constData(), QFile::encodeName(aside).constData()); // see saveIfPossible
}

} // namespace

QString HistoryStore::defaultURL()
{
    auto data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (!QDir::isAbsolutePath(data)) // a relative XDG_DATA_HOME is to be ignored
        data = QDir::home().filePath(QStringLiteral(".local/share"));
    precondition(QDir::isAbsolutePath(data), "the user has a data folder");
    const auto folder = QDir(data).filePath(QStringLiteral("Quillbox"));
    (void)QDir().mkpath(folder); // the list is then just not kept
    return QDir(folder).filePath(QStringLiteral("history.json"));
}

HistoryStore::HistoryStore(std::optional<QString> fileURL, QObject* parent)
    : QObject(parent)
    , m_fileURL(fileURL ? *std::move(fileURL) : defaultURL())
{
    load();
}

void HistoryStore::load()
{
    const QFileInfo info(m_fileURL);
    const auto aside = info.dir().filePath(info.completeBaseName() + QStringLiteral(".corrupt.json"));
    const auto bytes = RegularFile::read(m_fileURL, maxBytes);
    if (!bytes) {
        if (info.size() > maxBytes && info.isReadable())
            keepAside(m_fileURL, aside);
        return;
    }
    if (auto entries = HistoryFile::decode(*bytes))
        m_entries = *std::move(entries);
    else
        (void)saveIfPossible(aside, *bytes); // the clips are there all the same
    rememberFile();
}

void HistoryStore::rememberFile()
{
    m_onFile.clear();
    for (const ClipEntry& entry : m_entries)
        m_onFile.insert(entry.id);
}

/// The list with what other processes have done to the file since it was read or written here: what they added comes
/// in, what they removed goes. What could not be written stays, in front.
std::vector<ClipEntry> HistoryStore::merged() const
{
    const auto bytes = RegularFile::read(m_fileURL, maxBytes);
    const auto theirs = bytes ? HistoryFile::decode(*bytes) : std::nullopt;
    if (!theirs)
        return m_entries; // no file any more, or none that anybody could read: it is written anew
    const auto withId = [](const std::vector<ClipEntry>& entries, const QUuid& id) {
        return std::ranges::find(entries, id, &ClipEntry::id);
    };
    std::vector<ClipEntry> all;
    std::ranges::copy_if(m_entries, std::back_inserter(all), [&](const ClipEntry& entry) {
        return !m_onFile.contains(entry.id) && withId(*theirs, entry.id) == theirs->end();
    });
    for (const ClipEntry& entry : *theirs) {
        const auto ours = withId(m_entries, entry.id); // the same, but for fractions of a second
        all.push_back(ours == m_entries.end() ? entry : *ours);
    }
    return all;
}

void HistoryStore::record(ClipEntry entry)
{
    const FolderLock lock(folderOf(m_fileURL));
    auto next = merged();
    next.insert(next.begin(), std::move(entry));
    setEntries(next);
    if (std::ssize(next) > cap) {
        next.erase(next.begin() + cap, next.end());
        setEntries(std::move(next));
    }
    save();
}

void HistoryStore::clear()
{
    const FolderLock lock(folderOf(m_fileURL));
    setEntries({});
    save();
}

void HistoryStore::remove(const QUuid& id)
{
    const FolderLock lock(folderOf(m_fileURL));
    auto next = merged();
    std::erase_if(next, [&id](const ClipEntry& entry) { return entry.id == id; });
    setEntries(std::move(next));
    save();
}

void HistoryStore::restore(const std::vector<ClipEntry>& older)
{
    const FolderLock lock(folderOf(m_fileURL));
    auto next = merged();
    next.insert(next.end(), older.begin(), older.end());
    if (std::ssize(next) > cap)
        next.erase(next.begin() + cap, next.end());
    setEntries(std::move(next));
    save();
}

void HistoryStore::setEntries(std::vector<ClipEntry> next)
{
    Q_EMIT entriesAboutToChange(next);
    m_entries = std::move(next);
    Q_EMIT entriesChanged();
}

void HistoryStore::save()
{
    const QFileInfo info(m_fileURL);
    const bool isWritable = info.isFile() || !info.exists(); // a pipe would be waited for
    if (isWritable && saveIfPossible(m_fileURL, HistoryFile::encode(m_entries)))
        rememberFile();
}

} // namespace quillbox

#include "moc_HistoryStore.cpp"
