#include "App/Desktop/DesktopNotification.h"

#include "Platform/DBus/SessionBus.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>
#include <QVariantMap>

#include <utility>

namespace quillbox {
namespace {

constexpr auto notificationService = "org.freedesktop.Notifications"; // its interface is called the same
constexpr auto notificationPath = "/org/freedesktop/Notifications";
constexpr auto defaultAction = "default"; // a click on the message itself

} // namespace

void DesktopNotification::show(const QString& title, const QString& text, const Action& action)
{
    auto call = QDBusMessage::createMethodCall(QLatin1String(notificationService), QLatin1String(notificationPath),
        QLatin1String(notificationService), QStringLiteral("Notify"));
    constexpr std::uint32_t replacesNone = 0;
    constexpr int untilTheDesktopThinks = -1;
    const QVariantMap hints{{QStringLiteral("desktop-entry"), QStringLiteral(QUILLBOX_APP_ID)}};
    QStringList actions;
    if (!action.label.isEmpty())
        actions = {QLatin1String(defaultAction), action.label, QStringLiteral("show"), action.label};
    call << QStringLiteral("Quillbox") << replacesNone << QStringLiteral(QUILLBOX_APP_ID) << title
         << text.toHtmlEscaped() << actions << hints << untilTheDesktopThinks;
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
    auto bus = SessionBus::connection();
    const QLatin1String service(notificationService);
    bus.connect(service, QLatin1String(notificationPath), service, QStringLiteral("ActionInvoked"), this,
        SLOT(noteAction(uint, QString)));
    bus.connect(service, QLatin1String(notificationPath), service, QStringLiteral("NotificationClosed"), this,
        SLOT(noteClosed(uint, uint)));
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
