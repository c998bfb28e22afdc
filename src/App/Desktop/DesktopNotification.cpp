#include "App/Desktop/DesktopNotification.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>

#include <cstdint>

namespace quillbox::DesktopNotification {

void show(const QString& title, const QString& text)
{
    const QString service = QStringLiteral("org.freedesktop.Notifications");
    auto call = QDBusMessage::createMethodCall(
        service, QStringLiteral("/org/freedesktop/Notifications"), service, QStringLiteral("Notify"));
    constexpr std::uint32_t replacesNone = 0;
    constexpr int untilTheDesktopThinks = -1;
    const QVariantMap hints{{QStringLiteral("desktop-entry"), QStringLiteral(QUILLBOX_APP_ID)}};
    call << QStringLiteral("Quillbox") << replacesNone << QStringLiteral(QUILLBOX_APP_ID) << title
         << text.toHtmlEscaped() << QStringList() << hints << untilTheDesktopThinks;
    (void)QDBusConnection::sessionBus().send(call); // whether somebody shows it makes no difference to us
}

} // namespace quillbox::DesktopNotification
