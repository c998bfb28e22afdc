#include "App/Workflow/ExportJob.h"

#include "App/Workflow/FlowMessages.h"
#include "PostCapture/ClipboardExporter.h"
#include "PostCapture/HistoryStore.h"

#include <QCoro/QCoroFuture>
#include <QPointer>
#include <QtConcurrent/QtConcurrentRun>
#include <QUrl>

#include <algorithm>
#include <exception>
#include <limits>
#include <utility>

namespace quillbox {
namespace {

ClipEntry entryFor(const ClipExport::Saved& saved, ExportPreset preset, std::int64_t width, std::int64_t height)
{
    const auto title = preset.title();
    return {
        .date = QDateTime::currentDateTimeUtc(),
        .format = QStringLiteral("GIF"),
        .preset = QString::fromUtf8(title.data(), std::ssize(title)),
        .outputPath = saved.path,
        .byteCount = saved.result.byteCount,
        .durationSeconds = saved.result.durationSeconds,
        .width = width,
        .height = height,
    };
}

FinishedClip finished(const ClipExport::Saved& saved, const ClipRequest& request)
{
    return {
        .request = request,
        .path = saved.path,
        .byteCount = saved.result.byteCount,
        .shownPictures = std::min(saved.result.frameCount, saved.recordedPictures),
        .recordedPictures = saved.recordedPictures,
    };
}

/// How many attempts there can be at a clip.
std::int64_t attemptsAt(const ClipRequest& request)
{
    if (request.isPrecise)
        return std::numeric_limits<std::int64_t>::max(); // nobody knows
    return 2 * std::ssize(request.preset.colorLadder()) - 1;
}

} // namespace

ExportJob::ExportJob()
    : m_mailbox(*this, [this] { takeProgress(); })
{
}

QFuture<ClipExport::Saved> ExportJob::start(Recording recording, const ClipRequest& request)
{
    if (!isFinishing())
        m_attempts = attemptsAt(request);
    const GIFOptimizer::Execution execution{
        .parallelism = {},
        .progress
        = [sender = m_mailbox.sender()](const GIFOptimizer::Progress& progress) { sender.sendLatest(progress); },
        .finishNow = m_stop.get_token(),
    };
    return QtConcurrent::run(&ClipExport::run, std::move(recording), request, execution);
}

QCoro::Task<std::optional<ExportJob::Outcome>> ExportJob::make(
    Recording recording, ClipRequest request, std::shared_ptr<HistoryStore> history)
{
    const QPointer self(this);
    const auto width = recording.frames().front().width();
    const auto height = recording.frames().front().height();
    std::optional<Outcome> outcome;
    try {
        auto work = start(std::move(recording), request);
        const auto saved = co_await work;
        if (self) {
            ClipboardExporter::copyToPasteboard(QUrl::fromLocalFile(saved.path), saved.gif);
            history->record(entryFor(saved, request.preset, width, height));
            outcome = finished(saved, request);
        }
    } catch (const std::exception& error) {
        outcome = Failure{FlowMessages::couldNotSave(error), FlowMessages::mayPass(error)};
    }
    co_return outcome;
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

#include "moc_ExportJob.cpp"
