#include "App/Updates/UpdateService.h"

#include "App/Updates/FlatpakService.h"
#include "App/Updates/NoUpdateService.h"
#include "App/Updates/PackageKitService.h"
#include "PostCapture/FileReveal.h"

#include <QCoreApplication>

namespace quillbox {
namespace {

/// Programs of packages are below /usr, but not below /usr/local. @see Filesystem Hierarchy Standard 3.0, chapter 4
bool isPlacedByThePackageManager()
{
    const auto program = QCoreApplication::applicationFilePath();
    return program.startsWith(QLatin1String("/usr/")) && !program.startsWith(QLatin1String("/usr/local/"));
}

} // namespace

UpdateBackend updateBackend()
{
    const auto wanted = qgetenv("QUILLBOX_UPDATE_BACKEND");
    if (wanted == "packagekit")
        return UpdateBackend::PackageKit;
    if (wanted == "flatpak")
        return UpdateBackend::Flatpak;
    if (!wanted.isEmpty())
        return UpdateBackend::SwitchedOff;
    if (FileReveal::isInSandbox())
        return UpdateBackend::Flatpak;
    return isPlacedByThePackageManager() ? UpdateBackend::PackageKit : UpdateBackend::None;
}

std::unique_ptr<UpdateService> makeUpdateService()
{
    switch (updateBackend()) {
    case UpdateBackend::PackageKit:
        return std::make_unique<PackageKitService>();
    case UpdateBackend::Flatpak:
        return std::make_unique<FlatpakService>();
    case UpdateBackend::SwitchedOff:
        return std::make_unique<NoUpdateService>(UpdateService::Obstacle::SwitchedOff);
    case UpdateBackend::None:
        break;
    }
    return std::make_unique<NoUpdateService>(UpdateService::Obstacle::NotPackaged);
}

} // namespace quillbox
