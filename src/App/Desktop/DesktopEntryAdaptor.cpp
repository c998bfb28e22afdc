#include "App/Desktop/DesktopEntryAdaptor.h"

#include "App/Desktop/ApplicationService.h"

namespace quillbox {
namespace {

/// Lets the window that comes next have the focus, as the one who clicked wished. Qt reads it from here.
void passOnActivation(const QVariantMap& platformData)
{
    const auto token = platformData.value(QStringLiteral("activation-token")).toString();
    if (!token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

} // namespace

DesktopEntryAdaptor::DesktopEntryAdaptor(ApplicationService& service)
    : QDBusAbstractAdaptor(&service)
    , m_service(service)
{
}

void DesktopEntryAdaptor::Activate(const QVariantMap& platformData)
{
    passOnActivation(platformData);
    m_service.showPanel();
}

void DesktopEntryAdaptor::Open(const QStringList& /*uris*/, const QVariantMap& platformData)
{
    Activate(platformData);
}

void DesktopEntryAdaptor::ActivateAction(
    const QString& actionName, const QVariantList& /*parameter*/, const QVariantMap& platformData)
{
    passOnActivation(platformData);
    if (actionName == QLatin1String("record-region"))
        m_service.begin();
    else if (actionName == QLatin1String("settings"))
        m_service.showSettings();
}

} // namespace quillbox
