#include "PostCapture/FileRevealReport.h"

#include "Platform/DBus/BusQueries.h"
#include "Platform/DBus/SessionBus.h"
#include "Platform/Portal/DesktopPortal.h"
#include "Platform/Sandbox.h"
#include "PostCapture/FileReveal.h"
#include "Translation/Translate.h"

#include <QDBusConnection>
#include <QStandardPaths>

namespace quillbox {

QCoro::Task<ServiceReport> FileRevealReport::make()
{
    using BusQueries::Presence;
    ServiceReport report;
    report.service = QT_TRANSLATE_NOOP("Doctor", "File manager");
    const auto bus = SessionBus::connection();
    auto lookingForManager = BusQueries::presence(bus, QLatin1String(FileReveal::fileManagerService));
    const bool hasManager = co_await lookingForManager != Presence::None;
    auto asking = BusQueries::property(bus, QLatin1String(DesktopPortal::service), QLatin1String(DesktopPortal::path),
        QLatin1String(FileReveal::portalInterface), QStringLiteral("version"));
    const QVariant version = co_await asking;
    const bool hasOpener = !QStandardPaths::findExecutable(QStringLiteral("xdg-open")).isEmpty();
    if (hasManager)
        report.found.emplace_back(translate("Doctor", "a file manager on the bus (FileManager1)"));
    if (version.isValid())
        report.found.push_back(
            withArguments(translate("Doctor", "the portal's OpenURI, version %1"), {std::to_string(version.toUInt())}));
    report.health = ServiceReport::Health::Works;
    if (hasManager && !isInSandbox()) {
        report.used = translate("Doctor", "the file manager, which selects the clip");
    } else if (version.isValid()) {
        report.used = translate("Doctor", "the desktop portal, which opens the folder");
    } else if (hasOpener) {
        report.used = translate("Doctor", "xdg-open, which opens the folder");
        report.health = ServiceReport::Health::Limited;
    } else {
        report.used = translate("Doctor", "Nothing here opens folders");
        report.health = ServiceReport::Health::Limited;
        report.packages.emplace_back("xdg-utils");
    }
    co_return report;
}

} // namespace quillbox
