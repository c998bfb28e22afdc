#pragma once

#include "Views/Recording/StopControl.h"

#include <QObject>

#include <memory>

namespace quillbox {

class CurrentCoordinator;
class EdgeStop;
class LastingNotification;
class LayerStop;
class ScreenRecorder;
class ScreenSession;

/// Lets a recording be ended by the mouse where there is no tray: brings up a small control beside what is recorded, on
/// X11, and on Wayland where the compositor lets a program place something. Where there is no room beside it, the upper
/// edge of an X screen brings the control up. Where nothing can be placed, a message among those of the desktop does
/// it. Thread: main.
class TraylessStop : public QObject {
    Q_OBJECT

public:
    /// @param screen  The recorder's.
    /// @pre All outlive this object.
    TraylessStop(CurrentCoordinator& coordinator, ScreenRecorder& recorder, const ScreenSession& screen,
        QObject* parent = nullptr);
    ~TraylessStop() override;

    /// Until told otherwise there is one.
    void setHasTray(bool hasTray);

private:
    void follow();
    void showOnX11();
    void showOnWayland();
    void remove();

    CurrentCoordinator& m_coordinator;
    ScreenRecorder& m_recorder;
    const ScreenSession& m_screen;
    // While it records without a tray, one of them:
    std::unique_ptr<StopControl> m_control;
    std::unique_ptr<EdgeStop> m_edgeStop;
    std::unique_ptr<LayerStop> m_layerStop;
    std::unique_ptr<LastingNotification> m_message;
    bool m_hasTray = true;
};

} // namespace quillbox
