#include "Platform/Portal/PortalSession.h"

#include "Platform/DBus/SessionBus.h"
#include "Platform/Portal/DesktopPortal.h"
#include "Platform/Portal/PortalRequest.h"

#include <QCoro/QCoroDBus>
#include <QCoro/QCoroFuture>
#include <QDBusObjectPath>
#include <QDBusPendingCall>

#include <utility>

namespace quillbox {

namespace {

using Reason = PortalError::Reason;

} // namespace

PortalSession::PortalSession(QString interface, std::chrono::milliseconds callTimeout)
    : m_bus(SessionBus::connection())
    , m_interface(std::move(interface))
    , m_callTimeout(callTimeout)
    , m_watcher(QLatin1String(DesktopPortal::service), m_bus, QDBusServiceWatcher::WatchForUnregistration)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] { end(Reason::Gone); });
}

PortalSession::~PortalSession()
{
    PortalRequest::closeSession(m_bus, m_path);
    if (m_opening)
        m_opening->closeWhatComes();
}

QCoro::Task<QVariantMap> PortalSession::look()
{
    if (!m_bus.isConnected())
        throw PortalError(Reason::NoBus);
    // Older portals do without, one that knows no desktop entry of ours refuses, and one to which we are known says so:
    // whatever the answer is, the portal can be asked then.
    const QPointer self(this);
    QVariantList ourselves;
    ourselves << QStringLiteral(QUILLBOX_APP_ID) << QVariantMap();
    const QDBusPendingCall introducing
        = m_bus.asyncCall(DesktopPortal::method(QStringLiteral("org.freedesktop.host.portal.Registry"),
                              QStringLiteral("Register"), ourselves),
            callMilliseconds());
    co_await introducing;
    if (!self)
        throw PortalError(Reason::Withdrawn);

    QVariantList wanted;
    wanted << m_interface;
    const QDBusPendingCall asking = m_bus.asyncCall(
        DesktopPortal::method(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("GetAll"), wanted),
        callMilliseconds());
    const QDBusMessage reply = co_await asking;
    if (!self)
        throw PortalError(Reason::Withdrawn);
    if (reply.errorName().endsWith(QLatin1String(".InvalidArgs"))) // the name of an interface that does not exist
        throw PortalError(Reason::NoInterface);
    if (reply.type() == QDBusMessage::ErrorMessage)
        throw DesktopPortal::errorIn(reply);
    auto properties = qdbus_cast<QVariantMap>(reply.arguments().value(0));
    if (properties.value(QStringLiteral("version")).toUInt() == 0)
        throw PortalError(Reason::NoInterface);
    co_return properties;
}

QCoro::Task<QVariantMap> PortalSession::open(QString name, QVariantMap options)
{
    if (name.isEmpty())
        name = PortalRequest::newToken();
    options.insert(QStringLiteral("session_handle_token"), name);
    m_opening = new PortalRequest(m_bus, this);
    auto creating = ask(m_opening, Answer::OfPortal, QStringLiteral("CreateSession"), QVariantList(), options);
    const QVariantMap results = co_await creating;
    m_opening.clear();
    m_path = PortalRequest::sessionIn(results);
    if (m_path.isEmpty())
        throw PortalError(Reason::Unreadable);
    m_bus.connect(QString(), m_path, QStringLiteral("org.freedesktop.portal.Session"), QStringLiteral("Closed"), this,
        SLOT(noteClosed()));
    co_return results;
}

QCoro::Task<QVariantMap> PortalSession::request(
    Answer answer, QString method, QVariantList arguments, QVariantMap options)
{
    arguments.prepend(handle());
    return ask(new PortalRequest(m_bus, this), answer, std::move(method), std::move(arguments), std::move(options));
}

QCoro::Task<QDBusMessage> PortalSession::call(QString method, QVariantList arguments)
{
    arguments.prepend(handle());
    auto calling = send(DesktopPortal::method(m_interface, method, arguments));
    const QDBusMessage reply = co_await calling;
    (void)handle(); // throws if the session has ended meanwhile
    co_return reply;
}

/// Calls `method`, `options` last, and waits for the answer. The request is destroyed in the end.
QCoro::Task<QVariantMap> PortalSession::ask(
    PortalRequest* request, Answer answer, QString method, QVariantList arguments, QVariantMap options)
{
    const QPointer self(this);
    const auto outcome = request->outcome();
    options.insert(QStringLiteral("handle_token"), request->token());
    arguments << options;
    try {
        auto calling = send(DesktopPortal::method(m_interface, method, arguments));
        co_await calling;
    } catch (...) {
        if (self) // else it is destroyed, or knows itself what to do
            request->deleteLater();
        throw;
    }
    if (self && answer == Answer::OfPortal)
        request->giveUpAfter(m_callTimeout);
    const PortalRequest::Outcome given = co_await outcome;
    if (!self)
        throw PortalError(Reason::Withdrawn);
    request->deleteLater();
    if (!given)
        throw PortalError(Reason::Gone);
    if (given->code != 0)
        throw PortalError(given->code == 1 ? Reason::Denied : Reason::Failed);
    co_return given->results;
}

/// Waits for the reply to one call. @throws PortalError  also if this object goes meanwhile
QCoro::Task<QDBusMessage> PortalSession::send(QDBusMessage message)
{
    const QPointer self(this);
    const QDBusPendingCall pending = m_bus.asyncCall(message, callMilliseconds());
    const QDBusMessage reply = co_await pending;
    if (!self)
        throw PortalError(Reason::Withdrawn);
    if (reply.type() == QDBusMessage::ErrorMessage)
        throw DesktopPortal::errorIn(reply);
    co_return reply;
}

int PortalSession::callMilliseconds() const
{
    return static_cast<int>(m_callTimeout.count());
}

void PortalSession::noteClosed()
{
    end(Reason::Closed);
}

void PortalSession::end(Reason reason)
{
    if (std::exchange(m_path, QString()).isEmpty())
        return;
    m_end = reason;
    Q_EMIT ended(PortalError(reason));
}

/// The session as methods take it. @throws PortalError  it has ended
QVariant PortalSession::handle() const
{
    if (m_path.isEmpty())
        throw PortalError(m_end);
    return QVariant::fromValue(QDBusObjectPath(m_path));
}

} // namespace quillbox

#include "moc_PortalSession.cpp"
