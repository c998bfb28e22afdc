#include "Capture/Portal/ScreenCastPortal.h"

#include "Capture/Portal/RestoreToken.h"
#include "Platform/Portal/DesktopPortal.h"
#include "Platform/Portal/PortalRequest.h"
#include "Translation/Translate.h"

#include <QCoro/QCoroDBus>
#include <QCoro/QCoroFuture>
#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QPointer>
#include <QSize>
#include <QUuid>

#include <fcntl.h>

#include <string>
#include <utility>

namespace quillbox {

namespace {

using Reason = CaptureError::Reason;

const auto screenCast = QStringLiteral("org.freedesktop.portal.ScreenCast");
const auto sessionInterface = QStringLiteral("org.freedesktop.portal.Session");

// Values of org.freedesktop.portal.ScreenCast.
constexpr uint monitorSource = 1;
constexpr uint embeddedCursor = 2;
constexpr uint persistUntilRevoked = 2;
constexpr uint firstVersionWithCursorModes = 2;
constexpr uint firstVersionThatPersists = 4;

CaptureError noPortal()
{
    return {Reason::Unavailable,
        translate("CaptureError",
            "Screens of Wayland desktops are recorded through the desktop portal, and none answers: install "
            "xdg-desktop-portal and its back end for this desktop")};
}

CaptureError noScreenCast()
{
    return {Reason::Unavailable,
        translate("CaptureError",
            "The desktop portal does not offer the screen: install PipeWire and the portal's back end for this "
            "desktop")};
}

CaptureError portalGone()
{
    return {Reason::DisplayGone, translate("CaptureError", "The desktop portal, which shows us the screen, went away")};
}

CaptureError castEnded()
{
    return {Reason::DisplayGone, translate("CaptureError", "The desktop has ended the recording of its screen")};
}

CaptureError stopped()
{
    return {Reason::Stopped, translate("CaptureError", "Screen capture was stopped before it began")};
}

CaptureError notUnderstood()
{
    return {Reason::Unreadable, translate("CaptureError", "The desktop portal's answer can't be understood")};
}

/// What a failed call means.
CaptureError errorFor(const QDBusMessage& reply)
{
    switch (DesktopPortal::failureOf(reply)) {
    case DesktopPortal::Failure::NoPortal:
        return noPortal();
    case DesktopPortal::Failure::NoInterface:
        return noScreenCast();
    case DesktopPortal::Failure::Gone:
        return portalGone();
    case DesktopPortal::Failure::Refused:
        break;
    }
    const QString text = reply.errorMessage().simplified();
    return {Reason::Unreadable,
        withArguments(translate("CaptureError", "The desktop portal refused: %1"),
            {(text.isEmpty() ? reply.errorName() : text).toStdString()})};
}

/// The first stream of Start's answer, a(ua{sv}).
std::optional<ScreenCast> firstStream(const QVariantMap& results)
{
    const QVariant streams = results.value(QStringLiteral("streams"));
    if (streams.userType() != qMetaTypeId<QDBusArgument>())
        return std::nullopt;
    const auto argument = streams.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("a(ua{sv})"))
        return std::nullopt;
    ScreenCast cast;
    QVariantMap properties;
    argument.beginArray();
    const bool hasStream = !argument.atEnd();
    if (hasStream) {
        argument.beginStructure();
        argument >> cast.node >> properties;
        argument.endStructure();
    }
    argument.endArray(); // or something of it stays in memory
    if (!hasStream)
        return std::nullopt;

