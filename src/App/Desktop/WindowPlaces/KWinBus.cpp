#include "App/Desktop/WindowPlaces/KWinBus.h"

#include "Platform/DBus/SessionBus.h"

#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>

namespace quillbox {

void KWinBus::ask(QObject& asker, const Question& question, std::chrono::milliseconds patience,
    const std::function<void(const QDBusMessage&)>& take)
{
    auto message = QDBusMessage::createMethodCall(
        QStringLiteral("org.kde.KWin"), question.path, question.interface, question.method);
    message.setArguments(question.arguments);
    message.setAutoStartService(false);
    const auto bus = SessionBus::connection();
    if (!take) {
        (void)bus.send(message); // nobody waits for what comes of it
        return;
    }
    auto* const watcher
        = new QDBusPendingCallWatcher(bus.asyncCall(message, static_cast<int>(patience.count())), &asker);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &asker, [watcher, take] {
        watcher->deleteLater();
        take(watcher->reply());
    });
}

} // namespace quillbox
