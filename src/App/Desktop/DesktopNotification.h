#pragma once

#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>

class QDBusPendingCallWatcher;

namespace quillbox {

namespace DesktopNotification {

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
