#include "App/Updates/UpdaterController.h"

#include "App/Updates/UpdateMessages.h"
#include "Platform/Detach.h"

#include <QPointer>

#include <utility>

namespace quillbox {
namespace {

/// Whether a person in a software centre might get further than we did.
bool canSoftwareCenterHelp(UpdateError::Reason reason)
{
    switch (reason) {
    case UpdateError::Reason::NotPackaged:
    case UpdateError::Reason::Refused:
    case UpdateError::Reason::NotInstalled:
    case UpdateError::Reason::Failed:
        return true;
    default:
        return false;
    }
}

} // namespace

UpdaterController::UpdaterController(std::unique_ptr<UpdateService> service, QObject* parent)
    : QObject(parent)
    , m_service(std::move(service))
{
    connect(m_service.get(), &UpdateService::obstacleChanged, this, &UpdaterController::canCheckForUpdatesChanged);
    connect(m_service.get(), &UpdateService::updateSeen, this, &UpdaterController::hearOf);
    connect(m_service.get(), &UpdateService::progressed, this, [this](int percent) {
        if (isWorking())
            Q_EMIT progressed(percent);
    });
    m_service->start();
}

UpdaterController::~UpdaterController() = default;

bool UpdaterController::canCheckForUpdates() const
{
    return !isWorking() && m_service->obstacle() == UpdateService::Obstacle::None;
}

QString UpdaterController::obstacle() const
{
    return isWorking() ? QString() : UpdateMessages::describe(m_service->obstacle());
}

void UpdaterController::setPhase(Phase next)
{
    Q_EMIT phaseAboutToChange(next);
    m_phase = std::move(next);
    Q_EMIT phaseChanged();
    Q_EMIT canCheckForUpdatesChanged();
}

void UpdaterController::checkForUpdates()
{
    if (canCheckForUpdates())
        detach(look());
}

QCoro::Task<> UpdaterController::look()
{
    const QPointer self(this);
    const int number = ++m_look;
    setPhase(Looking{});
    Phase result;
    try {
        auto finding = co_await m_service->look();
        if (!self || number != m_look)
            co_return;
        const auto staleness = finding.staleness ? UpdateMessages::staleness(*finding.staleness) : QString();
        if (finding.update) {
            m_known = finding.update;
            result = Available{*finding.update, staleness};
        } else if (!finding.isCancelled) {
            result = UpToDate{finding.installedVersion, staleness};
        }
    } catch (const UpdateError& error) {
        result = Failed{
            tr("Couldn't look for updates"), UpdateMessages::describe(error), canSoftwareCenterHelp(error.reason())};
    }
    if (self && number == m_look)
        setPhase(std::move(result));
}

void UpdaterController::install()
{
    if (const auto* const available = std::get_if<Available>(&m_phase))
        detach(installNow(available->update));
}

QCoro::Task<> UpdaterController::installNow(Update update)
{
    const QPointer self(this);
    setPhase(Installing{update});
    Phase result;
    try {
        co_await m_service->install(update);
        result = Installed{update};
    } catch (const UpdateError& error) {
        result = Failed{
            tr("Couldn't install the update"), UpdateMessages::describe(error), canSoftwareCenterHelp(error.reason())};
    }
    if (self)
        setPhase(std::move(result));
}

void UpdaterController::dismiss()
{
    if (isIn<Installing>())
        return;
    if (isIn<Looking>()) {
        ++m_look;
        m_service->cancelLook();
    }
    if (!isIn<Idle>())
        setPhase(Idle{});
}

// NOLINTNEXTLINE(readability-make-member-function-const): what it holds starts a program
bool UpdaterController::startInstalledVersion()
{
    return m_service->startInstalledVersion();
}

void UpdaterController::hearOf(const Update& update)
{
    if (m_known == update || isWorking())
        return; // told, or about to be
    m_known = update;
    Q_EMIT updateSeen(update);
}

} // namespace quillbox

#include "moc_UpdaterController.cpp"
