#include "App/QuillboxApp.h"

#include "App/Desktop/ApplicationService.h"
#include "App/Desktop/ClipboardHandOver.h"
#include "App/Desktop/ClipNotices.h"
#include "App/Desktop/DesktopNotification.h"
#include "App/Desktop/FirstUse.h"
#include "App/Desktop/HotkeyReport.h"
#include "App/Desktop/Recording/PanelGuard.h"
#include "App/Desktop/Recording/RegionFrame.h"
#include "App/Desktop/Recording/TraylessStop.h"
#include "App/Desktop/RunningInstance.h"
#include "App/Desktop/SoftwareCenter.h"
#include "App/Desktop/TrayIcon.h"
#include "App/Desktop/WindowPlaces/PointerPlacement.h"
#include "App/Hotkey/GlobalHotkey.h"
#include "App/Hotkey/HotkeyMath.h"
#include "App/Hotkey/HotkeyNotice.h"
#include "App/Updates/UpdaterController.h"
#include "App/Workflow/CurrentCoordinator.h"
#include "App/Workflow/CutOffOffer.h"
#include "Capture/Region/RegionSelector.h"
#include "Capture/Region/ScreenBackdrop.h"
#include "Capture/StreamRecorder.h"
#include "Platform/DBus/SessionBus.h"
#include "Platform/RunWithTimeout.h"
#include "Platform/StateFile.h"
#include "PostCapture/Clipboard/Clipboard.h"
#include "PostCapture/ClipboardExporter.h"
#include "PostCapture/FileReveal.h"
#include "PostCapture/HistoryStore.h"
#include "PostCapture/OutputFile.h"
#include "Views/ClipSaveDialog.h"
#include "Views/Panel.h"
#include "Views/SettingsView.h"
#include "Views/UpdateView.h"

#include <QAction>
#include <QApplication>
#include <QCalendar>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QFontMetrics>
#include <QScreen>
#include <QTimer>

#include <chrono>
#include <optional>
#include <utility>

