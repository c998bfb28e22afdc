#include "Platform/Portal/DesktopPortal.h"

namespace quillbox::DesktopPortal {

QDBusMessage method(const QString& interface, const QString& name, const QVariantList& arguments)
{
    auto message = QDBusMessage::createMethodCall(QLatin1String(service), QLatin1String(path), interface, name);
    message.setArguments(arguments);
    return message;
}

QDBusMessage closing(const QString& object, const QString& interface)
{
    auto message = QDBusMessage::createMethodCall(QLatin1String(service), object, interface, QStringLiteral("Close"));
    message.setAutoStartService(false);
    return message;
}

PortalError errorIn(const QDBusMessage& reply)
{
    using Reason = PortalError::Reason;
    const QString name = reply.errorName();
    const QString text = reply.errorMessage().simplified();
    auto reason = Reason::Refused;
    if (name.endsWith(QLatin1String(".ServiceUnknown")) || name.endsWith(QLatin1String(".NameHasNoOwner"))
        || name.contains(QLatin1String(".Spawn.")))
        reason = Reason::NoPortal;
    else if (name.endsWith(QLatin1String(".UnknownMethod")) || name.endsWith(QLatin1String(".UnknownInterface"))
        || name.endsWith(QLatin1String(".UnknownObject")))
        reason = Reason::NoInterface;
    else if (name.endsWith(QLatin1String(".NoReply")) || name.endsWith(QLatin1String(".Disconnected")))
        reason = Reason::Gone;
    return PortalError(reason, text.isEmpty() ? name : text);
}

} // namespace quillbox::DesktopPortal
