#pragma once

#include "App/Updates/UpdateService.h"
#include "Platform/DBus/SessionBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QFuture>
#include <QPromise>
#include <QVariantMap>

#include <optional>

namespace quillbox {

/// Updates inside Flatpak, by its update monitor on the session bus: Flatpak looks for them by itself, says so, and
/// installs when told to. Thread: main.
/// @see Flatpak, org.freedesktop.portal.Flatpak.xml (version 2 and later)
class FlatpakService : public UpdateService {
    Q_OBJECT

public:
    explicit FlatpakService(QDBusConnection bus = SessionBus::connection());
    ~FlatpakService() override;

    void start() override;
    [[nodiscard]] Obstacle obstacle() const override;
    /// Tells what Flatpak has said so far.
    QCoro::Task<Finding> look() override;
    QCoro::Task<> install(Update update) override;
    void cancelLook() override { } // it takes no time
    bool startInstalledVersion() override;

private Q_SLOTS:
    // The monitor's signals on the bus.
    void receiveUpdateAvailable(const QVariantMap& info);
    void receiveProgress(const QVariantMap& info);

private:                                       // NOLINT(readability-redundant-access-specifiers): Qt sees another one
    using Ending = std::optional<UpdateError>; // nothing where it went well

    void createMonitor();
    void setMonitor(const QString& path);
    void endInstallation(Ending ending);

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    QString m_monitor;       // its object; empty while there is none
    bool m_isAsking = false; // for one
    std::optional<Update> m_seen;
    std::optional<QPromise<Ending>> m_installation;
};

} // namespace quillbox
