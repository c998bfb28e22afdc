#include "App/Desktop/TrayHost.h"

#include "Platform/DBus/SessionBus.h"
#include "Platform/X11/X11Queries.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <chrono>

namespace quillbox {
namespace {

using namespace std::chrono_literals;

constexpr auto hostPatience = 2s;
constexpr auto searchTime = 10s;

} // namespace

TrayHost::TrayHost(QObject* parent)
    : QObject(parent)
    , m_watcher(QLatin1String(watcherService), SessionBus::connection(), QDBusServiceWatcher::WatchForRegistration)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &TrayHost::askWatcher);
    listen();
    m_patience.setSingleShot(true);
    m_search.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &TrayHost::missing);
    connect(&m_search, &QTimer::timeout, this, [this] {
        end();
        Q_EMIT gaveUp();
    });
}

void TrayHost::listen()
{
    SessionBus::listen(QLatin1String(watcherPath), QLatin1String(watcherService),
        QStringLiteral("StatusNotifierHostRegistered"), this, SLOT(askWatcher()));
}

void TrayHost::reconnect()
{
    m_watcher.setConnection(SessionBus::connection());
    listen();
    if (m_search.isActive())
        askWatcher();
}

void TrayHost::find()
{
    m_patience.start(hostPatience);
    m_search.start(searchTime);
    askWatcher();
}

void TrayHost::askWatcher()
{
    if (m_isOver)
        return;
    auto question = QDBusMessage::createMethodCall(QLatin1String(watcherService), QLatin1String(watcherPath),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question.setAutoStartService(false);
    question << QString(QLatin1String(watcherService)) << QString(QLatin1String(hostProperty));
    auto* const pending = new QDBusPendingCallWatcher(SessionBus::connection().asyncCall(question), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *finished;
        const bool isThere
            = (reply.isValid() && reply.value().variant().toBool()) || X11Queries::isSelectionOwned(traySelection);
        if (m_isOver || !isThere)
            return;
        end();
        Q_EMIT found();
    });
}

void TrayHost::end()
{
    m_isOver = true;
    m_patience.stop();
    m_search.stop();
}

} // namespace quillbox

#include "moc_TrayHost.cpp"
