#include "Platform/DBus/SessionBus.h"

#include <algorithm>
#include <atomic>
#include <chrono>

namespace quillbox {
namespace {

using namespace std::chrono_literals;

// How long after one attempt the next one follows: a bus that is restarted is back soon, or stays away for long.
constexpr std::chrono::milliseconds firstPause = 100ms;
constexpr std::chrono::milliseconds maxPause = 5s;

/// How many connections there have been; the first one is the toolkit's.
std::atomic<int> connectionNumber{0}; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): one a process

QString nameOf(int number)
{
    return QStringLiteral("session bus %1").arg(number);
}

} // namespace

QDBusConnection SessionBus::connection()
{
    const int number = connectionNumber;
    return number == 0 ? QDBusConnection::sessionBus() : QDBusConnection(nameOf(number));
}

void SessionBus::listen(
    const QString& path, const QString& interface, const QString& signal, QObject* receiver, const char* slot)
{
    (void)connection().connect(QString(), path, interface, signal, receiver, slot); // without a bus nothing comes
}

SessionBus::SessionBus(QObject* parent)
    : QObject(parent)
{
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &SessionBus::connectAgain);
    if (connection().isConnected())
        follow();
}

/// The library itself sends this signal when the connection breaks.
/// @see  D-Bus, the interface org.freedesktop.DBus.Local
void SessionBus::follow()
{
    listen(QStringLiteral("/org/freedesktop/DBus/Local"), QStringLiteral("org.freedesktop.DBus.Local"),
        QStringLiteral("Disconnected"), this, SLOT(noteLoss()));
}

void SessionBus::noteLoss()
{
    m_patience.start(firstPause);
}

void SessionBus::connectAgain()
{
    const int before = connectionNumber;
    const auto name = nameOf(before + 1);
    if (!QDBusConnection::connectToBus(QDBusConnection::SessionBus, name).isConnected()) {
        QDBusConnection::disconnectFromBus(name); // or its name would stay in use
        m_patience.start(std::min(maxPause, m_patience.intervalAsDuration() * 2));
        return;
    }
    connectionNumber = before + 1;
    follow();
    Q_EMIT restored();
    if (before > 0)
        QDBusConnection::disconnectFromBus(nameOf(before));
}

} // namespace quillbox

#include "moc_SessionBus.cpp"
