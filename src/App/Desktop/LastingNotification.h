#pragma once

#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>

namespace quillbox {

/// A message of the desktop with one button, which stays among its messages as long as this object lives. It is of low
/// urgency: GNOME shows it in its list, and not as a banner across the screen. Nothing where the desktop has no
/// messages. By org.freedesktop.Notifications, as freedesktop.org publishes it (Desktop Notifications 1.2). Thread:
/// main.
class LastingNotification : public QObject {
    Q_OBJECT

public:
    /// @param title, text  Plain words; one line and one sentence or two.
    /// @param button       Its label. A click on the message itself does the same.
    /// @param run          May be called more than once.
    LastingNotification(const QString& title, const QString& text, const QString& button, std::function<void()> run);
    ~LastingNotification() override;

    // What the desktop announces to all programs.
    Q_SLOT void noteAction(uint id, const QString& action);

private:
    std::uint32_t m_id = 0; // none until the desktop has answered
    std::function<void()> m_run;
};

} // namespace quillbox
