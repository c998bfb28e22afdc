#include "PostCapture/HistoryMirror.h"

#include "Platform/FolderLock.h"
#include "Platform/RegularFile.h"
#include "PostCapture/HistoryFile.h"
#include "PostCapture/OutputFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

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

HistoryMirror::HistoryMirror(QString path)
    : m_path(std::move(path))
{
    load();
}

void HistoryMirror::load()
{
    const QFileInfo info(m_path);
    const auto aside = info.dir().filePath(info.completeBaseName() + QStringLiteral(".corrupt.json"));
    const auto bytes = RegularFile::read(m_path, maxBytes);
    if (!bytes) {
        if (info.size() > maxBytes && info.isReadable())
            keepAside(m_path, aside);
        return;
    }
    if (auto entries = HistoryFile::decode(*bytes))
        m_entries = *std::move(entries);
    else
        (void)saveIfPossible(aside, *bytes); // the clips are there all the same
    rememberFile();
}

void HistoryMirror::rememberFile()
{
    m_onFile.clear();
    for (const ClipEntry& entry : m_entries)
        m_onFile.insert(entry.id);
}

/// The list with what other processes have done to the file since it was read or written here: what they added comes
/// in, what they removed goes. What could not be written stays, in front.
HistoryMirror::Entries HistoryMirror::merged() const
{
    const auto bytes = RegularFile::read(m_path, maxBytes);
    const auto theirs = bytes ? HistoryFile::decode(*bytes) : std::nullopt;
    if (!theirs)
        return m_entries; // no file any more, or none that anybody could read: it is written anew
    const auto withId = [](const Entries& entries, const QUuid& id) {
        return std::ranges::find(entries, id, &ClipEntry::id);
    };
    Entries all;
    std::ranges::copy_if(m_entries, std::back_inserter(all), [&](const ClipEntry& entry) {
        return !m_onFile.contains(entry.id) && withId(*theirs, entry.id) == theirs->end();
    });
    for (const ClipEntry& entry : *theirs) {
        const auto ours = withId(m_entries, entry.id); // the same, but for fractions of a second
        all.push_back(ours == m_entries.end() ? entry : *ours);
    }
    return all;
}

void HistoryMirror::apply(const Change& change)
{
    const FolderLock lock(folderOf(m_path));
    m_entries = change(merged());
    save();
}

void HistoryMirror::save()
{
    const QFileInfo info(m_path);
    const bool isWritable = info.isFile() || !info.exists(); // a pipe would be waited for
    if (isWritable && saveIfPossible(m_path, HistoryFile::encode(m_entries)))
        rememberFile();
}

} // namespace quillbox
