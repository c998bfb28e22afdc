#include "Capture/Portal/ScreenCastPortal.h"

#include "Capture/Portal/RestoreToken.h"
#include "Translation/Translate.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QSize>

#include <fcntl.h>

#include <optional>

namespace quillbox {

namespace {

using Reason = CaptureError::Reason;

// Values of org.freedesktop.portal.ScreenCast.
constexpr uint monitorSource = 1;
constexpr uint embeddedCursor = 2;
constexpr uint persistUntilRevoked = 2;
constexpr uint firstVersionWithCursorModes = 2;
constexpr uint firstVersionThatPersists = 4;

CaptureError errorFor(const PortalError& error)
{
    using PortalReason = PortalError::Reason;
    switch (error.reason()) {
    case PortalReason::NoBus:
        return {Reason::Unavailable,
            translate("CaptureError",
                "Screens of Wayland desktops are recorded through the desktop portal, and there is no session bus to "
                "reach it")};
    case PortalReason::NoPortal:
        return {Reason::Unavailable,
            translate("CaptureError",
                "Screens of Wayland desktops are recorded through the desktop portal, and none answers: install "
                "xdg-desktop-portal and its back end for this desktop")};
    case PortalReason::NoInterface:
        return {Reason::Unavailable,
            translate("CaptureError",
                "The desktop portal does not offer the screen: install PipeWire and the portal's back end for this "
                "desktop")};
    case PortalReason::Gone:
        return {
            Reason::DisplayGone, translate("CaptureError", "The desktop portal, which shows us the screen, went away")};
    case PortalReason::Closed:
        return {Reason::DisplayGone, translate("CaptureError", "The desktop has ended the recording of its screen")};
    case PortalReason::Denied:
        return {Reason::Refused, translate("CaptureError", "The permission to record the screen was not given")};
    case PortalReason::Failed:
        return {
            Reason::Unreadable, translate("CaptureError", "The desktop portal could not start to show us the screen")};
    case PortalReason::Unreadable:
        return {Reason::Unreadable, translate("CaptureError", "The desktop portal's answer can't be understood")};
    case PortalReason::Withdrawn:
        return CaptureError::stopped();
    case PortalReason::Refused:
        break;
    }
    return {Reason::Unreadable,
        withArguments(translate("CaptureError", "The desktop portal refused: %1"), {error.details().toStdString()})};
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
        throw PortalError(PortalError::Reason::Unreadable);
    FileDescriptor copy(::fcntl(remote.fileDescriptor(), F_DUPFD_CLOEXEC, 0));
    if (copy.number() < 0)
        throw CaptureError(
            Reason::Unreadable, translate("CaptureError", "Screen capture needs a free file descriptor"));
    return copy;
}

} // namespace

ScreenCastPortal::ScreenCastPortal(std::chrono::milliseconds callTimeout)
    : m_session(QStringLiteral("org.freedesktop.portal.ScreenCast"), callTimeout)
{
    connect(&m_session, &PortalSession::ended, this, [this](const PortalError& reason) {
        if (m_isOpen)
            Q_EMIT ended(errorFor(reason));
    });
}

QCoro::Task<ScreenCast> ScreenCastPortal::open()
{
    try {
        auto casting = begin();
        const ScreenCast cast = co_await casting; // throws if this object is gone
        m_isOpen = true;
        co_return cast;
    } catch (const PortalError& error) {
        throw errorFor(error);
    }
}

QCoro::Task<ScreenCast> ScreenCastPortal::begin()
{
    auto looking = lookAtScreenCast();
    const QVariantMap properties = co_await looking;
    auto opening = m_session.open();
    co_await opening;

    const uint version = properties.value(QStringLiteral("version")).toUInt();
    const uint cursorModes = properties.value(QStringLiteral("AvailableCursorModes")).toUInt();
    QVariantMap options;
    options.insert(QStringLiteral("types"), monitorSource);
    options.insert(QStringLiteral("multiple"), false);
    if (version >= firstVersionWithCursorModes && (cursorModes & embeddedCursor) != 0)
        options.insert(QStringLiteral("cursor_mode"), embeddedCursor);
    if (version >= firstVersionThatPersists) {
        options.insert(QStringLiteral("persist_mode"), persistUntilRevoked);
        const QString token = RestoreToken::read();
        if (!token.isEmpty())
            options.insert(QStringLiteral("restore_token"), token);
    }
    auto selecting
        = m_session.request(PortalSession::Answer::OfPortal, QStringLiteral("SelectSources"), QVariantList(), options);
    std::optional<PortalError> refusal;
    try {
        co_await selecting;
    } catch (const PortalError& error) {
        refusal = error;
    }
    if (refusal) { // maybe of the token only, which is then not asked with again
        const bool isOfArguments
            = refusal->reason() == PortalError::Reason::Refused || refusal->reason() == PortalError::Reason::Failed;
        if (!isOfArguments || options.remove(QStringLiteral("restore_token")) == 0)
            throw PortalError(*refusal);
        auto again = m_session.request(
            PortalSession::Answer::OfPortal, QStringLiteral("SelectSources"), QVariantList(), options);
        co_await again;
    }

    QVariantList arguments;
    arguments << QString(); // no window that a question could belong to
    auto starting = m_session.request(PortalSession::Answer::OfUser, QStringLiteral("Start"), arguments, QVariantMap());
    const QVariantMap started = co_await starting;
    RestoreToken::replace(started.value(QStringLiteral("restore_token")).toString());
    const auto cast = firstStream(started);
    if (!cast)
        throw PortalError(PortalError::Reason::Unreadable);
    co_return *cast;
}

QCoro::Task<FileDescriptor> ScreenCastPortal::openRemote()
{
    try {
        QVariantList arguments;
        arguments << QVariantMap();
        auto opening = m_session.call(QStringLiteral("OpenPipeWireRemote"), arguments);
        const QDBusMessage remote = co_await opening; // throws if this object is gone
        co_return descriptorIn(remote);
    } catch (const PortalError& error) {
        throw errorFor(error);
    }
}

QCoro::Task<ScreenCastPortal::Offer> ScreenCastPortal::look()
{
    try {
        auto looking = lookAtScreenCast();
        const QVariantMap properties = co_await looking; // throws if this object is gone
        Offer offer;
        offer.version = properties.value(QStringLiteral("version")).toUInt();
        offer.sources = properties.value(QStringLiteral("AvailableSourceTypes")).toUInt();
        co_return offer;
    } catch (const PortalError& error) {
        throw errorFor(error);
    }
}

QCoro::Task<QVariantMap> ScreenCastPortal::lookAtScreenCast()
{
    auto looking = m_session.look();
    QVariantMap properties = co_await looking;
    if ((properties.value(QStringLiteral("AvailableSourceTypes")).toUInt() & monitorSource) == 0)
        throw PortalError(PortalError::Reason::NoInterface);
    co_return properties;
}

} // namespace quillbox

#include "moc_ScreenCastPortal.cpp"
