#include "App/Workflow/CurrentCoordinator.h"

#include "Encoding/Precondition.h"
#include "Platform/Detach.h"

#include <utility>

namespace quillbox {
namespace {

const std::shared_ptr<HistoryStore>& historyOf(const std::unique_ptr<RecordingCoordinator>& coordinator)
{
    precondition(coordinator != nullptr, "there is always a coordinator");
    return coordinator->history();
}

} // namespace

CurrentCoordinator::CurrentCoordinator(std::unique_ptr<RecordingCoordinator> first, QObject* parent)
    : QObject(parent)
    , m_remake(historyOf(first))
{
    connect(&m_remake, &ClipRemake::phaseAboutToChange, this, &CurrentCoordinator::phaseAboutToChange);
    connect(&m_remake, &ClipRemake::phaseChanged, this, &CurrentCoordinator::phaseChanged);
    connect(&m_remake, &ClipRemake::progressChanged, this, &CurrentCoordinator::progressChanged);
    connect(this, &CurrentCoordinator::phaseAboutToChange, &m_clock, [this](const RecordingCoordinator::Phase& next) {
        if (std::holds_alternative<RecordingCoordinator::Recording>(next))
            m_clock.start();
        else
            m_clock.stop();
    });
    adopt(std::move(first));
}

CurrentCoordinator::~CurrentCoordinator() = default;

const RecordingCoordinator::Phase& CurrentCoordinator::phase() const
{
    return m_remake.phase() ? *m_remake.phase() : get().phase();
}

bool CurrentCoordinator::isBusy() const
{
    return isIn<RecordingCoordinator::SelectingRegion>() || isIn<RecordingCoordinator::Recording>()
        || isIn<RecordingCoordinator::Processing>();
}

std::optional<ExportProgress> CurrentCoordinator::progress() const
{
    return m_remake.isMaking() ? m_remake.progress() : get().progress();
}

bool CurrentCoordinator::isFinishing() const
{
    return m_remake.isMaking() ? m_remake.isFinishing() : get().isFinishing();
}

void CurrentCoordinator::setKeepsEveryChange(bool keeps)
{
    if (keeps == m_keepsEveryChange)
        return;
    m_keepsEveryChange = keeps;
    takePrecision();
    Q_EMIT keepsEveryChangeChanged();
}

void CurrentCoordinator::takePrecision()
{
    get().setPrecise(m_keepsEveryChange || m_precision == Precision::Precise);
}

void CurrentCoordinator::begin(Precision precision)
{
    if (m_remake.isMaking())
        return;
    if (isIn<RecordingCoordinator::Done>() || isIn<RecordingCoordinator::Failed>()) {
        auto next = std::make_unique<RecordingCoordinator>(get().recorder(), get().selector(), get().history());
        next->setPreset(get().preset());
        m_remake.leave();
        adopt(std::move(next));
        Q_EMIT phaseChanged();
    }
    if (get().isIn<RecordingCoordinator::Idle>()) {
        m_precision = precision;
        takePrecision();
    }
    get().beginFlow();
}

// NOLINTNEXTLINE(readability-make-member-function-const): what it holds changes
void CurrentCoordinator::stop()
{
    detach(get().stopAndExport());
}

// NOLINTNEXTLINE(readability-make-member-function-const): what it holds changes
void CurrentCoordinator::finishNow()
{
    if (m_remake.isMaking())
        m_remake.finishNow();
    else
        get().finishNow();
}

const FinishedClip* CurrentCoordinator::finishedClip() const
{
    const auto& outcome = m_remake.outcome();
    return outcome && isIn<RecordingCoordinator::Done>() ? std::get_if<FinishedClip>(&*outcome) : nullptr;
}

bool CurrentCoordinator::canTryAgain() const
{
    const auto& outcome = m_remake.outcome();
    const auto* const failure = outcome ? std::get_if<ExportJob::Failure>(&*outcome) : nullptr;
    const bool isAboutIt = m_hasRecorded || m_remake.phase();
    return isAboutIt && isIn<RecordingCoordinator::Failed>() && failure != nullptr && failure->mayPass;
}

void CurrentCoordinator::makeAgain(const ClipRequest& request)
{
    if (canMakeAgain())
        m_remake.make(request);
}

bool CurrentCoordinator::makeOf(const Recording& recording)
{
    if (isBusy())
        return false;
    const ClipRequest request{.preset = get().preset(), .isPrecise = m_keepsEveryChange};
    m_remake.keep(recording, request);
    m_remake.make(request);
    return true;
}

void CurrentCoordinator::toggle()
{
    if (isIn<RecordingCoordinator::Recording>())
        stop();
    else
        begin();
}

void CurrentCoordinator::adopt(std::unique_ptr<RecordingCoordinator> next)
{
    if (m_coordinator)
        m_coordinator.release()->deleteLater(); // it may be the one that is telling us something
    m_coordinator = std::move(next);
    m_hasRecorded = false;
    const auto* const coordinator = m_coordinator.get();
    connect(coordinator, &RecordingCoordinator::phaseAboutToChange, this, &CurrentCoordinator::phaseAboutToChange);
    connect(coordinator, &RecordingCoordinator::phaseChanged, this, &CurrentCoordinator::phaseChanged);
    connect(coordinator, &RecordingCoordinator::presetChanged, this, &CurrentCoordinator::presetChanged);
    connect(coordinator, &RecordingCoordinator::progressChanged, this, &CurrentCoordinator::progressChanged);
    connect(
        coordinator, &RecordingCoordinator::phaseAboutToChange, this, [this](const RecordingCoordinator::Phase& phase) {
            if (std::holds_alternative<RecordingCoordinator::Recording>(phase))
                m_remake.release(); // the recorder lets go of it, too
        });
    connect(coordinator, &RecordingCoordinator::recordingEnded, this,
        [this](const Recording& recording, const ClipRequest& request) {
            m_hasRecorded = true;
            m_remake.keep(recording, request);
        });
    connect(coordinator, &RecordingCoordinator::exportEnded, &m_remake, &ClipRemake::takeOutcome);
}

} // namespace quillbox

#include "moc_CurrentCoordinator.cpp"
