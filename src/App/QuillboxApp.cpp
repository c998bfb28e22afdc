#include "App/QuillboxApp.h"

#include "App/CurrentCoordinator.h"
#include "App/Desktop/ApplicationService.h"
#include "App/Desktop/ClipboardHandOver.h"
#include "App/Desktop/DesktopNotice.h"
#include "App/Desktop/PanelGuard.h"
#include "App/Desktop/TrayIcon.h"
#include "App/Hotkey/GlobalHotkey.h"
#include "App/Hotkey/HotkeyMath.h"
#include "App/UpdaterController.h"
#include "Capture/ScreenBackdrop.h"
#include "Capture/StreamRecorder.h"
#include "Encoding/Precondition.h"
#include "PostCapture/FileReveal.h"
#include "PostCapture/HistoryStore.h"
#include "Views/Panel.h"
#include "Views/SettingsView.h"

#include <QApplication>
#include <QFontMetrics>
#include <QScreen>
#include <QTimer>

namespace quillbox {
namespace {

constexpr std::uint32_t digitTwo = 19; // the physical key

QString text(const char* source)
{
    return QCoreApplication::translate("QuillboxApp", source);
}

QString hotkeyProblem(HotkeyStatus status)
{
    switch (status) {
    case HotkeyStatus::Taken:
        return text("⌘⇧2 is in use by another program. “quillbox toggle” can be bound to any other key.");
    case HotkeyStatus::Unavailable:
        return text("This desktop has no global hotkeys. Bind “quillbox toggle” to a key in its settings.");
    case HotkeyStatus::Active:
    case HotkeyStatus::NotRegistered:
        break;
    }
    return {};
}

/// The toolkit reads the system's fonts when the first text is measured: now, instead of at the click that opens the
/// panel.
void readFonts()
{
    (void)QFontMetrics(QApplication::font()).horizontalAdvance(QStringLiteral("Quillbox"));
}

} // namespace

QuillboxApp::QuillboxApp()
    : m_history(std::make_shared<HistoryStore>())
    , m_coordinator(
          std::make_unique<CurrentCoordinator>(std::make_unique<RecordingCoordinator>(nullptr, nullptr, m_history)))
    , m_hotkey(std::make_unique<GlobalHotkey>([coordinator = QPointer(m_coordinator.get())] {
        if (coordinator)
            coordinator->begin();
    }))
    , m_fileReveal(makeFileReveal())
    , m_handOver(std::make_unique<ClipboardHandOver>())
{
    m_hotkey->registerKey(digitTwo, HotkeyMath::carbonModifiers({.command = true, .shift = true}));
    m_tray = std::make_unique<TrayIcon>(*m_coordinator);
    m_service = std::make_unique<ApplicationService>(*m_coordinator,
        ApplicationService::Actions{.showPanel = [this] { showPanel(); },
            .showSettings = [this] { showSettings(); },
            .quit = [this] { quit(); },
            .frameCount =
                [this] {
                    return recorder().frameCount();
                }});

    QObject::connect(m_tray.get(), &TrayIcon::clicked, m_tray.get(), [this] { toggleForIcon(); });
    QObject::connect(m_tray.get(), &TrayIcon::openRequested, m_tray.get(), [this] { showPanel(); });
    QObject::connect(m_tray.get(), &TrayIcon::settingsRequested, m_tray.get(), [this] { showSettings(); });
    QObject::connect(m_tray.get(), &TrayIcon::quitRequested, m_tray.get(), [this] { quit(); });
    QObject::connect(m_tray.get(), &TrayIcon::missing, m_tray.get(), [this] { showWithoutTray(); });
    QObject::connect(m_tray.get(), &TrayIcon::appeared, m_tray.get(), [this] {
        m_hasTray = true;
        QTimer::singleShot(0, m_tray.get(), &readFonts);
    });
    QObject::connect(m_hotkey.get(), &GlobalHotkey::statusChanged, m_hotkey.get(), [this] { explainHotkey(); });

    QObject::connect(m_handOver.get(), &ClipboardHandOver::ended, m_handOver.get(), &QCoreApplication::quit);

    // The recording can't go on: what there is becomes the clip.
    QObject::connect(
        &recorder(), &StreamRecorder::interrupted, m_coordinator.get(),
        [coordinator = m_coordinator.get()](const QString& reason) {
            coordinator->stop();
            DesktopNotice::show(text("The recording ended early"), text("%1. What was recorded is kept.").arg(reason));
        },
        Qt::QueuedConnection);
}

QuillboxApp::~QuillboxApp() = default;

bool QuillboxApp::claimName()
{
    return m_service->claimName() != ApplicationService::Claim::Taken; // without a bus it runs all the same
}

void QuillboxApp::start()
{
    m_tray->show();
}

/// The coordinator makes its own recorder, and hands it on to the one that takes its place.
StreamRecorder& QuillboxApp::recorder() const
{
    auto* const recorder = dynamic_cast<StreamRecorder*>(m_coordinator->get().recorder().get());
    precondition(recorder != nullptr, "the application records with a stream recorder");
    return *recorder;
}

Panel& QuillboxApp::panel()
{
    if (m_panel)
        return *m_panel;
    m_updater = std::make_unique<UpdaterController>();
    m_panel = std::make_unique<Panel>(*m_coordinator, *m_updater, *m_history, *m_fileReveal);
    QObject::connect(m_panel.get(), &Panel::settingsRequested, m_panel.get(), [this] { showSettings(); });
    QObject::connect(m_panel.get(), &Panel::quitRequested, m_panel.get(), [this] { quit(); });
    new PanelGuard(recorder(), *m_panel); // the panel owns it
    explainHotkey();
    return *m_panel;
}

void QuillboxApp::showPanel()
{
    if (!m_hasTray) {
        panel().openAsWindow();
        return;
    }
    panel().setCorners(ScreenBackdrop::showsThrough() ? Panel::Corners::Rounded : Panel::Corners::Square);
    const auto place = m_tray->place();
    const auto* screen = QGuiApplication::screenAt(place.center());
    if (place.isEmpty() || screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    if (screen != nullptr)
        panel().openNear(place, screen->availableGeometry());
}

void QuillboxApp::toggleForIcon()
{
    if (m_panel && m_panel->isVisible())
        m_panel->hide();
    else if (!m_panel || !m_panel->wasJustClosed())
        showPanel();
}

void QuillboxApp::showWithoutTray()
{
    m_hasTray = false;
    if (m_coordinator->get().isIn<RecordingCoordinator::Idle>()) // a user at work knows the way already
        showPanel();
}

void QuillboxApp::showSettings()
{
    if (!m_settings) {
        m_settings = std::make_unique<SettingsView>(QString());
        explainHotkey();
    }
    m_settings->show();
    m_settings->raise();
    m_settings->activateWindow();
}

void QuillboxApp::quit()
{
    ApplicationService::releaseName();
    m_hotkey->release();
    m_tray->hide();
    for (QWidget* const window : QApplication::topLevelWidgets())
        window->hide();
    m_handOver->begin();
}

void QuillboxApp::explainHotkey()
{
    const auto problem = hotkeyProblem(m_hotkey->status());
    if (m_panel)
        m_panel->setNotice(problem);
    if (m_settings)
        m_settings->setFooterNotice(
            problem.isEmpty() ? text("⌘ is the Super key: press Super + Shift + 2 in any program.") : problem);
}

} // namespace quillbox
