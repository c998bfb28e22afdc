#pragma once

#include "App/Workflow/ClipRequest.h"
#include "App/Workflow/ExportJob.h"
#include "App/Workflow/ExportProgress.h"
#include "Capture/CaptureRegion.h"
#include "Encoding/Presets.h"

#include <QCoro/QCoroTask>
#include <QObject>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <variant>

namespace quillbox {

class HistoryStore;
class RecorderControlling;
class RegionSelector;

/// Runs one capture from the wish to record until the clip is saved, on the clipboard and in the history. A flow that
/// has ended, well or not, stays ended: see `CurrentCoordinator` for the next one. Thread: main.
class RecordingCoordinator : public QObject {
    Q_OBJECT

public:
    /// Nothing in progress; the only phase that a flow can start from.
    struct Idle {
        friend bool operator==(const Idle&, const Idle&) = default;
    };
    /// The user drags out a region, or the recorder is starting with it.
    struct SelectingRegion {
        friend bool operator==(const SelectingRegion&, const SelectingRegion&) = default;
    };
    struct Recording {
        friend bool operator==(const Recording&, const Recording&) = default;
    };
    /// Frames are being optimized, encoded and saved.
    struct Processing {
        friend bool operator==(const Processing&, const Processing&) = default;
    };
    /// The clip is saved, on the clipboard and in the history.
    struct Done {
        QString path;
        std::int64_t byteCount = 0;
        friend bool operator==(const Done&, const Done&) = default;
    };
    struct Failed {
        QString message; ///< for the user, as it stands
        friend bool operator==(const Failed&, const Failed&) = default;
    };
    using Phase = std::variant<Idle, SelectingRegion, Recording, Processing, Done, Failed>;

    /// @param recorder  None for a new `StreamRecorder`.
    /// @param selector  None for a new `RegionSelector`.
    /// @pre `history` is given.
    RecordingCoordinator(std::shared_ptr<RecorderControlling> recorder, std::shared_ptr<RegionSelector> selector,
        std::shared_ptr<HistoryStore> history);
    ~RecordingCoordinator() override;

    [[nodiscard]] const Phase& phase() const { return m_phase; }
    /// True in phase `P`: `coordinator.isIn<RecordingCoordinator::Idle>()`.
    template <typename P> [[nodiscard]] bool isIn() const { return std::holds_alternative<P>(m_phase); }

    /// The preset of the next export; read once, when the recording stops.
    [[nodiscard]] ExportPreset preset() const { return m_preset; }
    void setPreset(ExportPreset preset);

    /// Whether the next clip shows every change; read together with the preset. At first it does not.
    [[nodiscard]] bool isPrecise() const { return m_isPrecise; }
    void setPrecise(bool isPrecise) { m_isPrecise = isPrecise; }

    /// Starts a flow: asks the user for a region and records it. Ignored unless idle.
    void beginFlow();
    /// Ends the recording and makes the clip. Ignored unless recording. Never throws; a failure becomes a phase.
    QCoro::Task<> stopAndExport();

    /// How far the clip is that is being made. None outside `Processing` and until the encoder has begun; it goes with
    /// the phase, without a signal of its own.
    [[nodiscard]] std::optional<ExportProgress> progress() const;
    /// Has the clip that is being made end with the smallest attempt finished so far, the first one at least:
    /// everything recorded is in it. Ignored unless processing.
    void finishNow();
    /// Whether finishNow() was called for the clip that is being made.
    [[nodiscard]] bool isFinishing() const;

    /// What a coordinator that takes this one's place works with.
    [[nodiscard]] const std::shared_ptr<RecorderControlling>& recorder() const { return m_recorder; }
    [[nodiscard]] const std::shared_ptr<RegionSelector>& selector() const { return m_selector; }
    [[nodiscard]] const std::shared_ptr<HistoryStore>& history() const { return m_history; }

Q_SIGNALS:
    /// Announced before phase() becomes `next`.
    void phaseAboutToChange(const quillbox::RecordingCoordinator::Phase& next);
    /// Announced after phase() has changed.
    void phaseChanged();
    /// Announced before preset() becomes `next`.
    void presetAboutToChange(quillbox::ExportPreset next);
    /// Announced after preset() has changed.
    void presetChanged();
    /// Announced after progress() or isFinishing() has changed while processing. Changes that come faster than the
    /// event loop turns are announced as one.
    void progressChanged();
    /// What was recorded, at least one frame, is about to be made into a clip as `request` says.
    void recordingEnded(const quillbox::Recording& recording, const quillbox::ClipRequest& request);
    /// What became of it. Announced before the phase changes.
    void exportEnded(const quillbox::ExportJob::Outcome& outcome);

private:
    QCoro::Task<> record(CaptureRegion region);
    void setPhase(Phase next);

    Phase m_phase = Idle{};
    ExportPreset m_preset = ExportPreset::slack;
    bool m_isPrecise = false;
    std::shared_ptr<RecorderControlling> m_recorder;
    std::shared_ptr<RegionSelector> m_selector;
    std::shared_ptr<HistoryStore> m_history;
    std::unique_ptr<ExportJob> m_job; // while processing
};

} // namespace quillbox
