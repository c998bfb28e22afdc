#pragma once

#include "App/Workflow/RecordingCoordinator.h"

#include <QObject>

#include <memory>

namespace quillbox {

/// Holds the application's one coordinator, and puts a fresh one in its place when the user starts again after a flow
/// that has ended. Until then the result, or what went wrong, stays readable. Everyone else asks here. Thread: main.
class CurrentCoordinator : public QObject {
    Q_OBJECT

public:
    explicit CurrentCoordinator(std::unique_ptr<RecordingCoordinator> first, QObject* parent = nullptr);
    ~CurrentCoordinator() override;

    [[nodiscard]] RecordingCoordinator& get() const { return *m_coordinator; }

    /// Begins a flow. After `Done` or `Failed` on a fresh coordinator, with the same recorder, selector and history and
    /// the preset that was chosen; otherwise the coordinator decides.
    void begin();
    /// Ends a recording, if there is one, and makes the clip.
    void stop();
    /// Has a clip that is being made end with what is finished; see `RecordingCoordinator::finishNow`.
    void finishNow();
    /// stop() while recording, begin() otherwise.
    void toggle();

Q_SIGNALS:
    /// The phase of get() has changed, or get() is another coordinator.
    void phaseChanged();
    /// The preset of get() has changed.
    void presetChanged();
    /// The progress of get() has changed, or its clip has been told to finish.
    void progressChanged();
    /// The phase of get() is about to become `next`.
    void phaseAboutToChange(const quillbox::RecordingCoordinator::Phase& next);

private:
    void adopt(std::unique_ptr<RecordingCoordinator> next);

    std::unique_ptr<RecordingCoordinator> m_coordinator;
};

} // namespace quillbox
