#include "App/Desktop/PanelGuard.h"

#include "App/Desktop/RegionPlace.h"
#include "Capture/ScreenRecorder.h"
#include "Capture/ScreenSession.h"
#include "Platform/WindowSystem.h"

#include <QEvent>
#include <QScreen>
#include <QWindow>

namespace quillbox {

PanelGuard::PanelGuard(
    ScreenRecorder& recorder, const ScreenSession& screen, QWidget& panel, std::chrono::milliseconds repaintTime)
    : QObject(&panel)
    , m_recorder(recorder)
    , m_screen(screen)
    , m_panel(panel)
{
    m_repainting.setSingleShot(true);
    m_repainting.setInterval(repaintTime);
    connect(&m_repainting, &QTimer::timeout, this, [this] {
        if (!isInTheWay())
            m_recorder.releasePicture();
    });
    connect(&recorder, &ScreenRecorder::isRecordingChanged, this, &PanelGuard::check);
    panel.installEventFilter(this);
}

bool PanelGuard::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show: // comes before the window is on the screen, and perhaps before it is known where
        m_recorder.holdPicture();
        m_repainting.start();
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
        m_repainting.start();
}

} // namespace quillbox

#include "moc_PanelGuard.cpp"
