#pragma once

#include "App/Desktop/TrayHost.h"

#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QRect>
#include <QSystemTrayIcon>

#include <array>
#include <memory>

namespace quillbox {

class CurrentCoordinator;

/// The icon in the desktop's tray, which opens the panel and shows that a recording runs; its menu is for desktops that
/// open a menu at a click. A click with the middle button ends a recording. It appears once the desktop has a tray.
/// Thread: main.
class TrayIcon : public QObject {
    Q_OBJECT

public:
    explicit TrayIcon(CurrentCoordinator& coordinator, QObject* parent = nullptr);
    ~TrayIcon() override;

    /// A switch in the menu, which the caller sets and follows. @return the menu owns it
    QAction* addSwitch(const QString& text);

    /// Begins to look for a tray.
    void show();
    /// Puts the icon into the tray once more: the session bus, and with it the tray, has been restarted.
    void reconnect();
    /// Takes the icon out of the tray, for good.
    void hide();

    /// Where the icon is, in the window system's coordinates; empty where the desktop doesn't tell.
    [[nodiscard]] QRect place() const;

Q_SIGNALS:
    /// The icon was clicked.
    void clicked();
    void openRequested();
    void settingsRequested();
    void quitRequested();
    /// The desktop has no tray, or not yet.
    void missing();
    /// The icon is in a tray, as far as the desktop tells.
    void appeared();

private:
    void create();
    void redraw();
    void showToolTip();

    CurrentCoordinator& m_coordinator;
    TrayHost m_host;
    QMenu m_menu;
    QAction* m_recordAction = nullptr; // the menu owns it, and the next
    QAction* m_everyChangeAction = nullptr;
    QAction* m_settingsAction = nullptr;
    std::array<QIcon, 2> m_looks; // while not recording and while recording; drawn once, as the toolkit keeps every one
    std::unique_ptr<QSystemTrayIcon> m_icon;
};

} // namespace quillbox
