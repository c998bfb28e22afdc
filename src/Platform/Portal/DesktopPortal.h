#pragma once

#include "Platform/Portal/PortalError.h"

#include <QDBusMessage>
#include <QString>
#include <QVariantList>

namespace quillbox {

/// The messages of the desktop portal, by which programs ask for what the user has to permit. Stateless; thread: any.
/// @see  The documentation of xdg-desktop-portal.
namespace DesktopPortal {

inline constexpr auto service = "org.freedesktop.portal.Desktop";
inline constexpr auto path = "/org/freedesktop/portal/desktop";

[[nodiscard]] QDBusMessage method(const QString& interface, const QString& name, const QVariantList& arguments);

/// Ends a request or a session, `object` on the bus. `interface` is what its methods are called by. Starts no portal:
/// one that is gone has ended it.
[[nodiscard]] QDBusMessage closing(const QString& object, const QString& interface);

/// What a call failed with. @pre `reply` is an error.
[[nodiscard]] PortalError errorIn(const QDBusMessage& reply);

} // namespace DesktopPortal
} // namespace quillbox