    // A portal that takes the monitor we asked for for something else does not know where it is, whatever it says.
    const QVariant source = properties.value(QStringLiteral("source_type"));
    const QVariant position = properties.value(QStringLiteral("position"));
    if ((!source.isValid() || source.toUInt() == monitorSource) && position.userType() == qMetaTypeId<QDBusArgument>())
        cast.facts.position = qdbus_cast<QPoint>(position);
    const QVariant size = properties.value(QStringLiteral("size"));
    if (size.userType() == qMetaTypeId<QDBusArgument>()) {
        const auto points = qdbus_cast<QSize>(size);
        if (!points.isEmpty())
            cast.facts.size = PixelSize{points.width(), points.height()};
    }
    return cast;
}

FileDescriptor descriptorIn(const QDBusMessage& reply)
{
    const auto remote = reply.arguments().value(0).value<QDBusUnixFileDescriptor>();
    if (!remote.isValid())
        throw notUnderstood();
    FileDescriptor copy(::fcntl(remote.fileDescriptor(), F_DUPFD_CLOEXEC, 0));
    if (copy.number() < 0)
        throw CaptureError(
            Reason::Unreadable, translate("CaptureError", "Screen capture needs a free file descriptor"));
    return copy;
}

} // namespace

ScreenCastPortal::ScreenCastPortal()
    : m_bus(QDBusConnection::sessionBus())
    , m_watcher(QLatin1String(DesktopPortal::service), m_bus, QDBusServiceWatcher::WatchForUnregistration)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] { end(portalGone()); });
}

ScreenCastPortal::~ScreenCastPortal()
{
    PortalRequest::closeSession(m_bus, m_session);
    if (m_isCreating && m_request)
        m_request->closeWhatComes();
}

QCoro::Task<ScreenCast> ScreenCastPortal::open()
{
    auto looking = lookAtPortal();
    co_await looking;

    QVariantMap options;
    options.insert(QStringLiteral("session_handle_token"),
        QString(QStringLiteral("quillbox_") + QUuid::createUuid().toString(QUuid::Id128)));
    auto creating = ask(QStringLiteral("CreateSession"), QVariantList(), options);
    m_isCreating = true;
    const QVariantMap session = co_await creating;
    m_isCreating = false;
    m_session = session.value(QStringLiteral("session_handle")).toString();
    if (m_session.isEmpty())
        throw notUnderstood();
    m_bus.connect(QString(), m_session, sessionInterface, QStringLiteral("Closed"), this, SLOT(noteClosed()));

    options = QVariantMap();
    options.insert(QStringLiteral("types"), monitorSource);
    options.insert(QStringLiteral("multiple"), false);
    if (m_version >= firstVersionWithCursorModes && (m_cursorModes & embeddedCursor) != 0)
        options.insert(QStringLiteral("cursor_mode"), embeddedCursor);
    if (m_version >= firstVersionThatPersists) {
        options.insert(QStringLiteral("persist_mode"), persistUntilRevoked);
        const QString token = RestoreToken::read();
        if (!token.isEmpty())
            options.insert(QStringLiteral("restore_token"), token);
    }
    const auto handle = QVariant::fromValue(QDBusObjectPath(m_session));
    QVariantList arguments;
    arguments << handle;
    auto selecting = ask(QStringLiteral("SelectSources"), arguments, options);
    std::optional<CaptureError> refusal;
    try {
        co_await selecting;
    } catch (const CaptureError& error) {
        refusal = error;
    }
    if (refusal) { // maybe of the token only, which is then not asked with again
        if (refusal->reason() != Reason::Unreadable || options.remove(QStringLiteral("restore_token")) == 0)
            throw CaptureError(*refusal);
        auto again = ask(QStringLiteral("SelectSources"), arguments, options);
        co_await again;
    }

    arguments << QString(); // no window that a question could belong to
    auto starting = ask(QStringLiteral("Start"), arguments, QVariantMap());
    const QVariantMap started = co_await starting;
    RestoreToken::replace(started.value(QStringLiteral("restore_token")).toString());
    auto cast = firstStream(started);
    if (!cast)
        throw notUnderstood();

    m_isOpen = true;
    co_return *cast;
}

QCoro::Task<FileDescriptor> ScreenCastPortal::openRemote()
{
    if (!m_isOpen)
        throw m_end.value_or(castEnded());
    QVariantList arguments;
    arguments << QVariant::fromValue(QDBusObjectPath(m_session)) << QVariantMap();
    auto opening = call(screenCast, QStringLiteral("OpenPipeWireRemote"), arguments);
    const QDBusMessage remote = co_await opening; // throws if this object is gone
    if (!m_isOpen)
        throw m_end.value_or(castEnded());
    co_return descriptorIn(remote);
}

