#include "App/Desktop/Recording/TraylessStop.h"

#include "App/Desktop/LastingNotification.h"
#include "App/Desktop/Recording/EdgeStop.h"
#include "App/Desktop/Recording/LayerStop.h"
#include "App/Desktop/Recording/RegionPlace.h"
#include "App/Workflow/CurrentCoordinator.h"
#include "Capture/ScreenRecorder.h"
#include "Capture/ScreenSession.h"
#include "Platform/WindowSystem.h"

#include <QGuiApplication>
#include <QScreen>

#include <utility>
#include <vector>

namespace quillbox {

TraylessStop::TraylessStop(
    CurrentCoordinator& coordinator, ScreenRecorder& recorder, const ScreenSession& screen, QObject* parent)
    : QObject(parent)
    , m_coordinator(coordinator)
    , m_recorder(recorder)
    , m_screen(screen)
{
    connect(&coordinator, &CurrentCoordinator::phaseChanged, this, &TraylessStop::follow);
}

TraylessStop::~TraylessStop() = default;

void TraylessStop::setHasTray(bool hasTray)
{
    m_hasTray = hasTray;
    follow();
}

void TraylessStop::follow()
{
    const bool isWanted
        = !m_hasTray && m_coordinator.isIn<RecordingCoordinator::Recording>() && m_recorder.region().has_value();
    if (!isWanted) {
        remove();
        return;
    }
    if (m_control || m_edgeStop || m_layerStop || m_message)
        return;
    const auto windowSystem = toolkitWindowSystem();
    if (windowSystem == WindowSystem::X11)
        showOnX11();
    else if (windowSystem == WindowSystem::Wayland)
        showOnWayland();
}

void TraylessStop::showOnX11()
{
    const auto* const primary = QGuiApplication::primaryScreen();
    if (primary == nullptr)
        return;
    std::vector<QRect> screens{primary->availableGeometry()};
    for (const auto* const screen : QGuiApplication::screens())
        if (screen != primary)
            screens.push_back(screen->availableGeometry());
    auto control = std::make_unique<StopControl>(m_coordinator);
    if (control->appear(placeOf(*m_recorder.region()), screens))
        m_control = std::move(control);
    else
        m_edgeStop = std::make_unique<EdgeStop>(m_coordinator, m_recorder, m_screen, primary->geometry());
}

void TraylessStop::showOnWayland()
{
    if (auto* const recorded = m_screen.castScreen())
        m_layerStop = LayerStop::beside(*m_recorder.region(), *recorded, m_coordinator);
    if (!m_layerStop)
        m_message = std::make_unique<LastingNotification>(tr("The screen is being recorded"),
            tr("“Stop & Copy” ends the recording."), tr("Stop & Copy"), [this] { m_coordinator.stop(); });
}

/// One of them may be what was pressed.
void TraylessStop::remove()
{
    if (m_control) {
        m_control->hide();
        m_control.release()->deleteLater();
    }
    if (m_edgeStop) {
        m_edgeStop->remove();
        m_edgeStop.release()->deleteLater();
    }
    if (m_layerStop) {
        m_layerStop->remove();
        m_layerStop.release()->deleteLater();
    }
    if (m_message)
        m_message.release()->deleteLater();
}

} // namespace quillbox

#include "moc_TraylessStop.cpp"
