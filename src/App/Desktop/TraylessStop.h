#pragma once

#include "Views/Recording/StopControl.h"

#include <QObject>

#include <memory>

namespace quillbox {

class CurrentCoordinator;
class ScreenRecorder;

/// Lets a recording be ended by the mouse where there is no tray: brings up a small control beside what is recorded, on
/// X11, where a program knows its place. Thread: main.
class TraylessStop : public QObject {
    Q_OBJECT

public:
    /// @pre Both outlive this object.
    TraylessStop(CurrentCoordinator& coordinator, const ScreenRecorder& recorder, QObject* parent = nullptr);
    ~TraylessStop() override;

    /// Until told otherwise there is one.
    void setHasTray(bool hasTray);

private:
    void follow();

    CurrentCoordinator& m_coordinator;
    const ScreenRecorder& m_recorder;
    std::unique_ptr<StopControl> m_control; // while it records without a tray
    bool m_hasTray = true;
};

} // namespace quillbox
