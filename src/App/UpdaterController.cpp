#include "App/UpdaterController.h"

#include <utility>

namespace quillbox {

UpdaterController::UpdaterController(std::unique_ptr<UpdateService> service, QObject* parent)
    : QObject(parent)
    , m_service(std::move(service))
{
    connect(m_service.get(), &UpdateService::canCheckForUpdatesChanged, this,
        &UpdaterController::canCheckForUpdatesChanged);
    m_service->start();
}

UpdaterController::~UpdaterController() = default;

void UpdaterController::checkForUpdates()
{
    if (canCheckForUpdates())
        m_service->checkForUpdates();
}

bool UpdaterController::canCheckForUpdates() const
{
    return m_service->canCheckForUpdates();
}

} // namespace quillbox