QCoro::Task<ScreenCastPortal::Offer> ScreenCastPortal::look(std::chrono::milliseconds patience)
{
    m_patience = patience;
    auto looking = lookAtPortal();
    co_await looking; // throws if this object is gone
    Offer offer;
    offer.version = m_version;
    offer.sources = m_sources;
    co_return offer;
}

/// Makes us known to it, and finds out what it can do.
QCoro::Task<> ScreenCastPortal::lookAtPortal()
{
    if (!m_bus.isConnected())
        throw CaptureError(Reason::Unavailable,
            translate("CaptureError",
                "Screens of Wayland desktops are recorded through the desktop portal, and there is no session bus to "
                "reach it"));
    const QPointer self(this);
    const QDBusPendingCall introducing = DesktopPortal::introduce(m_bus, timeLimit());
    co_await introducing;
    if (!self)
        throw stopped();
    const QDBusPendingCall asking = m_bus.asyncCall(DesktopPortal::propertiesOf(screenCast), timeLimit());
    const QDBusMessage reply = co_await asking;
    if (!self)
        throw stopped();
    if (reply.type() == QDBusMessage::ErrorMessage)
        throw DesktopPortal::failureToLook(reply) == DesktopPortal::Failure::NoInterface ? noScreenCast()
                                                                                         : errorFor(reply);
    const auto properties = qdbus_cast<QVariantMap>(reply.arguments().value(0));
    m_version = properties.value(QStringLiteral("version")).toUInt();
    m_cursorModes = properties.value(QStringLiteral("AvailableCursorModes")).toUInt();
    m_sources = properties.value(QStringLiteral("AvailableSourceTypes")).toUInt();
    if (m_version == 0 || (m_sources & monitorSource) == 0)
        throw noScreenCast();
}

/// Calls `method` of ScreenCast, `options` last, and waits for the user's answer. Throws if this object goes meanwhile.
QCoro::Task<QVariantMap> ScreenCastPortal::ask(QString method, QVariantList arguments, QVariantMap options)
{
    const QPointer self(this);
    auto* const request = new PortalRequest(m_bus);
    request->setParent(this);
    m_request = request;
    const auto outcome = request->outcome();
    options.insert(QStringLiteral("handle_token"), request->token());
    arguments << options;
    try {
        auto calling = call(screenCast, method, arguments);
        co_await calling;
    } catch (...) {
        if (self) // else it knows itself what to do
            request->deleteLater();
        throw;
    }
    const PortalRequest::Outcome answer = co_await outcome;
    if (!self)
        throw stopped();
    request->deleteLater();
    if (!answer)
        throw portalGone();
    if (answer->code == 1)
        throw CaptureError(
            Reason::Refused, translate("CaptureError", "The permission to record the screen was not given"));
    if (answer->code != 0)
        throw CaptureError(
            Reason::Unreadable, translate("CaptureError", "The desktop portal could not start to show us the screen"));
    co_return answer->results;
}

/// Calls a method of the portal. Throws if this object goes meanwhile.
QCoro::Task<QDBusMessage> ScreenCastPortal::call(QString interface, QString method, QVariantList arguments)
{
    const QPointer self(this);
    const QDBusPendingCall pending = m_bus.asyncCall(DesktopPortal::method(interface, method, arguments), timeLimit());
    const QDBusMessage reply = co_await pending;
    if (!self)
        throw stopped();
    if (reply.type() == QDBusMessage::ErrorMessage)
        throw errorFor(reply);
    co_return reply;
}

/// Of one call, in milliseconds, as the bus counts it.
int ScreenCastPortal::timeLimit() const
{
    constexpr int usual = -1; // 25 s
    return m_patience ? static_cast<int>(m_patience->count()) : usual;
}

void ScreenCastPortal::noteClosed()
{
    m_session.clear();
    end(castEnded());
}

void ScreenCastPortal::end(const CaptureError& reason)
{
    if (!std::exchange(m_isOpen, false))
        return;
    m_end = reason;
    Q_EMIT ended(reason);
}

} // namespace quillbox
