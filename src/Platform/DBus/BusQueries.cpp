#include "Platform/DBus/BusQueries.h"

#include "Platform/ServiceReport.h"

#include <QCoro/QCoroDBus>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QStringList>

namespace quillbox::BusQueries {

namespace {

/// The answer's first argument; invalid where it is an error.
QCoro::Task<QVariant> ask(QDBusConnection bus, QDBusMessage question)
{
    question.setAutoStartService(false);
    const QDBusPendingCall asking = bus.asyncCall(question, static_cast<int>(reportPatience.count()));
    const QDBusMessage reply = co_await asking;
    co_return reply.arguments().value(0, QVariant());
}

QDBusMessage toTheBus(const QString& method)
{
    const auto service = QStringLiteral("org.freedesktop.DBus");
    return QDBusMessage::createMethodCall(service, QStringLiteral("/org/freedesktop/DBus"), service, method);
}

} // namespace

QCoro::Task<Presence> presence(QDBusConnection bus, QString name)
{
    if (!bus.isConnected())
        co_return Presence::None;
    QDBusMessage question = toTheBus(QStringLiteral("NameHasOwner"));
    question << name;
    auto asking = ask(bus, question);
    const QVariant hasOwner = co_await asking;
    if (hasOwner.userType() == QMetaType::Bool && hasOwner.toBool())
        co_return Presence::Running;
    auto listing = ask(bus, toTheBus(QStringLiteral("ListActivatableNames")));
    const QVariant names = co_await listing;
    co_return names.toStringList().contains(name) ? Presence::Startable : Presence::None;
}

QCoro::Task<QVariant> property(QDBusConnection bus, QString service, QString path, QString interface, QString name)
{
    if (!bus.isConnected())
        co_return QVariant();
    QDBusMessage question = QDBusMessage::createMethodCall(
        service, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << interface << name;
    auto asking = ask(bus, question);
    const QVariant value = co_await asking;
    co_return value.userType() == qMetaTypeId<QDBusVariant>() ? value.value<QDBusVariant>().variant() : QVariant();
}

} // namespace quillbox::BusQueries
