#include "Platform/Portal/PortalRequest.h"

#include "Platform/Portal/DesktopPortal.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QTimer>
#include <QUuid>

#include <utility>

namespace quillbox {

namespace {

const auto requestInterface = QStringLiteral("org.freedesktop.portal.Request");

/// The object on which the answer will come, as the portal's documentation derives it.
QString handleFor(const QDBusConnection& bus, const QString& token)
{
    QString sender = bus.baseService().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    return QLatin1String(DesktopPortal::path) + QLatin1String("/request/") + sender + QLatin1Char('/') + token;
}

} // namespace

PortalRequest::PortalRequest(const QDBusConnection& bus, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
    , m_token(newToken())
    , m_handle(handleFor(bus, m_token))
    , m_watcher(QLatin1String(DesktopPortal::service), bus, QDBusServiceWatcher::WatchForUnregistration)
{
    m_promise.start();
    m_bus.connect(
        QString(), m_handle, requestInterface, QStringLiteral("Response"), this, SLOT(finish(uint, QVariantMap)));
    connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] { settle(std::nullopt); });
}

PortalRequest::~PortalRequest()
{
    if (m_promise.future().isFinished())
        return;
    (void)m_bus.send(DesktopPortal::closing(m_handle, requestInterface)); // whether a dialog goes with us, it decides
    settle(std::nullopt);
}

void PortalRequest::finish(uint code, const QVariantMap& results)
{
    settle(Answer{code, results});
}

void PortalRequest::settle(Outcome outcome)
{
    if (m_promise.future().isFinished())
        return; // answered already
    m_promise.addResult(std::move(outcome));
    m_promise.finish();
    if (m_closesWhatComes)
        closeWhatCame();
}

void PortalRequest::giveUpAfter(std::chrono::milliseconds time)
{
    QTimer::singleShot(time, this, [this] { settle(std::nullopt); });
}

void PortalRequest::closeWhatComes()
{
    setParent(nullptr);
    m_closesWhatComes = true;
    if (m_promise.future().isFinished())
        closeWhatCame();
}

void PortalRequest::closeWhatCame()
{
    if (const Outcome outcome = m_promise.future().result())
        closeSession(m_bus, sessionIn(outcome->results));
    deleteLater();
}

void PortalRequest::closeSession(const QDBusConnection& bus, const QString& handle)
{
    if (!handle.isEmpty())
        (void)bus.send(DesktopPortal::closing(handle, QStringLiteral("org.freedesktop.portal.Session")));
}

QString PortalRequest::newToken()
{
    return QStringLiteral("quillbox_") + QUuid::createUuid().toString(QUuid::Id128);
}

QString PortalRequest::sessionIn(const QVariantMap& results)
{
    const QVariant session = results.value(QStringLiteral("session_handle"));
    return session.userType() == qMetaTypeId<QDBusObjectPath>() ? session.value<QDBusObjectPath>().path()
                                                                : session.toString();
}

} // namespace quillbox

#include "moc_PortalRequest.cpp"
