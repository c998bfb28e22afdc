#include "App/Desktop/LastingNotification.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QPointer>
#include <QStringList>
#include <QVariantMap>

#include <utility>

namespace quillbox {
namespace {

QString messageService() // its interface is called the same
{
    return QStringLiteral("org.freedesktop.Notifications");
}

QString messagePath()
{
    return QStringLiteral("/org/freedesktop/Notifications");
}

QDBusMessage messageCall(const QString& method)
{
    return QDBusMessage::createMethodCall(messageService(), messagePath(), messageService(), method);
}

void closeMessage(std::uint32_t id)
{
    auto call = messageCall(QStringLiteral("CloseNotification"));
    call << id;
    (void)QDBusConnection::sessionBus().send(call); // it may be gone already
}

} // namespace

LastingNotification::LastingNotification(
    const QString& title, const QString& text, const QString& button, std::function<void()> run)
    : m_run(std::move(run))
{
    auto bus = QDBusConnection::sessionBus();
    bus.connect(messageService(), messagePath(), messageService(), QStringLiteral("ActionInvoked"), this,
        SLOT(noteAction(uint, QString)));

    constexpr std::uint32_t replacesNone = 0;
    constexpr int neverExpires = 0;
    constexpr unsigned char lowUrgency = 0;
    const QVariantMap hints{{QStringLiteral("desktop-entry"), QStringLiteral(QUILLBOX_APP_ID)},
        {QStringLiteral("urgency"), QVariant::fromValue(lowUrgency)}, {QStringLiteral("resident"), true}};
    const QStringList actions{QStringLiteral("default"), button, QStringLiteral("act"), button};
    auto call = messageCall(QStringLiteral("Notify"));
    call << QStringLiteral("Quillbox") << replacesNone << QStringLiteral(QUILLBOX_APP_ID) << title
         << text.toHtmlEscaped() << actions << hints << neverExpires;
    // The answer is awaited even if this object goes meanwhile: the message is to go with it.
    auto* const answer = new QDBusPendingCallWatcher(bus.asyncCall(call));
    connect(answer, &QDBusPendingCallWatcher::finished, answer, [self = QPointer(this), answer] {
        answer->deleteLater();
        const QDBusPendingReply<std::uint32_t> reply = *answer;
        if (!reply.isValid())
            return; // nobody shows it
        if (self)
            self->m_id = reply.value();
        else
            closeMessage(reply.value());
    });
}

LastingNotification::~LastingNotification()
{
    if (m_id != 0)
        closeMessage(m_id);
}

void LastingNotification::noteAction(uint id, const QString& /*action*/)
{
    if (m_id != 0 && id == m_id)
        m_run();
}

} // namespace quillbox

#include "moc_LastingNotification.cpp"
