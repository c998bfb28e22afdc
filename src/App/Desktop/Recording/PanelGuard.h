#pragma once

#include "App/Desktop/WindowPlaces/WindowPlaces.h"

#include <QElapsedTimer>
#include <QObject>
#include <QRect>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <memory>
#include <optional>

namespace quillbox {

class ScreenRecorder;
class ScreenSession;

/// Keeps our own panel out of clips: while it covers a part of what is being recorded, the clip goes on showing what
/// was there before. On Wayland, where windows are not told their place, the compositor is asked; where it does not
/// tell, that is as long as the panel is open on the monitor that is recorded, or that may be. Thread: main.
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
    /// @param places  Tells where the panel is; null: nobody does.
    /// @pre `recorder` and `screen` outlive the panel, which owns this object.
    PanelGuard(ScreenRecorder& recorder, const ScreenSession& screen, QWidget& panel, Times times = usualTimes(),
        std::unique_ptr<WindowPlaces> places = makeWindowPlaces());
    ~PanelGuard() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool isWhereItWasPut() const;
    [[nodiscard]] bool isInTheWay();
    [[nodiscard]] bool isOnRecordedScreen() const;
    [[nodiscard]] bool isAboveRegion(const QRect& place);
    void followScreen();
    void followPlace();
    void notePlace(const std::optional<QRect>& place);
    void check();
    void awaitRepaint();
    void releaseOnceRepainted();
    void release();

    ScreenRecorder& m_recorder;
    const ScreenSession& m_screen;
    QWidget& m_panel;
    Times m_times;
    QTimer m_repainting; // runs while the programs below may still be repainting
    QElapsedTimer m_sinceLeft;
    std::unique_ptr<WindowPlaces> m_places;
    QTimer m_asking;                 // for the place; runs while the panel is open and it records
    std::optional<QRect> m_place;    // of the panel, as the compositor told since it was shown
    std::optional<QRect> m_recorded; // place of the region, likewise; none until it is needed
    bool m_wasAbove = false;         // the region, as the compositor told since the clip followed the screen last
};

} // namespace quillbox
