#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QTimer>

#include <memory>

namespace quillbox {

class CurrentCoordinator;
class ScreenRecorder;
class ScreenSession;
class StopControl;

/// The control that ends a recording where what is recorded leaves no room beside it, on X11: it comes while the
/// pointer rests at the screen's upper edge, and for a moment at the beginning, to tell so. While it is there, the clip
/// goes on showing what was there before. Thread: main.
class EdgeStop : public QObject {
    Q_OBJECT

public:
    /// @param screen  What is recorded. @param area  The part of the desktop that it fills, points.
    /// @pre `coordinator`, `recorder` and `screen` outlive this object.
    EdgeStop(CurrentCoordinator& coordinator, ScreenRecorder& recorder, const ScreenSession& screen, const QRect& area);
    ~EdgeStop() override;

    /// Takes it off the screen for good.
    void remove();

private:
    void look();
    void showAt(int x);

    std::unique_ptr<StopControl> m_control;
    const ScreenRecorder& m_recorder;
    QRect m_area;
    QTimer m_looking;
    QElapsedTimer m_sinceChange; // of m_isWished; not before there is a picture
    bool m_isWished = false;     // by the pointer's place
    bool m_isIntroducing = true;
};

} // namespace quillbox
