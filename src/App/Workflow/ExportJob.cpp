#include "App/Workflow/ExportJob.h"

#include <QtConcurrent/QtConcurrentRun>

#include <algorithm>
#include <utility>

namespace quillbox {

ExportJob::ExportJob()
    : m_mailbox(*this, [this] { takeProgress(); })
{
}

QFuture<ClipExport::Saved> ExportJob::start(Recording recording, ExportPreset preset)
{
    if (!isFinishing())
        m_attempts = 2 * std::ssize(preset.colorLadder()) - 1;
    const GIFOptimizer::Execution execution{
        .parallelism = {},
        .progress
        = [sender = m_mailbox.sender()](const GIFOptimizer::Progress& progress) { sender.sendLatest(progress); },
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
    const auto latest = m_mailbox.take();
    if (latest.empty())
        return;
    const auto before = progress();
    const auto previous = std::exchange(m_latest, latest.back());
    if (before && progress()->fraction() < before->fraction())
        m_latest = previous; // the wish to finish met an attempt that we had not heard of: more are left than was said
    else
        Q_EMIT progressChanged();
}

} // namespace quillbox
