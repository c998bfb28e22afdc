#include "App/Desktop/DesktopEntryAdaptor.h"

#include <utility>

namespace quillbox {

DesktopEntryAdaptor::DesktopEntryAdaptor(QObject* object, Actions actions)
    : QDBusAbstractAdaptor(object)
    , m_actions(std::move(actions))
{
}

void DesktopEntryAdaptor::passOnActivation(const QVariantMap& platformData)
{
    const auto token = platformData.value(QStringLiteral("activation-token")).toString();
    if (!token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8()); // where the toolkit looks for it
}

void DesktopEntryAdaptor::Activate(const QVariantMap& platformData) const
{
    passOnActivation(platformData);
    m_actions.showPanel();
}

void DesktopEntryAdaptor::Open(const QStringList& /*uris*/, const QVariantMap& platformData) const
{
    Activate(platformData);
}

void DesktopEntryAdaptor::ActivateAction(
    const QString& actionName, const QVariantList& /*parameter*/, const QVariantMap& platformData) const
{
    passOnActivation(platformData);
    if (actionName == QLatin1String("record-region"))
        m_actions.begin();
    else if (actionName == QLatin1String("settings"))
        m_actions.showSettings();
}

} // namespace quillbox

#include "moc_DesktopEntryAdaptor.cpp"
