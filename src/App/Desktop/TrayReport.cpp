#include "App/Desktop/TrayReport.h"

#include "App/Desktop/TrayHost.h"
#include "Platform/DBus/BusQueries.h"
#include "Platform/DBus/SessionBus.h"
#include "Platform/DisplayError.h"
#include "Platform/RunWithTimeout.h"
#include "Platform/WindowSystem.h"
#include "Platform/X11/X11Queries.h"
#include "Translation/Translate.h"

#include <QCoro/QCoroFuture>
#include <QDBusConnection>

namespace quillbox {

namespace {

using Health = ServiceReport::Health;

/// On the thread that may wait for the server.
bool hasTraySelection()
{
    try {
        return X11Queries::isSelectionOwnedOnDisplay(TrayHost::traySelection);
    } catch (const DisplayError&) {
        return false; // the report on the screen says that there is no server
    }
}

} // namespace

QCoro::Task<ServiceReport> TrayReport::make()
{
    ServiceReport report;
    report.service = QT_TRANSLATE_NOOP("Doctor", "Tray");
    const QString watcher = QLatin1String(TrayHost::watcherService);
    auto asking = BusQueries::property(SessionBus::connection(), watcher, QLatin1String(TrayHost::watcherPath), watcher,
        QLatin1String(TrayHost::hostProperty));
    const QVariant hasHost = co_await asking;
    bool hasSelection = false;
    if (sessionWindowSystem() == WindowSystem::X11) {
        const auto answer = runWithTimeout<bool>(reportPatience, &hasTraySelection);
        const std::optional<bool> answered = co_await answer;
        hasSelection = answered.value_or(false);
    }
    if (hasHost.isValid())
        report.found.emplace_back(hasHost.toBool()
                ? translate("Doctor", "a StatusNotifierItem watcher with a host")
                : translate("Doctor", "a StatusNotifierItem watcher without a host"));
    if (hasSelection)
        report.found.emplace_back(translate("Doctor", "a tray of the X server's kind (XEmbed)"));
    if (hasHost.toBool() || hasSelection) {
        report.health = Health::Works;
        report.used = hasHost.toBool() ? translate("Doctor", "a StatusNotifierItem") : "XEmbed";
        co_return report;
    }
    report.health = Health::Limited;
    report.used = translate("Doctor", "This desktop shows no tray icons");
    report.advice.emplace_back(translate("Doctor", "quillbox show opens the panel"));
    if (qgetenv("XDG_CURRENT_DESKTOP").split(':').contains("GNOME"))
        report.packages.emplace_back("gnome-shell-extension-appindicator");
    co_return report;
}

} // namespace quillbox
