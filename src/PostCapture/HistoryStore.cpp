#include "PostCapture/HistoryStore.h"

#include "Encoding/Precondition.h"
#include "Platform/FileWorker.h"

#include <QDir>
#include <QStandardPaths>

#include <chrono>
#include <utility>

namespace quillbox {
namespace {

using Entries = HistoryMirror::Entries;

Entries firstOnes(Entries entries)
{
    if (std::ssize(entries) > HistoryStore::cap)
        entries.erase(entries.begin() + HistoryStore::cap, entries.end());
    return entries;
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
    , m_mirror(std::make_shared<HistoryMirror>(fileURL ? *std::move(fileURL) : defaultURL()))
    , m_fileURL(m_mirror->path())
    , m_entries(m_mirror->entries())
    , m_written(*this, [this] { takeWritten(); })
{
}

HistoryStore::~HistoryStore()
{
    constexpr std::chrono::seconds lastPatience{5}; // whoever ends the program waits for it
    (void)FileWorker::finish(lastPatience);         // a file that can't be written by then is left as it is
}

void HistoryStore::record(ClipEntry entry)
{
    auto next = m_entries;
    next.insert(next.begin(), entry);
    setEntries(next);
    if (std::ssize(next) > cap)
        setEntries(firstOnes(std::move(next)));
    write([entry = std::move(entry)](Entries entries) {
        entries.insert(entries.begin(), entry);
        return firstOnes(std::move(entries));
    });
}

void HistoryStore::clear()
{
    setEntries({});
    write([](const Entries& /*entries*/) { return Entries(); });
}

void HistoryStore::remove(const QUuid& id)
{
    change([id](Entries entries) {
        std::erase_if(entries, [&id](const ClipEntry& entry) { return entry.id == id; });
        return entries;
    });
}

void HistoryStore::restore(const std::vector<ClipEntry>& older)
{
    change([older](Entries entries) {
        entries.insert(entries.end(), older.begin(), older.end());
        return firstOnes(std::move(entries));
    });
}

/// Makes a change here, and in the file.
void HistoryStore::change(HistoryMirror::Change change)
{
    setEntries(change(m_entries));
    write(std::move(change));
}

/// Makes a change that has been made here in the file, too.
void HistoryStore::write(HistoryMirror::Change change)
{
    ++m_unwritten;
    FileWorker::run([mirror = m_mirror, change = std::move(change), sender = m_written.sender()] {
        mirror->apply(change);
        sender.send(mirror->entries());
    });
    takeWritten();
}

/// Takes the list as it is on file, with what other processes have done, once nothing is on its way there any more.
void HistoryStore::takeWritten()
{
    auto lists = m_written.take();
    m_unwritten -= std::ssize(lists);
    if (m_unwritten == 0 && !lists.empty() && lists.back() != m_entries)
        setEntries(std::move(lists.back()));
}

void HistoryStore::setEntries(std::vector<ClipEntry> next)
{
    Q_EMIT entriesAboutToChange(next);
    m_entries = std::move(next);
    Q_EMIT entriesChanged();
}

} // namespace quillbox

#include "moc_HistoryStore.cpp"
