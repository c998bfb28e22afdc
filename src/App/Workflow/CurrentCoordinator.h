#pragma once

#include "App/Workflow/ClipRemake.h"
#include "App/Workflow/RecordingClock.h"
#include "App/Workflow/RecordingCoordinator.h"

#include <QObject>

#include <cstdint>
#include <memory>
#include <optional>

namespace quillbox {

/// Holds the application's one coordinator, and puts a fresh one in its place when the user starts again after a flow
/// that has ended. Until then the result, or what went wrong, stays readable, and further clips can be made of what was
/// recorded: they go on until the next recording runs. Everyone else asks here. Thread: main.
class CurrentCoordinator : public QObject {
    Q_OBJECT

public:
    explicit CurrentCoordinator(std::unique_ptr<RecordingCoordinator> first, QObject* parent = nullptr);
    ~CurrentCoordinator() override;

    [[nodiscard]] RecordingCoordinator& get() const { return *m_coordinator; }

    /// Where the making of a clip stands: of a further clip, if there was one since, else of the coordinator's own.
    [[nodiscard]] const RecordingCoordinator::Phase& phase() const;
    template <typename P> [[nodiscard]] bool isIn() const { return std::holds_alternative<P>(phase()); }
    /// Whether a clip is being made, or about to be: nothing else can begin.
    [[nodiscard]] bool isBusy() const;
    /// As those of RecordingCoordinator, for the clip that phase() is about.
    [[nodiscard]] std::optional<ExportProgress> progress() const;
    [[nodiscard]] bool isFinishing() const;

    /// Runs while a recording does.
    [[nodiscard]] const RecordingClock& recordingClock() const { return m_clock; }

    /// Whether clips are made precisely from now on, also the one that is being recorded. At first they are not.
    [[nodiscard]] bool keepsEveryChange() const { return m_keepsEveryChange; }
    void setKeepsEveryChange(bool keeps);

    enum class Precision : std::uint8_t {
        AsChosen, ///< as keepsEveryChange() says
        Precise,  ///< every change is kept in this one clip
    };
    /// Begins a flow. After `Done` or `Failed` on a fresh coordinator, with the same recorder, selector and history and
    /// the preset that was chosen; otherwise the coordinator decides. Ignored while a further clip is made.
    void begin(Precision precision = Precision::AsChosen);
    /// Ends a recording, if there is one, and makes the clip.
    void stop();
    /// Has a clip that is being made end with what is finished; see `RecordingCoordinator::finishNow`.
    void finishNow();
    /// stop() while recording, begin() otherwise.
    void toggle();

    /// Whether there is something that a further clip can be made of, now.
    [[nodiscard]] bool canMakeAgain() const { return m_remake.hasRecording() && !isBusy(); }
    /// How the latest clip of it was asked for, whether or not something came of it. @pre canMakeAgain()
    [[nodiscard]] const ClipRequest& latestRequest() const { return m_remake.request(); }
    /// The clip that phase() is about; none unless that is `Done`.
    [[nodiscard]] const FinishedClip* finishedClip() const;
    /// Whether phase() is a failure that may pass, of a clip whose recording is still there.
    [[nodiscard]] bool canTryAgain() const;
    /// Makes a further clip of what was recorded last. Ignored unless canMakeAgain().
    void makeAgain(const ClipRequest& request);
    /// Makes a clip, as chosen, of a recording that was made by another run of the program. It takes the place of what
    /// was recorded last. @return false, and nothing is done, while isBusy(). @pre the recording has a frame.
    bool makeOf(const Recording& recording);

Q_SIGNALS:
    /// phase() has changed, or get() is another coordinator.
    void phaseChanged();
    /// The preset of get() has changed.
    void presetChanged();
    /// progress() has changed, or the clip has been told to finish.
    void progressChanged();
    /// phase() is about to become `next`.
    void phaseAboutToChange(const quillbox::RecordingCoordinator::Phase& next);
    /// keepsEveryChange() has changed.
    void keepsEveryChangeChanged();

private:
    void adopt(std::unique_ptr<RecordingCoordinator> next);
    void takePrecision();

    std::unique_ptr<RecordingCoordinator> m_coordinator;
    ClipRemake m_remake;
    RecordingClock m_clock;
    bool m_hasRecorded = false; // what m_remake has is this coordinator's
    bool m_keepsEveryChange = false;
    Precision m_precision = Precision::AsChosen; // of the flow
};

} // namespace quillbox
