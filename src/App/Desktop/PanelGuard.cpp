#include "App/Desktop/PanelGuard.h"

#include "App/Desktop/RegionPlace.h"
#include "Capture/ScreenRecorder.h"
#include "Capture/ScreenSession.h"
#include "Platform/WindowSystem.h"

#include <QEvent>
#include <QScreen>
#include <QWindow>

namespace quillbox {

PanelGuard::Times PanelGuard::usualTimes()
{
    using std::chrono_literals::operator""ms;
    const bool mayFade = toolkitWindowSystem() == WindowSystem::Wayland;
    return {.repaint = 100ms, .fade = mayFade ? 500ms : 100ms};
}

PanelGuard::PanelGuard(ScreenRecorder& recorder, const ScreenSession& screen, QWidget& panel, Times times)
    : QObject(&panel)
    , m_recorder(recorder)
    , m_screen(screen)
    , m_panel(panel)
    , m_times(times)
{
    m_repainting.setSingleShot(true);
    connect(&m_repainting, &QTimer::timeout, this, &PanelGuard::releaseOnceRepainted);
    connect(&recorder, &ScreenRecorder::isRecordingChanged, this, &PanelGuard::check);
    panel.installEventFilter(this);
}

bool PanelGuard::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show: // comes before the window is on the screen, and perhaps before it is known where
        if (!isWhereItWasPut() || isInTheWay()) {
            m_recorder.holdPicture();
            awaitRepaint();
        }
        followScreen();
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

/// Window managers have their own idea of where a window with a frame should be, and Wayland of any.
bool PanelGuard::isWhereItWasPut() const
{
    return toolkitWindowSystem() != WindowSystem::Wayland && m_panel.windowFlags().testFlag(Qt::FramelessWindowHint);
}

bool PanelGuard::isInTheWay() const
{
    const auto region = m_recorder.region();
    if (!region || !m_panel.isVisible())
        return false;
    return toolkitWindowSystem() == WindowSystem::Wayland ? isOnRecordedScreen()
                                                          : placeOf(*region).intersects(m_panel.frameGeometry());
}

/// Whether it is, or may be: a window on Wayland knows no more of its place than the screen.
bool PanelGuard::isOnRecordedScreen() const
{
    const auto* const recorded = m_screen.castScreen();
    const auto* const window = m_panel.windowHandle();
    return recorded == nullptr || window == nullptr || window->screen() == recorded;
}

/// Until the compositor tells on which screen the window is, the toolkit has a guess. The one that is recorded is the
/// guess that does no harm.
void PanelGuard::followScreen()
{
    auto* const window = m_panel.windowHandle();
    if (toolkitWindowSystem() != WindowSystem::Wayland || window == nullptr)
        return;
    connect(window, &QWindow::screenChanged, this, &PanelGuard::check, Qt::UniqueConnection);
    if (m_recorder.isRecording() && m_screen.castScreen() != nullptr)
        window->setScreen(m_screen.castScreen());
}

void PanelGuard::check()
{
    if (isInTheWay())
        m_recorder.holdPicture();
    else
        awaitRepaint();
}

void PanelGuard::awaitRepaint()
{
    m_sinceLeft.start();
    m_repainting.start(m_times.repaint);
}

void PanelGuard::releaseOnceRepainted()
{
    constexpr std::chrono::milliseconds pollInterval{33}; // a tick of the recorder
    if (isInTheWay())
        return;
    const bool isAtRest = m_recorder.restWhileHeld() >= m_times.repaint;
    if (isAtRest || std::chrono::milliseconds(m_sinceLeft.elapsed()) >= m_times.fade)
        m_recorder.releasePicture();
    else
        m_repainting.start(pollInterval);
}

} // namespace quillbox

#include "moc_PanelGuard.cpp"
