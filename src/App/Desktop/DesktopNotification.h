#pragma once

#include <QString>

namespace quillbox::DesktopNotification {

/// Shows a message in the corner of the desktop, where notices of all programs appear; nowhere if the desktop has none.
/// By org.freedesktop.Notifications.Notify, as freedesktop.org publishes it (Desktop Notifications 1.2). Thread: main.
/// @param title, text  Plain words; one line and one sentence or two.
void show(const QString& title, const QString& text);

} // namespace quillbox::DesktopNotification
