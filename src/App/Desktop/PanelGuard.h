#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <chrono>

namespace quillbox {

class ScreenRecorder;
class ScreenSession;

/// Keeps our own panel out of clips: while it covers a part of what is being recorded, the clip goes on showing what
/// was there before; where windows are not told their place, as long as it is open on the monitor that is recorded, or
/// that may be. Thread: main.
class PanelGuard : public QObject {
    Q_OBJECT

public:
    /// A picture of the uncovered screen has arrived by then: three ticks of the recorder.
    static constexpr std::chrono::milliseconds usualRepaintTime{100};

    /// @param screen       The recorder's.
    /// @param repaintTime  How long after the panel has left the region the clip follows the screen again.
    /// @pre `recorder` and `screen` outlive the panel, which owns this object.
    PanelGuard(ScreenRecorder& recorder, const ScreenSession& screen, QWidget& panel,
        std::chrono::milliseconds repaintTime = usualRepaintTime);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool isInTheWay() const;
    [[nodiscard]] bool isOnRecordedScreen() const;
    void followScreen();
    void check();

    ScreenRecorder& m_recorder;
    const ScreenSession& m_screen;
    QWidget& m_panel;
    QTimer m_repainting; // runs while the programs below may still be repainting
};

} // namespace quillbox
