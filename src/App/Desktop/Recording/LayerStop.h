#pragma once

#include "Views/Recording/StopControl.h"

#include <QObject>
#include <QPointer>
#include <QPointF>

#include <memory>

class QScreen;

namespace quillbox {

class CurrentCoordinator;
class LayerOutput;
class LayerSurface;
struct CaptureRegion;

/// The control that ends a recording, on Wayland, where a window does not know its place: its picture is above all
/// windows, and the pointer there is the control's. Thread: main.
class LayerStop : public QObject {
    Q_OBJECT

public:
    /// Shows it beside `region` of `recorded`, or on another screen.
    /// @return null where there is no room, or the compositor lets programs place nothing
    /// @pre `coordinator` outlives the result.
    [[nodiscard]] static std::unique_ptr<LayerStop> beside(
        const CaptureRegion& region, QScreen& recorded, CurrentCoordinator& coordinator);
    ~LayerStop() override;

    /// Takes it off the screen for good.
    void remove();

private:
    LayerStop(std::unique_ptr<StopControl> control, const CurrentCoordinator& coordinator,
        const std::shared_ptr<LayerOutput>& output, const QPoint& corner);

    void paint();
    void movePointer(QPointF position);
    void pressPointer(QPointF position);
    void releasePointer(QPointF position);

    std::unique_ptr<StopControl> m_control; // never a window
    int m_scale;
    std::unique_ptr<LayerSurface> m_surface;
    QPointer<QWidget> m_hovered;
    QPointer<QWidget> m_pressed;
};

} // namespace quillbox
