#include "App/Desktop/DesktopEntryAdaptor.h"

#include "App/Desktop/ApplicationService.h"

namespace quillbox {

DesktopEntryAdaptor::DesktopEntryAdaptor(ApplicationService& service)
    : QDBusAbstractAdaptor(&service)
    , m_service(service)
{
}

void DesktopEntryAdaptor::Activate(const QVariantMap& platformData)
{
    ApplicationService::passOnActivation(platformData);
    m_service.showPanel();
}

void DesktopEntryAdaptor::Open(const QStringList& /*uris*/, const QVariantMap& platformData)
{
    Activate(platformData);
}

void DesktopEntryAdaptor::ActivateAction(
    const QString& actionName, const QVariantList& /*parameter*/, const QVariantMap& platformData)
{
    ApplicationService::passOnActivation(platformData);
    if (actionName == QLatin1String("record-region"))
        m_service.begin();
    else if (actionName == QLatin1String("settings"))
        m_service.showSettings();
}

} // namespace quillbox
