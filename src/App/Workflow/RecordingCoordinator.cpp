#include "App/Workflow/RecordingCoordinator.h"

#include "App/Workflow/ExportJob.h"
#include "App/Workflow/FlowMessages.h"
#include "Capture/Region/RegionSelector.h"
#include "Capture/StreamRecorder.h"
#include "Encoding/Precondition.h"
#include "Platform/Detach.h"
#include "PostCapture/HistoryStore.h"

#include <QPointer>

#include <exception>
#include <optional>
#include <utility>

namespace quillbox {

RecordingCoordinator::RecordingCoordinator(std::shared_ptr<RecorderControlling> recorder,
    std::shared_ptr<RegionSelector> selector, std::shared_ptr<HistoryStore> history)
    : m_recorder(std::move(recorder))
    , m_selector(std::move(selector))
    , m_history(std::move(history))
{
    const auto screen = std::make_shared<ScreenSession>();
    if (!m_recorder)
        m_recorder = std::make_shared<StreamRecorder>(screen);
    if (!m_selector)
        m_selector = std::make_shared<RegionSelector>(screen);
    precondition(m_history != nullptr, "a coordinator is given a history");
}

RecordingCoordinator::~RecordingCoordinator() = default;

void RecordingCoordinator::setPreset(ExportPreset preset)
{
    Q_EMIT presetAboutToChange(preset);
    m_preset = preset;
    Q_EMIT presetChanged();
}

void RecordingCoordinator::setPhase(Phase next)
{
    Q_EMIT phaseAboutToChange(next);
    m_phase = std::move(next);
    if (!isIn<Processing>())
        m_job.reset();
    Q_EMIT phaseChanged();
}

std::optional<ExportProgress> RecordingCoordinator::progress() const
{
    return m_job ? m_job->progress() : std::nullopt;
}

void RecordingCoordinator::finishNow()
{
    if (isIn<Processing>())
        m_job->finishNow();
}

bool RecordingCoordinator::isFinishing() const
{
    return m_job && m_job->isFinishing();
}

void RecordingCoordinator::beginFlow()
{
    if (!isIn<Idle>())
        return; // a second press of the hotkey, or a flow that has ended
    setPhase(SelectingRegion{});
    m_selector->present([self = QPointer(this)](const RegionSelector::Outcome& outcome) {
        if (!self)
            return;
        if (const auto* const region = std::get_if<CaptureRegion>(&outcome))
            detach(self->record(*region));
        else if (const auto* const error = std::get_if<CaptureError>(&outcome))
            self->setPhase(Failed{FlowMessages::couldNotStart(*error)});
        else
            self->setPhase(Idle{});
    });
}

QCoro::Task<> RecordingCoordinator::record(CaptureRegion region)
{
    const QPointer self(this);
    const auto recorder = m_recorder; // it outlives a coordinator that ends meanwhile
    std::optional<QString> failure;
    try {
        co_await recorder->start(region);
    } catch (const std::exception& error) {
        failure = FlowMessages::couldNotStart(error);
    }
    if (!self)
        co_return;
    if (failure)
        setPhase(Failed{*failure});
    else
        setPhase(Recording{});
}

QCoro::Task<> RecordingCoordinator::stopAndExport()
{
    if (!isIn<Recording>())
        co_return; // a second click
    const QPointer self(this);
    // Read once: a later change, also while the recorder stops, belongs to the next clip.
    const ClipRequest request{.preset = m_preset, .isPrecise = m_isPrecise};
    m_job = std::make_unique<ExportJob>();
    connect(m_job.get(), &ExportJob::progressChanged, this, &RecordingCoordinator::progressChanged);
    setPhase(Processing{});
    if (!self)
        co_return;
    const auto recorder = m_recorder;
    auto recording = co_await recorder->stop();
    if (!self)
        co_return;
    if (recording.frames().empty()) {
        setPhase(Failed{FlowMessages::noFrames()});
        co_return;
    }
    Q_EMIT recordingEnded(recording, request);
    if (!self)
        co_return;
    auto making = m_job->make(std::move(recording), request, m_history);
    const auto outcome = co_await making;
    if (!self || !outcome)
        co_return;
    Q_EMIT exportEnded(*outcome);
    if (!self)
        co_return;
    if (const auto* const clip = std::get_if<FinishedClip>(&*outcome))
        setPhase(Done{clip->path, clip->byteCount});
    else
        setPhase(Failed{std::get<ExportJob::Failure>(*outcome).message});
}

} // namespace quillbox

#include "moc_RecordingCoordinator.cpp"
