#pragma once

#include <QElapsedTimer>
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
    /// When the clip follows the screen again after the panel has left the region.
    struct Times {
        std::chrono::milliseconds repaint; ///< not before, and when the region rests for as long
        std::chrono::milliseconds fade;    ///< in any case: some regions never rest
    };
    /// A picture of the uncovered screen has arrived after three ticks of the recorder. But where we can't keep a
    /// compositor from fading the panel out, that may take it longer.
    [[nodiscard]] static Times usualTimes();

    /// @param screen  The recorder's.
    /// @pre `recorder` and `screen` outlive the panel, which owns this object.
    PanelGuard(ScreenRecorder& recorder, const ScreenSession& screen, QWidget& panel, Times times = usualTimes());

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool isWhereItWasPut() const;
    [[nodiscard]] bool isInTheWay() const;
    [[nodiscard]] bool isOnRecordedScreen() const;
    void followScreen();
    void check();
    void awaitRepaint();
    void releaseOnceRepainted();

    ScreenRecorder& m_recorder;
    const ScreenSession& m_screen;
    QWidget& m_panel;
    Times m_times;
    QTimer m_repainting; // runs while the programs below may still be repainting
    QElapsedTimer m_sinceLeft;
};

} // namespace quillbox
