#include "App/Updates/UpdateChoice.h"

#include "App/Updates/FlatpakService.h"
#include "App/Updates/PackageKitService.h"
#include "Platform/Sandbox.h"
#include "Translation/Translate.h"

#include <QCoreApplication>

namespace quillbox {
namespace {

using BackEnd = UpdateBackEnd;

constexpr BackEndNames<BackEnd, 3> names{
    {{"packagekit", BackEnd::PackageKit}, {"flatpak", BackEnd::Flatpak}, {"none", BackEnd::None}}};

/// Programs of packages are below /usr, but not below /usr/local. @see Filesystem Hierarchy Standard 3.0, chapter 4
bool isPlacedByThePackageManager()
{
    const auto program = QCoreApplication::applicationFilePath();
    return program.startsWith(QLatin1String("/usr/")) && !program.startsWith(QLatin1String("/usr/local/"));
}

/// For a program that nothing can update.
class NoUpdateService : public UpdateService {
public:
    explicit NoUpdateService(Obstacle obstacle)
        : m_obstacle(obstacle)
    {
    }

    void start() override { }
    [[nodiscard]] Obstacle obstacle() const override { return m_obstacle; }
    QCoro::Task<Finding> look() override { throw UpdateError(UpdateError::Reason::NotPackaged); }
    QCoro::Task<> install(Update /*update*/) override { throw UpdateError(UpdateError::Reason::NotPackaged); }
    void cancelLook() override { }
    bool startInstalledVersion() override { return false; } // there is none

private:
    Obstacle m_obstacle;
};

} // namespace

BackEndChoice<BackEnd> chooseUpdates()
{
    if (auto choice = backEndByEnvironment("QUILLBOX_UPDATE_BACKEND", names)) {
        if (choice->backEnd == BackEnd::None && choice->reason.empty())
            choice->reason = translate("Doctor", "Updates are switched off by QUILLBOX_UPDATE_BACKEND");
        return *choice;
    }
    if (isInSandbox())
        return {BackEnd::Flatpak};
    if (isPlacedByThePackageManager())
        return {BackEnd::PackageKit};
    return {BackEnd::Unpackaged, translate("Doctor", "Quillbox was not installed as a package")};
}

std::unique_ptr<UpdateService> makeUpdateService()
{
    switch (chooseUpdates().backEnd) {
    case BackEnd::PackageKit:
        return std::make_unique<PackageKitService>();
    case BackEnd::Flatpak:
        return std::make_unique<FlatpakService>();
    case BackEnd::None:
        return std::make_unique<NoUpdateService>(UpdateService::Obstacle::SwitchedOff);
    case BackEnd::Unpackaged:
        break;
    }
    return std::make_unique<NoUpdateService>(UpdateService::Obstacle::NotPackaged);
}

} // namespace quillbox
