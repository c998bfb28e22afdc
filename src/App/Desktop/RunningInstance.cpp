#include "App/Desktop/RunningInstance.h"

#include "App/Desktop/ApplicationService.h"
#include "Platform/DBus/SessionBus.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <limits>
#include <string>

namespace quillbox {
namespace {

constexpr int defaultPatience = -1;                      // of the bus: 25 s
constexpr int noLimit = std::numeric_limits<int>::max(); // milliseconds; a long clip takes its time

const auto desktopEntry = QStringLiteral("org.freedesktop.Application");

/// A connection apart from the toolkit's own one, which delivers nothing before an event loop has run.
QDBusConnection bus()
{
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("running instance"));
}

QDBusMessage callOf(const QString& interface, const QString& method, const QVariantList& arguments)
{
    auto call = QDBusMessage::createMethodCall(
        ApplicationService::busName(), ApplicationService::objectPath(), interface, method);
    call.setAutoStartService(false);
    call.setArguments(arguments);
    return call;
}

/// The answer's arguments.
QVariantList ask(const QString& interface, const QString& method, const QVariantList& arguments = {},
    int patienceMilliseconds = defaultPatience)
{
    const auto answer = bus().call(callOf(interface, method, arguments), QDBus::Block, patienceMilliseconds);
    if (answer.type() == QDBusMessage::ErrorMessage)
        throw InstanceError(answer.errorMessage().toStdString());
    return answer.arguments();
}

QVariantMap mapOf(const QVariantList& arguments)
{
    return qdbus_cast<QVariantMap>(arguments.value(0));
}

/// What lets the window that comes next have the focus, where a desktop has given it to this process.
QVariantMap platformData()
{
    const auto token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    if (token.isEmpty())
        return {};
    return {{QStringLiteral("activation-token"), token}};
}

} // namespace

bool RunningInstance::exists()
{
    const auto connection = bus();
    return connection.isConnected()
        && connection.interface()->isServiceRegistered(ApplicationService::busName()).value();
}

QVariantMap RunningInstance::begin(bool precise)
{
    auto options = platformData();
    if (precise)
        options.insert(QStringLiteral("precise"), true);
    return mapOf(ask(ApplicationService::interfaceName(), QStringLiteral("Begin"), {options}));
}

QVariantMap RunningInstance::again(bool precise, std::optional<ExportPreset> preset)
{
    QVariantMap options;
    if (precise)
        options.insert(QStringLiteral("precise"), true);
    if (preset)
        options.insert(QStringLiteral("preset"), QString::fromStdString(std::string(preset->rawValue())));
    return mapOf(ask(ApplicationService::interfaceName(), QStringLiteral("Again"), {options}, noLimit));
}

QVariantMap RunningInstance::stop()
{
    return mapOf(ask(ApplicationService::interfaceName(), QStringLiteral("Stop"), {}, noLimit));
}

QVariantMap RunningInstance::status()
{
    return mapOf(ask(ApplicationService::interfaceName(), QStringLiteral("Status")));
}

void RunningInstance::show()
{
    (void)ask(ApplicationService::interfaceName(), QStringLiteral("Show"),
        {platformData()}); // the answer says only that it was done
}

void RunningInstance::quit()
{
    (void)ask(ApplicationService::interfaceName(), QStringLiteral("Quit"));
}

bool RunningInstance::copy(const QString& absolutePath)
{
    return ask(ApplicationService::interfaceName(), QStringLiteral("Copy"), {absolutePath}).value(0).toBool();
}

void RunningInstance::passOn(const QString& absolutePath)
{
    SessionBus::connection().send(callOf(ApplicationService::interfaceName(), QStringLiteral("Copy"), {absolutePath}));
}

void RunningInstance::activate()
{
    (void)ask(desktopEntry, QStringLiteral("Activate"), {platformData()});
}

} // namespace quillbox
