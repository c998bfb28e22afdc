#include "App/Desktop/DesktopNotification.h"

#include "Platform/DBus/SessionBus.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace quillbox {

QDBusMessage DesktopNotification::callOf(const QString& method)
{
    return QDBusMessage::createMethodCall(QLatin1String(service), QLatin1String(path), QLatin1String(service), method);
}

QDBusMessage DesktopNotification::notifyCall(
    const QString& title, const QString& text, const QStringList& actions, QVariantMap hints, int lifetime)
{
    constexpr std::uint32_t replacesNone = 0;
    hints.insert(QStringLiteral("desktop-entry"), QStringLiteral(QUILLBOX_APP_ID));
    auto call = callOf(QStringLiteral("Notify"));
    call << QStringLiteral("Quillbox") << replacesNone << QStringLiteral(QUILLBOX_APP_ID) << title
         << text.toHtmlEscaped() << actions << hints << lifetime;
    return call;
}

void DesktopNotification::show(const QString& title, const QString& text, const Action& action)
{
    QStringList actions;
    if (!action.label.isEmpty())
        actions = {QLatin1String(defaultAction), action.label, QStringLiteral("show"), action.label};
    const auto call = notifyCall(title, text, actions);
    auto bus = SessionBus::connection();
    if (actions.isEmpty()) {
        (void)bus.send(call); // whether somebody shows it makes no difference to us
        return;
    }
    new AwaitedNotification(new QDBusPendingCallWatcher(bus.asyncCall(call)), action.run, qApp);
}

AwaitedNotification::AwaitedNotification(QDBusPendingCallWatcher* sent, std::function<void()> run, QObject* parent)
    : QObject(parent)
    , m_run(std::move(run))
{
    sent->setParent(this);
    connect(sent, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        const QDBusPendingReply<std::uint32_t> reply = *finished;
        if (reply.isValid())
            m_id = reply.value();
        else
            deleteLater(); // nobody shows it
    });
    const QLatin1String service(DesktopNotification::service);
    const QLatin1String path(DesktopNotification::path);
    SessionBus::listen(path, service, QStringLiteral("ActionInvoked"), this, SLOT(noteAction(uint, QString)));
    SessionBus::listen(path, service, QStringLiteral("NotificationClosed"), this, SLOT(noteClosed(uint, uint)));
}

void AwaitedNotification::noteAction(uint id, const QString& /*action*/)
{
    if (id == m_id && m_run)
        std::exchange(m_run, nullptr)();
}

void AwaitedNotification::noteClosed(uint id, uint /*reason*/)
{
    if (id == m_id)
        deleteLater();
}

} // namespace quillbox

#include "moc_DesktopNotification.cpp"
