#include "App/Workflow/ExportJob.h"

#include <QtConcurrent/QtConcurrentRun>

#include <algorithm>
#include <mutex>
#include <utility>

namespace quillbox {

/// Holds the worker's latest word until the main thread fetches it: however fast the worker is, one call at most waits
/// in the event loop. Shared by both threads.
class ExportJob::Mailbox {
public:
    explicit Mailbox(ExportJob& owner)
        : m_owner(&owner)
    {
    }

    /// Thread: any.
    void put(const GIFOptimizer::Progress& progress)
    {
        const std::scoped_lock lock(m_mutex);
        const bool isAnnounced = m_latest.has_value();
        m_latest = progress;
        if (m_owner && !isAnnounced) // the owner can't go meanwhile: closing waits for the lock
            QMetaObject::invokeMethod(m_owner, &ExportJob::takeProgress, Qt::QueuedConnection);
    }

    [[nodiscard]] std::optional<GIFOptimizer::Progress> take()
    {
        const std::scoped_lock lock(m_mutex);
        return std::exchange(m_latest, std::nullopt);
    }

    /// From now on nothing is announced.
    void close()
    {
        const std::scoped_lock lock(m_mutex);
        m_owner = nullptr;
    }

private:
    std::mutex m_mutex;
    ExportJob* m_owner;
    std::optional<GIFOptimizer::Progress> m_latest;
};

ExportJob::ExportJob()
    : m_mailbox(std::make_shared<Mailbox>(*this))
{
}

ExportJob::~ExportJob()
{
    m_mailbox->close();
}

QFuture<ClipExport::Saved> ExportJob::start(ClipExport::Recording recording, ExportPreset preset)
{
    if (!isFinishing())
        m_attempts = 2 * std::ssize(preset.colorLadder()) - 1;
    const GIFOptimizer::Execution execution{
        .parallelism = {},
        .progress = [mailbox = m_mailbox](const GIFOptimizer::Progress& progress) { mailbox->put(progress); },
        .finishNow = m_stop.get_token(),
    };
    return QtConcurrent::run(&ClipExport::run, std::move(recording), preset, execution);
}

std::optional<ExportProgress> ExportJob::progress() const
{
    if (!m_latest)
        return std::nullopt;
    return ExportProgress{
        .attempt = m_latest->attempt,
        .attempts = std::max(m_attempts, m_latest->attempt),
        .framesDone = m_latest->framesDone,
        .frameCount = m_latest->frameCount,
    };
}

void ExportJob::finishNow()
{
    if (!m_stop.request_stop())
        return; // a second click
    const std::int64_t attempt = m_latest ? m_latest->attempt : 0;
    m_attempts = attempt <= 1 ? 1 : attempt + 1; // a first attempt is finished; a later one may give way to one before
    Q_EMIT progressChanged();
}

void ExportJob::takeProgress()
{
    const auto latest = m_mailbox->take();
    if (!latest)
        return;
    const auto before = progress();
    const auto previous = std::exchange(m_latest, latest);
    if (before && progress()->fraction() < before->fraction())
        m_latest = previous; // the wish to finish met an attempt that we had not heard of: more are left than was said
    else
        Q_EMIT progressChanged();
}

} // namespace quillbox
