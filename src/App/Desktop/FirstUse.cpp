#include "App/Desktop/FirstUse.h"

#include "Platform/FileWorker.h"
#include "Platform/RegularFile.h"
#include "PostCapture/HistoryStore.h"
#include "PostCapture/OutputFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <exception>
#include <span>
#include <utility>

namespace quillbox {
namespace {

// What the file says, as a line.
constexpr const char* introducing = "introducing\n";
constexpr const char* introduced = "introduced\n";

} // namespace

QString FirstUse::defaultPath()
{
    return QFileInfo(HistoryStore::defaultURL()).dir().filePath(QStringLiteral("first-use"));
}

FirstUse::FirstUse(QString path, QObject* parent)
    : QObject(parent)
    , m_path(std::move(path))
    , m_isFirstStart(!QFileInfo::exists(m_path))
    , m_isIntroducing(m_isFirstStart)
{
    constexpr qint64 maxBytes = 64; // more than either line has
    if (!m_isFirstStart)
        m_isIntroducing = RegularFile::read(m_path, maxBytes) == QByteArray(introducing);
}

void FirstUse::begin()
{
    if (m_isFirstStart && m_isIntroducing)
        remember(introducing);
}

void FirstUse::end()
{
    if (!m_isIntroducing)
        return;
    m_isIntroducing = false;
    remember(introduced);
    Q_EMIT ended();
}

void FirstUse::remember(const QByteArray& state) const
{
    FileWorker::run([path = QFile::encodeName(m_path).toStdString(), state] {
        try {
            const auto* const bytes = reinterpret_cast<const std::uint8_t*>(state.constData());
            OutputFile::save(
                path, std::span(bytes, static_cast<std::size_t>(state.size())), OutputFile::IfExists::Replace);
        } catch (const std::exception&) { // NOLINT(bugprone-empty-catch): it is told once more at the next start
        }
    });
}

} // namespace quillbox

#include "moc_FirstUse.cpp"
