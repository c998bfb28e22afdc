#pragma once

#include "App/Hotkey/HotkeyChoice.h"
#include "App/Updates/UpdateChoice.h"

#include <functional>
#include <memory>

class QAction;
class QRect;

namespace quillbox {

class ApplicationService;
class ClipNotices;
class ClipSaveDialog;
class ClipboardHandOver;
class CurrentCoordinator;
class CutOffOffer;
class FileReveal;
class FirstUse;
class GlobalHotkey;
class HistoryStore;
class Panel;
class PointerPlacement;
class ScreenRecorder;
class ScreenSession;
class SessionBus;
class SettingsView;
class TrayIcon;
class TraylessStop;
class UpdateView;
class UpdaterController;

/// Makes what the application asks the system for; each is called once.
struct SystemServices {
    std::function<std::unique_ptr<HotkeyService>()> makeHotkey = &makeHotkeyService;
    std::function<std::unique_ptr<UpdateService>()> makeUpdates = &makeUpdateService;
};

/// The desktop application: makes its parts, in this order, and wires them: history, coordinator, hotkey; then what the
/// user sees. The updater is made once the icon is in the tray, or when the panel is asked for before; the panel when
/// it is first asked for. Thread: main.
class QuillboxApp {
public:
    /// @pre a DesktopApplication exists.
    explicit QuillboxApp(SystemServices services = {});
    ~QuillboxApp();
    QuillboxApp(const QuillboxApp&) = delete;
    QuillboxApp& operator=(const QuillboxApp&) = delete;

    /// Takes the application's name on the bus. @return false when another instance has it.
    bool claimName();
    /// Puts the icon into the tray.
    void start();

    void showPanel();
    void showSettings();
    /// Lets go of all that another instance would need, lets a clip that is being made be finished, hands the clipboard
    /// over, and ends the event loop: at once, or within seconds.
    void quit();

private:
    void followBus();
    void giveWay();
    void rememberPrecision();
    void tellOfClips();
    Panel& panel();
    UpdaterController& updater();
    void showUpdate();
    void makeUpdateView();
    void openUpdateView(bool isWished);
    void restart();
    void toggleForIcon();
    void openForIcon();
    void showWithoutTray();
    void showClipboard();
    void saveElsewhere();
    void introduce();
    void explain();

    SystemServices m_services;
    std::shared_ptr<HistoryStore> m_history;
    std::shared_ptr<ScreenSession> m_screen;
    std::shared_ptr<ScreenRecorder> m_recorder;
    std::unique_ptr<CurrentCoordinator> m_coordinator;
    std::unique_ptr<CutOffOffer> m_cutOff;
    std::unique_ptr<GlobalHotkey> m_hotkey;
    std::unique_ptr<FirstUse> m_firstUse;
    std::unique_ptr<FileReveal> m_fileReveal;
    std::unique_ptr<UpdaterController> m_updater;
    std::unique_ptr<ApplicationService> m_service;
    std::unique_ptr<SessionBus> m_bus;
    std::unique_ptr<TrayIcon> m_tray;
    std::unique_ptr<PointerPlacement> m_placement; // none where the panel places itself, or nobody does
    std::unique_ptr<TraylessStop> m_traylessStop;
    std::unique_ptr<ClipNotices> m_notices;
    QAction* m_noticesChoice = nullptr; // the tray icon's
    std::unique_ptr<SettingsView> m_settings;
    std::unique_ptr<Panel> m_panel;
    std::unique_ptr<ClipSaveDialog> m_saveDialog;
    std::unique_ptr<UpdateView> m_updateView;
    bool m_hasUpdateNews = false; // which wait until nothing is being recorded
    std::unique_ptr<ClipboardHandOver> m_handOver;
    bool m_hasTray = true;
    bool m_isOneTooMany = false; // another instance has the name
};

} // namespace quillbox
