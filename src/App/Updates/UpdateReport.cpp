#include "App/Updates/UpdateReport.h"

#include "App/Updates/PackageKit.h"
#include "App/Updates/UpdateChoice.h"
#include "Platform/DBus/BusQueries.h"
#include "Translation/Translate.h"

#include <QDBusConnection>

namespace quillbox {

namespace {

ServiceReport limited()
{
    ServiceReport report;
    report.service = QT_TRANSLATE_NOOP("Doctor", "Updates");
    report.health = ServiceReport::Health::Limited;
    return report;
}

QCoro::Task<ServiceReport> packageKitReport()
{
    ServiceReport report = limited();
    const auto bus = QDBusConnection::systemBus();
    auto lookingFor = BusQueries::presence(bus, QString::fromLatin1(PackageKit::service));
    const auto presence = co_await lookingFor;
    if (!bus.isConnected()) {
        report.used = translate("Doctor", "There is no system bus");
    } else if (presence == BusQueries::Presence::None) {
        report.used = translate("Doctor", "There is no PackageKit");
        report.packages.emplace_back("packagekit");
    } else {
        report.health = ServiceReport::Health::Works;
        report.used = "PackageKit";
    }
    co_return report;
}

} // namespace

QCoro::Task<ServiceReport> UpdateReport::make()
{
    const auto choice = chooseUpdates();
    if (choice.backEnd == UpdateBackEnd::PackageKit) {
        auto asking = packageKitReport();
        co_return co_await asking;
    }
    ServiceReport report = limited();
    report.used = choice.reason;
    if (choice.backEnd == UpdateBackEnd::Flatpak) {
        report.health = ServiceReport::Health::Works;
        report.used = "Flatpak";
    } else if (choice.backEnd == UpdateBackEnd::Unpackaged) {
        report.advice.emplace_back(translate("Doctor", "update Quillbox the way it was installed"));
    }
    co_return report;
}

} // namespace quillbox
