#include "App/Desktop/TrayIcon.h"

#include "App/Workflow/CurrentCoordinator.h"
#include "Platform/WindowSystem.h"
#include "Views/Icons.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace quillbox {
namespace {

/// A click this near to the edge of a screen, in points, was on a panel there.
constexpr int panelThickness = 64;

/// Where the pointer is, if it can be on a panel of the desktop.
QRect clickedPlace()
{
    if (toolkitWindowSystem() != WindowSystem::X11)
        return {}; // elsewhere a program does not know where the pointer is
    const auto position = QCursor::pos();
    const auto* const screen = QGuiApplication::screenAt(position);
    if (screen == nullptr)
        return {};
    const auto inside = screen->geometry().adjusted(panelThickness, panelThickness, -panelThickness, -panelThickness);
    return inside.contains(position) ? QRect() : QRect(position, QSize(1, 1));
}

} // namespace

TrayIcon::TrayIcon(CurrentCoordinator& coordinator, QObject* parent)
    : QObject(parent)
    , m_coordinator(coordinator)
{
    connect(m_menu.addAction(tr("Open Quillbox")), &QAction::triggered, this, &TrayIcon::openRequested);
    m_recordAction = m_menu.addAction(QString());
    connect(m_recordAction, &QAction::triggered, &coordinator, &CurrentCoordinator::toggle);
    m_everyChangeAction = m_menu.addAction(tr("Keep every change"));
    m_everyChangeAction->setCheckable(true);
    connect(m_everyChangeAction, &QAction::toggled, &coordinator, &CurrentCoordinator::setKeepsEveryChange);
    m_settingsAction = m_menu.addAction(tr("Settings"));
    connect(m_settingsAction, &QAction::triggered, this, &TrayIcon::settingsRequested);
    m_menu.addSeparator();
    connect(m_menu.addAction(tr("Quit")), &QAction::triggered, this, &TrayIcon::quitRequested);

    connect(&coordinator, &CurrentCoordinator::phaseChanged, this, &TrayIcon::redraw);
    connect(&coordinator, &CurrentCoordinator::keepsEveryChangeChanged, this, &TrayIcon::redraw);
    connect(&coordinator.recordingClock(), &RecordingClock::changed, this, &TrayIcon::showToolTip);
    connect(&m_host, &TrayHost::found, this, [this] {
        create();
        Q_EMIT appeared();
    });
    connect(&m_host, &TrayHost::gaveUp, this, &TrayIcon::create);
    connect(&m_host, &TrayHost::missing, this, &TrayIcon::missing);
    redraw();
}

TrayIcon::~TrayIcon() = default;

QAction* TrayIcon::addSwitch(const QString& text)
{
    auto* const action = new QAction(text, &m_menu);
    action->setCheckable(true);
    m_menu.insertAction(m_settingsAction, action);
    return action;
}

void TrayIcon::show()
{
    m_host.find();
}

void TrayIcon::reconnect()
{
    m_host.reconnect();
    if (m_icon)
        create();
}

void TrayIcon::hide()
{
    m_host.disconnect(this);
    m_icon.reset();
}

void TrayIcon::create()
{
    m_icon.reset(); // its connection to the bus ends with it
    m_icon = std::make_unique<QSystemTrayIcon>();
    m_icon->setContextMenu(&m_menu);
    connect(m_icon.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            Q_EMIT clicked();
        else if (reason == QSystemTrayIcon::MiddleClick)
            m_coordinator.stop(); // if there is something to stop
    });
    redraw();
    m_icon->show();
}

QRect TrayIcon::place() const
{
    if (!m_icon)
        return {};
    const auto place = m_icon->geometry();
    return place.isEmpty() ? clickedPlace() : place;
}

void TrayIcon::redraw()
{
    const bool isRecording = m_coordinator.isIn<RecordingCoordinator::Recording>();
    m_recordAction->setText(isRecording ? tr("Stop && Copy") : tr("Record Region"));
    m_everyChangeAction->setChecked(m_coordinator.keepsEveryChange());
    if (!m_icon)
        return;
    QIcon& look = m_looks.at(isRecording ? 1 : 0);
    if (look.isNull())
        look = Icons::trayIcon(isRecording);
    m_icon->setIcon(look);
    showToolTip();
}

void TrayIcon::showToolTip()
{
    if (!m_icon)
        return;
    const QString time = RecordingClock::text(m_coordinator.recordingClock().elapsed());
    m_icon->setToolTip(m_coordinator.isIn<RecordingCoordinator::Recording>()
            ? tr("Quillbox — Recording…") + QLatin1Char(' ') + time
            : QStringLiteral("Quillbox"));
}

} // namespace quillbox

#include "moc_TrayIcon.cpp"
