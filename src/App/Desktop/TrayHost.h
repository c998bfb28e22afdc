#pragma once

#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>

namespace quillbox {

/// Finds out whether the desktop has a place for tray icons. The toolkit asks only once, at its first use, and keeps to
/// the answer; so it is asked once this object knows. Thread: main.
/// @see freedesktop.org: StatusNotifierItem; System Tray Protocol (XEmbed)
class TrayHost : public QObject {
    Q_OBJECT

public:
    // Where it looks: a property of a service on the session bus, and a selection of the X server.
    static constexpr auto watcherService = "org.kde.StatusNotifierWatcher"; ///< its interface is called the same
    static constexpr auto watcherPath = "/StatusNotifierWatcher";
    static constexpr auto hostProperty = "IsStatusNotifierHostRegistered";
    static constexpr auto traySelection = "_NET_SYSTEM_TRAY_S0";

    explicit TrayHost(QObject* parent = nullptr);

    /// Looks, and goes on looking for a while: a session that is just starting brings its panel up when it can.
    void find();
    /// Goes on looking on the session bus that has been restarted.
    void reconnect();

Q_SIGNALS:
    /// There is one.
    void found();
    /// There is none yet, and a user who waits should be shown something else. `found` may still follow.
    void missing();
    /// There is none, and the search is over. The old kind may still come, which the toolkit notices by itself.
    void gaveUp();

private:
    Q_SLOT void askWatcher();
    void listen();
    void end();

    QDBusServiceWatcher m_watcher;
    QTimer m_patience;
    QTimer m_search;
    bool m_isOver = false;
};

} // namespace quillbox
