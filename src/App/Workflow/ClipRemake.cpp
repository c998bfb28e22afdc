#include "App/Workflow/ClipRemake.h"

#include "Encoding/Precondition.h"
#include "Platform/Detach.h"
#include "Platform/ProcessMemory.h"

#include <QPointer>
#include <QtConcurrent/QtConcurrentRun>

#include <utility>

namespace quillbox {

ClipRemake::ClipRemake(std::shared_ptr<HistoryStore> history, QObject* parent)
    : QObject(parent)
    , m_history(std::move(history))
{
    precondition(m_history != nullptr, "further clips are given a history");
}

ClipRemake::~ClipRemake() = default;

void ClipRemake::keep(const Recording& recording, const ClipRequest& request)
{
    precondition(!isMaking(), "a recording that a clip is made of is not replaced");
    m_recording = recording;
    m_request = request;
    m_outcome.reset();
}

void ClipRemake::takeOutcome(const ExportJob::Outcome& outcome)
{
    m_outcome = outcome;
    if (std::holds_alternative<FinishedClip>(outcome))
        moveToDisk();
}

/// The clip is made; what was recorded for it should not fill the memory until the next one.
void ClipRemake::moveToDisk()
{
    (void)QtConcurrent::run([recording = m_recording]() mutable {
        recording.moveToDisk();
        recording = {};
        returnFreeMemory();
    });
}

void ClipRemake::release()
{
    m_recording = {};
    m_outcome.reset();
}

void ClipRemake::make(ClipRequest request)
{
    if (!hasRecording() || isMaking())
        return;
    if (m_outcome && std::holds_alternative<ExportJob::Failure>(*m_outcome))
        m_recording = m_recording.measuredAnew(); // what was measured of them may be what failed
    m_request = std::move(request);
    m_outcome.reset();
    m_job = std::make_unique<ExportJob>();
    connect(m_job.get(), &ExportJob::progressChanged, this, &ClipRemake::progressChanged);
    detach(run());
}

QCoro::Task<> ClipRemake::run()
{
    const QPointer self(this);
    setPhase(RecordingCoordinator::Processing{});
    if (!self)
        co_return;
    auto making = m_job->make(m_recording, m_request, m_history);
    const auto outcome = co_await making;
    if (!self || !outcome)
        co_return;
    takeOutcome(*outcome);
    if (const auto* const clip = std::get_if<FinishedClip>(&*outcome))
        setPhase(RecordingCoordinator::Done{clip->path, clip->byteCount});
    else
        setPhase(RecordingCoordinator::Failed{std::get<ExportJob::Failure>(*outcome).message});
}

void ClipRemake::setPhase(Phase next)
{
    Q_EMIT phaseAboutToChange(next);
    const bool isMaking = std::holds_alternative<RecordingCoordinator::Processing>(next);
    m_phase = std::move(next);
    if (!isMaking)
        m_job.reset();
    Q_EMIT phaseChanged();
}

std::optional<ExportProgress> ClipRemake::progress() const
{
    return m_job ? m_job->progress() : std::nullopt;
}

// NOLINTNEXTLINE(readability-make-member-function-const): what it holds changes
void ClipRemake::finishNow()
{
    if (m_job)
        m_job->finishNow();
}

} // namespace quillbox

#include "moc_ClipRemake.cpp"
