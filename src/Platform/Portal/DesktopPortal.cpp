#include "Platform/Portal/DesktopPortal.h"

#include <QDBusObjectPath>

namespace quillbox::DesktopPortal {

QDBusMessage method(const QString& interface, const QString& name, const QVariantList& arguments)
{
    auto message = QDBusMessage::createMethodCall(QLatin1String(service), QLatin1String(path), interface, name);
    message.setArguments(arguments);
    return message;
}

QDBusPendingCall introduce(const QDBusConnection& bus, int milliseconds)
{
    return bus.asyncCall(method(QStringLiteral("org.freedesktop.host.portal.Registry"), QStringLiteral("Register"),
                             {QStringLiteral(QUILLBOX_APP_ID), QVariantMap()}),
        milliseconds);
}

QDBusMessage propertiesOf(const QString& interface)
{
    return method(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("GetAll"), {interface});
}

Failure failureOf(const QDBusMessage& reply)
{
    const QString name = reply.errorName();
    if (name.endsWith(QLatin1String(".ServiceUnknown")) || name.endsWith(QLatin1String(".NameHasNoOwner"))
        || name.contains(QLatin1String(".Spawn.")))
        return Failure::NoPortal;
    if (name.endsWith(QLatin1String(".UnknownMethod")) || name.endsWith(QLatin1String(".UnknownInterface"))
        || name.endsWith(QLatin1String(".UnknownObject")))
        return Failure::NoInterface;
    if (name.endsWith(QLatin1String(".NoReply")) || name.endsWith(QLatin1String(".Disconnected")))
        return Failure::Gone;
    return Failure::Refused;
}

Failure failureToLook(const QDBusMessage& reply)
{
    return reply.errorName().endsWith(QLatin1String(".InvalidArgs")) ? Failure::NoInterface : failureOf(reply);
}

QString sessionIn(const QVariantMap& results)
{
    const QVariant session = results.value(QStringLiteral("session_handle"));
    return session.userType() == qMetaTypeId<QDBusObjectPath>() ? session.value<QDBusObjectPath>().path()
                                                                : session.toString();
}

} // namespace quillbox::DesktopPortal
