#include "App/Desktop/Recording/PanelGuard.h"

#include "App/Desktop/Recording/RegionPlace.h"
#include "Capture/ScreenRecorder.h"
#include "Capture/ScreenSession.h"
#include "Platform/WindowSystem.h"
#include "Platform/X11/X11Queries.h"

#include <QEvent>
#include <QScreen>
#include <QWindow>

#include <utility>

namespace quillbox {
namespace {

/// So far around a window a compositor may draw its title bar and its shadow, points.
constexpr int decoration = 64;

/// How long the panel may be above the region before the compositor is asked again: a tick of the recorder.
constexpr std::chrono::milliseconds askInterval{33};

} // namespace

PanelGuard::Times PanelGuard::usualTimes()
{
    using std::chrono_literals::operator""ms;
    const bool mayFade = toolkitWindowSystem() == WindowSystem::Wayland;
    return {.repaint = 100ms, .fade = mayFade ? 500ms : 100ms};
}

PanelGuard::PanelGuard(ScreenRecorder& recorder, const ScreenSession& screen, QWidget& panel, Times times,
    std::unique_ptr<WindowPlaces> places)
    : QObject(&panel)
    , m_recorder(recorder)
    , m_screen(screen)
    , m_panel(panel)
    , m_times(times)
    , m_places(std::move(places))
{
    m_asking.setInterval(askInterval);
    if (m_places) {
        connect(&m_asking, &QTimer::timeout, this, [this] { m_places->ask(m_panel.windowTitle()); });
        connect(m_places.get(), &WindowPlaces::told, this, &PanelGuard::notePlace);
    }
    m_repainting.setSingleShot(true);
    connect(&m_repainting, &QTimer::timeout, this, &PanelGuard::releaseOnceRepainted);
    connect(&recorder, &ScreenRecorder::isRecordingChanged, this, [this] {
        m_recorded.reset();
        followPlace();
        check();
    });
    panel.installEventFilter(this);
}

PanelGuard::~PanelGuard()
{
    release();
}

bool PanelGuard::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show: // comes before the window is on the screen, and perhaps before it is known where
        if (!isWhereItWasPut() || isInTheWay()) {
            m_recorder.holdPicture(this);
            awaitRepaint();
        }
        followScreen();
        followPlace();
        break;
    case QEvent::Hide: // comes after it has left the screen
        followPlace();
        check();
        break;
    case QEvent::Move:
    case QEvent::Resize:
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

bool PanelGuard::isInTheWay()
{
    const auto region = m_recorder.region();
    if (!region || !m_panel.isVisible())
        return false;
    if (toolkitWindowSystem() != WindowSystem::Wayland)
        return placeOf(*region).intersects(m_panel.frameGeometry());
    return m_place ? isAboveRegion(*m_place) : isOnRecordedScreen();
}

bool PanelGuard::isAboveRegion(const QRect& place)
{
    const auto region = m_recorder.region();
    const auto* const screen = m_screen.castScreen();
    if (!m_recorded && region && screen != nullptr)
        m_recorded = placeOn(*screen, *region);
    if (!m_recorded)
        return true; // for all that is known
    return !place.isEmpty() && m_recorded->intersects(place.adjusted(-decoration, -decoration, decoration, decoration));
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

void PanelGuard::followPlace()
{
    m_place.reset();
    if (!m_places || !m_panel.isVisible() || !m_recorder.isRecording()) {
        m_asking.stop();
        return;
    }
    m_places->ask(m_panel.windowTitle());
    m_asking.start();
}

void PanelGuard::notePlace(const std::optional<QRect>& place)
{
    if (!m_asking.isActive())
        return; // the answer came too late
    const bool wasInTheWay = isInTheWay();
    m_place = place;
    const bool isNowInTheWay = isInTheWay();
    m_wasAbove = m_wasAbove || (place && isNowInTheWay);
    if (isNowInTheWay)
        m_recorder.holdPicture(this);
    else if (!m_wasAbove)
        release(); // nothing needs repainting
    else if (wasInTheWay)
        awaitRepaint();
}

void PanelGuard::check()
{
    if (isInTheWay())
        m_recorder.holdPicture(this);
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
        release();
    else
        m_repainting.start(pollInterval);
}

void PanelGuard::release()
{
    m_repainting.stop();
    m_wasAbove = false;
    if (m_recorder.isRecording())
        X11Queries::finishRequests(); // of which one took the panel off the screen
    m_recorder.releasePicture(this);
}

} // namespace quillbox

#include "moc_PanelGuard.cpp"
