#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QString>
#include <QVariantList>

namespace quillbox {

/// The desktop portal, by which programs ask for what the user has to permit. Stateless; thread: main.
/// @see  The documentation of xdg-desktop-portal.
namespace DesktopPortal {

inline constexpr auto service = "org.freedesktop.portal.Desktop";
inline constexpr auto path = "/org/freedesktop/portal/desktop";

[[nodiscard]] QDBusMessage method(const QString& interface, const QString& name, const QVariantList& arguments);

/// Makes us known to the portal by the name under which permissions are kept; to be done before anything else on a
/// connection. Older portals do without, one that knows no desktop entry of ours refuses, and one to which we are known
/// says so: whatever the answer is, the portal can be asked then.
/// @param milliseconds  How long an answer may take; -1 for as long as the bus waits.
[[nodiscard]] QDBusPendingCall introduce(const QDBusConnection& bus, int milliseconds = -1);

/// Asks for the properties of one interface.
[[nodiscard]] QDBusMessage propertiesOf(const QString& interface);

/// Why a call failed.
enum class Failure {
    NoPortal,    ///< none runs, and none can be started
    NoInterface, ///< it does not offer such a thing on this desktop
    Gone,        ///< it did not answer: it went away, or takes too long
    Refused,     ///< anything else
};

/// @pre `reply` is an error.
[[nodiscard]] Failure failureOf(const QDBusMessage& reply);

/// The same for an answer to propertiesOf(): there, an interface that does not exist is an argument that makes no
/// sense.
[[nodiscard]] Failure failureToLook(const QDBusMessage& reply);

/// The session that an answer brings, which portals give as a string or as a path; empty if there is none.
[[nodiscard]] QString sessionIn(const QVariantMap& results);

} // namespace DesktopPortal
} // namespace quillbox
