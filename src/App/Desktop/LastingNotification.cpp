#include "App/Desktop/LastingNotification.h"

#include "App/Desktop/DesktopNotification.h"
#include "Platform/DBus/SessionBus.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QPointer>

#include <utility>

namespace quillbox {
namespace {

void closeMessage(std::uint32_t id)
{
    auto call = DesktopNotification::callOf(QStringLiteral("CloseNotification"));
    call << id;
    (void)SessionBus::connection().send(call); // it may be gone already
}

} // namespace

LastingNotification::LastingNotification(
    const QString& title, const QString& text, const QString& button, std::function<void()> run)
    : m_run(std::move(run))
{
    auto bus = SessionBus::connection();
    SessionBus::listen(QLatin1String(DesktopNotification::path), QLatin1String(DesktopNotification::service),
        QStringLiteral("ActionInvoked"), this, SLOT(noteAction(uint, QString)));

    constexpr int neverExpires = 0;
    constexpr unsigned char lowUrgency = 0;
    const auto call = DesktopNotification::notifyCall(title, text,
        {QLatin1String(DesktopNotification::defaultAction), button, QStringLiteral("act"), button},
        {{QStringLiteral("urgency"), QVariant::fromValue(lowUrgency)}, {QStringLiteral("resident"), true}},
        neverExpires);
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
