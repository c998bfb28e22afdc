#include "App/Desktop/TraylessStop.h"

#include "App/Desktop/RegionPlace.h"
#include "App/Workflow/CurrentCoordinator.h"
#include "Capture/ScreenRecorder.h"
#include "Platform/WindowSystem.h"

#include <QGuiApplication>
#include <QScreen>

#include <vector>

namespace quillbox {

TraylessStop::TraylessStop(CurrentCoordinator& coordinator, const ScreenRecorder& recorder, QObject* parent)
    : QObject(parent)
    , m_coordinator(coordinator)
    , m_recorder(recorder)
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
    const auto region = m_recorder.region();
    const auto* const primary = QGuiApplication::primaryScreen();
    const bool isWanted = !m_hasTray && m_coordinator.isIn<RecordingCoordinator::Recording>() && region
        && primary != nullptr && toolkitWindowSystem() == WindowSystem::X11;
    if (!isWanted) {
        if (m_control) {
            m_control->hide();
            m_control.release()->deleteLater(); // its button may be what was pressed
        }
        return;
    }
    if (m_control)
        return;
    std::vector<QRect> screens{primary->availableGeometry()};
    for (const auto* const screen : QGuiApplication::screens())
        if (screen != primary)
            screens.push_back(screen->availableGeometry());
    m_control = std::make_unique<StopControl>(m_coordinator);
    m_control->appear(placeOf(*region), screens);
}

} // namespace quillbox

#include "moc_TraylessStop.cpp"
