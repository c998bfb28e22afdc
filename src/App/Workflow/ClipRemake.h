#pragma once

#include "App/Workflow/ExportJob.h"
#include "App/Workflow/RecordingCoordinator.h"
#include "Capture/Recording.h"

#include <QCoro/QCoroTask>
#include <QObject>

#include <memory>
#include <optional>

namespace quillbox {

/// Keeps what was recorded last, and makes further clips of it, each a file of its own: more precisely, for another
/// preset, or because it failed. Thread: main.
class ClipRemake : public QObject {
    Q_OBJECT

public:
    using Phase = RecordingCoordinator::Phase;

    /// @pre `history` is given.
    explicit ClipRemake(std::shared_ptr<HistoryStore> history, QObject* parent = nullptr);
    ~ClipRemake() override;

    /// Keeps a recording of which a clip is being made, instead of any other. @pre nothing is being made here.
    void keep(const Recording& recording, const ClipRequest& request);
    /// What became of the clip.
    void takeOutcome(const ExportJob::Outcome& outcome);
    /// Lets go of the recording.
    void release();

    [[nodiscard]] bool hasRecording() const { return !m_recording.frames().empty(); }
    /// How the latest clip was asked for.
    [[nodiscard]] const ClipRequest& request() const { return m_request; }
    /// What became of it; none until it is known.
    [[nodiscard]] const std::optional<ExportJob::Outcome>& outcome() const { return m_outcome; }

    /// Makes another clip; ends in `Done` or `Failed`. Ignored without a recording, and while one is being made.
    void make(ClipRequest request);

    /// `Processing`, `Done` or `Failed` of the latest make(); none before it.
    [[nodiscard]] const std::optional<Phase>& phase() const { return m_phase; }
    [[nodiscard]] bool isMaking() const { return m_job != nullptr; }
    /// What came of make() has been seen: there is no phase any more. @pre nothing is being made.
    void leave() { m_phase.reset(); }

    // As those of RecordingCoordinator.
    [[nodiscard]] std::optional<ExportProgress> progress() const;
    void finishNow();
    [[nodiscard]] bool isFinishing() const { return m_job && m_job->isFinishing(); }

Q_SIGNALS:
    void phaseAboutToChange(const quillbox::RecordingCoordinator::Phase& next);
    void phaseChanged();
    void progressChanged();

private:
    QCoro::Task<> run();
    void setPhase(Phase next);
    void moveToDisk();

    std::shared_ptr<HistoryStore> m_history;
    Recording m_recording; // without a frame: none
    ClipRequest m_request;
    std::optional<ExportJob::Outcome> m_outcome;
    std::optional<Phase> m_phase;
    std::unique_ptr<ExportJob> m_job; // while processing
};

} // namespace quillbox
