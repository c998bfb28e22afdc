#include "App/Desktop/PanelGuard.h"

#include "Capture/StreamRecorder.h"

#include <QEvent>
#include <QGuiApplication>
#include <QRect>
#include <QScreen>

#include <chrono>

namespace quillbox {
namespace {

/// A picture of the uncovered screen has arrived by then: three ticks of the recorder.
constexpr std::chrono::milliseconds repaintTime{100};

/// Where a region lies on the desktop.
QRect placeOf(const CaptureRegion& region)
{
    const auto* const screen = QGuiApplication::primaryScreen();
    const auto origin = screen == nullptr ? QPoint() : screen->geometry().topLeft();
    return QRect(static_cast<int>(region.x), static_cast<int>(region.y), static_cast<int>(region.width),
        static_cast<int>(region.height))
        .translated(origin);
}

} // namespace

PanelGuard::PanelGuard(StreamRecorder& recorder, QWidget& panel)
    : QObject(&panel)
    , m_recorder(recorder)
    , m_panel(panel)
{
    m_repainting.setSingleShot(true);
    m_repainting.setInterval(repaintTime);
    connect(&m_repainting, &QTimer::timeout, this, [this] {
        if (!isInTheWay())
            m_recorder.releasePicture();
    });
    connect(&recorder, &StreamRecorder::isRecordingChanged, this, &PanelGuard::check);
    panel.installEventFilter(this);
}

bool PanelGuard::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show: // comes before the window is on the screen, and perhaps before it is known where
        m_recorder.holdPicture();
        m_repainting.start();
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Hide: // comes after it has left the screen
        check();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool PanelGuard::isInTheWay() const
{
    const auto region = m_recorder.region();
    if (!region || !m_panel.isVisible())
        return false;
    // A window on Wayland does not know where it is.
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"))
        || placeOf(*region).intersects(m_panel.frameGeometry());
}

void PanelGuard::check()
{
    if (isInTheWay())
        m_recorder.holdPicture();
    else
        m_repainting.start();
}

} // namespace quillbox
