#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <cstdint>
#include <functional>

class QDBusPendingCallWatcher;

namespace quillbox {

namespace DesktopNotification {

inline constexpr auto service = "org.freedesktop.Notifications"; // its interface is called the same
inline constexpr auto path = "/org/freedesktop/Notifications";
inline constexpr auto defaultAction = "default"; // a click on the message itself

/// A call of one of the service's methods.
[[nodiscard]] QDBusMessage callOf(const QString& method);
/// The one that shows a message of this program; its answer is the message's number.
/// @param actions   For each its name, then its label.
/// @param lifetime  Milliseconds; 0 for ever, -1 as long as the desktop thinks fit.
[[nodiscard]] QDBusMessage notifyCall(
    const QString& title, const QString& text, const QStringList& actions, QVariantMap hints = {}, int lifetime = -1);

/// What the user can do with a message by a button on it.
struct Action {
    QString label;
    std::function<void()> run; ///< in the main thread, as long as the application runs
};

/// Shows a message in the corner of the desktop, where notices of all programs appear; nowhere if the desktop has none.
/// By org.freedesktop.Notifications.Notify, as freedesktop.org publishes it (Desktop Notifications 1.2). Thread: main.
/// @param title, text  Plain words; one line and one sentence or two.
/// @param action       None without a label. Some desktops show no buttons.
void show(const QString& title, const QString& text, const Action& action = {});

} // namespace DesktopNotification

/// One message that has a button: waits until it is pressed, or the message has gone. Deletes itself. Thread: main.
class AwaitedNotification : public QObject {
    Q_OBJECT

public:
    AwaitedNotification(QDBusPendingCallWatcher* sent, std::function<void()> run, QObject* parent);

    // What the desktop announces to all programs.
    Q_SLOT void noteAction(uint id, const QString& action);
    Q_SLOT void noteClosed(uint id, uint reason);

private:
    std::uint32_t m_id = 0; // none until the desktop has answered
    std::function<void()> m_run;
};

} // namespace quillbox