namespace quillbox {
namespace {

/// The desktop gives a new icon its place meanwhile, and whoever started the application for something else says so.
constexpr std::chrono::milliseconds introductionDelay{500};

struct Text {
    Q_DECLARE_TR_FUNCTIONS(QuillboxApp)
};

/// The toolkit reads the system's fonts when the first text is measured: now, instead of at the click that opens the
/// panel.
void readFonts()
{
    (void)QFontMetrics(QApplication::font()).horizontalAdvance(QStringLiteral("Quillbox"));
}

} // namespace

QuillboxApp::QuillboxApp(SystemServices services)
    : m_services(std::move(services))
    , m_history(std::make_shared<HistoryStore>())
    , m_screen(std::make_shared<ScreenSession>())
    , m_recorder(std::make_shared<StreamRecorder>(m_screen))
    , m_coordinator(std::make_unique<CurrentCoordinator>(
          std::make_unique<RecordingCoordinator>(m_recorder, std::make_shared<RegionSelector>(m_screen), m_history)))
    , m_cutOff(std::make_unique<CutOffOffer>(*m_coordinator))
    , m_hotkey(std::make_unique<GlobalHotkey>(
          [coordinator = QPointer(m_coordinator.get())] {
              if (coordinator)
                  coordinator->begin();
          },
          m_services.makeHotkey()))
    , m_firstUse(std::make_unique<FirstUse>())
    , m_fileReveal(makeFileReveal())
    , m_handOver(std::make_unique<ClipboardHandOver>())
{
    m_hotkey->registerKey(HotkeyMath::defaultKeyCode, HotkeyMath::defaultModifiers);
    rememberPrecision();
    m_tray = std::make_unique<TrayIcon>(*m_coordinator);
    m_placement = makePointerPlacement();
    m_traylessStop = std::make_unique<TraylessStop>(*m_coordinator, *m_recorder, *m_screen);
    tellOfClips();
    new RegionFrame(*m_recorder, *m_screen, m_recorder.get()); // the recorder owns it
    m_service = std::make_unique<ApplicationService>(*m_coordinator,
        ApplicationService::Actions{.showPanel = [this] { showPanel(); },
            .showSettings = [this] { showSettings(); },
            .quit = [this] { quit(); },
            .frameCount = [this] { return m_recorder->frameCount(); },
            .hotkey =
                [this] {
                    m_hotkey->retry(); // the other program may have let go
                    return HotkeyReport::told(m_hotkey->state());
                }});

    followBus();
    QObject::connect(m_tray.get(), &TrayIcon::clicked, m_tray.get(), [this] { toggleForIcon(); });
    QObject::connect(m_tray.get(), &TrayIcon::openRequested, m_tray.get(), [this] { openForIcon(); });
    if (m_placement)
        QObject::connect(m_placement.get(), &PointerPlacement::ready, m_tray.get(), [this] { showPanel(); });
    QObject::connect(m_tray.get(), &TrayIcon::settingsRequested, m_tray.get(), [this] { showSettings(); });
    QObject::connect(m_tray.get(), &TrayIcon::quitRequested, m_tray.get(), [this] { quit(); });
    QObject::connect(m_tray.get(), &TrayIcon::missing, m_tray.get(), [this] { showWithoutTray(); });
    QObject::connect(m_tray.get(), &TrayIcon::appeared, m_tray.get(), [this] {
        m_hasTray = true;
        m_traylessStop->setHasTray(true);
        explain();
        QTimer::singleShot(0, m_tray.get(), [this] {
            readFonts();
            (void)updater(); // it is started with the application
        });
        if (m_firstUse->isFirstStart())
            QTimer::singleShot(introductionDelay, m_tray.get(), [this] { introduce(); });
    });
    if (!m_history->entries().empty()) // who has clips knows the way
        m_firstUse->end();
    QObject::connect(m_firstUse.get(), &FirstUse::ended, m_firstUse.get(), [this] { explain(); });
    QObject::connect(m_coordinator.get(), &CurrentCoordinator::phaseChanged, m_firstUse.get(), [this] {
        if (m_coordinator->isIn<RecordingCoordinator::Recording>())
            m_firstUse->end();
    });
    QObject::connect(m_hotkey.get(), &GlobalHotkey::stateChanged, m_hotkey.get(), [this] { explain(); });

    QObject::connect(m_handOver.get(), &ClipboardHandOver::ended, m_handOver.get(), &QCoreApplication::quit);

    // The recording can't go on: what there is becomes the clip.
    QObject::connect(
        m_recorder.get(), &ScreenRecorder::interrupted, m_coordinator.get(),
        [this](const QString& reason) {
            m_coordinator->stop();
            m_notices->tellOfEarlyEnd(reason);
        },
        Qt::QueuedConnection);
    QObject::connect(m_recorder.get(), &ScreenRecorder::isRecordingChanged, m_notices.get(), [this] {
        if (!m_recorder->isRecording() && m_screen->takeRemainsLeft())
            m_notices->tellOfRemains(); // when it can't get into the clip itself
    });
    QObject::connect(m_recorder.get(), &ScreenRecorder::impaired, m_coordinator.get(), [] {
        DesktopNotification::show(Text::tr("The recording goes on"),
            Text::tr("It could not be prepared for the clip meanwhile. Making the clip will take longer."));
    });
}

QuillboxApp::~QuillboxApp() = default;

/// A bus that is restarted knows nothing of us.
void QuillboxApp::followBus()
{
    m_bus = std::make_unique<SessionBus>();
    QObject::connect(m_bus.get(), &SessionBus::restored, m_bus.get(), [this] {
        m_isOneTooMany = m_service->claimName() == ApplicationService::Claim::Taken;
        m_hotkey->reconnect();
        m_tray->reconnect();
        giveWay();
    });
    QObject::connect(
        m_coordinator.get(), &CurrentCoordinator::phaseChanged, m_bus.get(), [this] { giveWay(); },
        Qt::QueuedConnection);
}

/// Where another instance has taken the name while there was no bus, this one ends, once it has finished what it is at.
void QuillboxApp::giveWay()
{
    if (!m_isOneTooMany || m_coordinator->isBusy())
        return;
    m_isOneTooMany = false;
    DesktopNotification::show(Text::tr("Quillbox was running twice"),
        Text::tr(
            "The desktop's session bus had been restarted. The one that was started first has ended; its clips are "
            "saved."));
    if (const auto* const clip = m_coordinator->finishedClip();
        clip != nullptr && Clipboard::general().state() == Clipboard::State::Accepted)
        RunningInstance::passOn(clip->path);
    quit();
}

/// The choice outlives the program.
void QuillboxApp::rememberPrecision()
{
    const auto name = QStringLiteral("keep-every-change");
    const auto on = QStringLiteral("on");
    m_coordinator->setKeepsEveryChange(StateFile::read(name) == on);
    QObject::connect(m_coordinator.get(), &CurrentCoordinator::keepsEveryChangeChanged, m_coordinator.get(),
        [coordinator = m_coordinator.get(), name, on] {
            StateFile::replace(name, coordinator->keepsEveryChange() ? on : QString());
        });
}

void QuillboxApp::tellOfClips()
{
    m_notices = std::make_unique<ClipNotices>(
        *m_coordinator, *m_fileReveal, [this] { return m_panel && m_panel->isVisible(); });
    m_noticesChoice = m_tray->addSwitch(Text::tr("Notifications"));
    m_noticesChoice->setChecked(m_notices->isOn());
    QObject::connect(m_noticesChoice, &QAction::toggled, m_notices.get(), &ClipNotices::setOn);
}

bool QuillboxApp::claimName()
{
    return m_service->claimName() != ApplicationService::Claim::Taken; // without a bus it runs all the same
}

void QuillboxApp::start()
{
    m_firstUse->begin();
    m_tray->show();
    m_cutOff->look();
    for (const auto& folder : {ClipboardExporter::clipsPath(), QFileInfo(HistoryStore::defaultURL()).path()})
        patientWorkers().start([path = QFile::encodeName(folder).toStdString()] { OutputFile::removeLeftovers(path); });
}

Panel& QuillboxApp::panel()
{
    if (m_panel)
        return *m_panel;
    m_panel = std::make_unique<Panel>(*m_coordinator, updater(), *m_history, *m_fileReveal);
    QObject::connect(m_panel.get(), &Panel::settingsRequested, m_panel.get(), [this] { showSettings(); });
    QObject::connect(m_panel.get(), &Panel::quitRequested, m_panel.get(), [this] { quit(); });
    QObject::connect(m_panel.get(), &Panel::saveElsewhereRequested, m_panel.get(), [this] { saveElsewhere(); });
    QObject::connect(m_panel.get(), &Panel::copyRequested, &Clipboard::general(), &Clipboard::retry);
    QObject::connect(&Clipboard::general(), &Clipboard::stateChanged, m_panel.get(), [this] { showClipboard(); });
    QObject::connect(m_panel.get(), &Panel::introductionUnderstood, m_firstUse.get(), [this] { m_firstUse->end(); });
    m_panel->showCutOff(*m_cutOff);
    new PanelGuard(*m_recorder, *m_screen, *m_panel); // the panel owns it
    showClipboard();
    explain();
    return *m_panel;
}

UpdaterController& QuillboxApp::updater()
{
    if (m_updater)
        return *m_updater;
    m_updater = std::make_unique<UpdaterController>(m_services.makeUpdates());
    QObject::connect(m_updater.get(), &UpdaterController::phaseChanged, m_updater.get(), [this] { showUpdate(); });
    QObject::connect(m_updater.get(), &UpdaterController::updateSeen, m_updater.get(), [](const Update& update) {
        DesktopNotification::show(update.version.isEmpty() ? Text::tr("A new version of Quillbox is available")
                                                           : Text::tr("Quillbox %1 is available").arg(update.version),
            Text::tr("“Check for Updates…” in the panel installs it."));
    });
    return *m_updater;
}

void QuillboxApp::showUpdate()
{
    if (m_updater->isIn<UpdaterController::Idle>())
        return; // the window closes itself
    if (!m_updateView)
        makeUpdateView();
    const bool isWished = m_updater->isIn<UpdaterController::Looking>();
    if (!isWished && m_updateView->isVisible())
        return;
    m_hasUpdateNews = !isWished && m_coordinator->isBusy(); // told when nothing of it can get into a clip
    if (!m_hasUpdateNews)
        openUpdateView(isWished);
}

void QuillboxApp::makeUpdateView()
{
    m_updateView = std::make_unique<UpdateView>(*m_updater);
    QObject::connect(m_updateView.get(), &UpdateView::restartRequested, m_updateView.get(), [this] { restart(); });
    QObject::connect(m_updateView.get(), &UpdateView::softwareCenterRequested, m_updateView.get(), [this] {
        SoftwareCenter::show();
        m_updateView->close();
    });
    const auto followWork = [this] {
        m_updateView->setBusy(m_coordinator->isBusy());
        if (!m_coordinator->isBusy() && std::exchange(m_hasUpdateNews, false))
            openUpdateView(false);
    };
    QObject::connect(m_coordinator.get(), &CurrentCoordinator::phaseChanged, m_updateView.get(), followWork);
    followWork();
}

/// @param isWished  The user waits for it: else keys go where they were meant to go.
void QuillboxApp::openUpdateView(bool isWished)
{
    m_updateView->setSoftwareCenter(SoftwareCenter::isThere());
    m_updateView->setAttribute(Qt::WA_ShowWithoutActivating, !isWished);
    m_updateView->show();
    m_updateView->raise();
    if (isWished)
        m_updateView->activateWindow();
}

void QuillboxApp::restart()
{
    quit();                                   // another instance has room now
    (void)m_updater->startInstalledVersion(); // if it can't be started, the user will
}

void QuillboxApp::showPanel()
{
    m_hotkey->retry(); // if another program had the keys, the panel would say so
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
        openForIcon();
}

void QuillboxApp::openForIcon()
{
    if (m_placement)
        m_placement->prepare(panel().windowTitle());
    else
        showPanel();
}

void QuillboxApp::showWithoutTray()
{
    m_hasTray = false;
    m_traylessStop->setHasTray(false);
    explain();
    if (m_coordinator->isIn<RecordingCoordinator::Idle>()) // a user at work knows the way already
        showPanel();
}

/// Shows where things are, unless the user has found something already.
void QuillboxApp::introduce()
{
    const bool isBusy = !m_coordinator->isIn<RecordingCoordinator::Idle>();
    if (m_firstUse->isIntroducing() && !isBusy && !m_settings && !m_panel)
        showPanel();
}

void QuillboxApp::showSettings()
{
    if (!m_settings) {
        m_settings = std::make_unique<SettingsView>(QString());
        explain();
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
    // A clip that is being made is finished first. What is being recorded is kept for the next start.
    const auto handOver = [this] {
        if (!m_coordinator->isIn<RecordingCoordinator::Processing>())
            m_handOver->begin();
    };
    QObject::connect(m_coordinator.get(), &CurrentCoordinator::phaseChanged, m_handOver.get(), handOver);
    handOver();
}

void QuillboxApp::showClipboard()
{
    m_panel->setClipPending(Clipboard::general().state() == Clipboard::State::Pending);
}

/// Asks where the clip goes that could not be saved, and makes it for that place.
void QuillboxApp::saveElsewhere()
{
    if (!m_saveDialog) {
        m_saveDialog = std::make_unique<ClipSaveDialog>();
        QObject::connect(
            m_saveDialog.get(), &QFileDialog::fileSelected, m_saveDialog.get(), [this](const QString& path) {
                if (!m_coordinator->canTryAgain())
                    return; // the user has gone on to another recording
                ClipRequest request = m_coordinator->latestRequest();
                request.path = path;
                m_coordinator->makeAgain(request);
                showPanel();
            });
    }
    m_saveDialog->ask(ClipboardExporter::fileName(QDateTime::currentDateTime(), QStringLiteral("gif"), QCalendar()));
}

/// Tells what is not as usual, and newcomers everything.
void QuillboxApp::explain()
{
    const auto state = m_hotkey->state();
    if (m_panel)
        m_panel->setSwitch(m_hasTray ? nullptr : m_noticesChoice); // the icon's menu has it
    if (m_panel && m_firstUse->isIntroducing()) {
        m_panel->setIntroduction(FirstUseCard::Facts{.hasTray = m_hasTray,
            .combination = HotkeyNotice::combination(state),
            .keys = HotkeyNotice::introduction(state),
            .clipsFolder = ClipboardExporter::clipsDirectory()});
        m_panel->setNotice(HotkeyNotice::instead(state)); // the introduction says why
    } else if (m_panel) {
        m_panel->setIntroduction(std::nullopt);
        m_panel->setNotice(HotkeyNotice::problem(state));
    }
    if (m_settings)
        m_settings->setFooterNotice(HotkeyNotice::explanation(state));
}

} // namespace quillbox
