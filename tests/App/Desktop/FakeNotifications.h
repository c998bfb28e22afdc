#pragma once

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <cstdint>
#include <vector>

namespace quillbox::test {

/// The place where a desktop shows messages.
class FakeNotifications : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    struct Message {
        QString title, text;
        QStringList actions;
        QVariantMap hints;
        int lifetime = 0;
    };

    FakeNotifications()
        : m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, "notifications"))
    {
        EXPECT_TRUE(m_bus.registerObject(path(), this, QDBusConnection::ExportScriptableSlots));
        EXPECT_TRUE(m_bus.registerService(service()));
    }
    ~FakeNotifications() override
    {
        m_bus.unregisterService(service());
        QDBusConnection::disconnectFromBus("notifications");
    }

    std::vector<Message> shown; ///< the first has number 1
    std::vector<std::uint32_t> closed;

    void press(std::uint32_t id, const QString& action)
    {
        auto signal = QDBusMessage::createSignal(path(), service(), "ActionInvoked");
        signal << id << action;
        m_bus.send(signal);
    }

public Q_SLOTS:
    // NOLINTBEGIN(readability-identifier-naming): as they are called on the bus
    Q_SCRIPTABLE uint Notify(const QString& /*program*/, uint /*replaced*/, const QString& /*icon*/,
        const QString& title, const QString& text, const QStringList& actions, const QVariantMap& hints, int lifetime)
    {
        shown.push_back({title, text, actions, hints, lifetime});
        return static_cast<uint>(shown.size());
    }
    Q_SCRIPTABLE void CloseNotification(uint id) { closed.push_back(id); }
    // NOLINTEND(readability-identifier-naming)

private:
    static QString service() { return QStringLiteral("org.freedesktop.Notifications"); }
    static QString path() { return QStringLiteral("/org/freedesktop/Notifications"); }

    QDBusConnection m_bus;
};

} // namespace quillbox::test
