#include "App/Updates/FlatpakService.h"

#include <QCoreApplication>
#include <QCoro/QCoroFuture>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusUnixFileDescriptor>
#include <QMap>
#include <QPointer>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace quillbox {
namespace {

using Reason = UpdateError::Reason;

const auto portal = QStringLiteral("org.freedesktop.portal.Flatpak"); // the service and its interface
const auto portalPath = QStringLiteral("/org/freedesktop/portal/Flatpak");
const auto monitorInterface = QStringLiteral("org.freedesktop.portal.Flatpak.UpdateMonitor");

/// "status" of a progress.
enum class Status : std::uint32_t {
    Running = 0,
    Empty = 1, ///< there was nothing to do
    Done = 2,
    Failed = 3,
};

constexpr std::uint32_t spawnLatestVersion = 1U << 1U;

/// As the portal expects paths: bytes that end with a zero.
QByteArray bytestring(const QString& text)
{
    return text.toUtf8().append('\0');
}

QDBusMessage portalCall(const QString& method)
{
    return QDBusMessage::createMethodCall(portal, portalPath, portal, method);
}

} // namespace

FlatpakService::FlatpakService(QDBusConnection bus)
    : m_bus(std::move(bus))
    , m_watcher(portal, m_bus, QDBusServiceWatcher::WatchForRegistration | QDBusServiceWatcher::WatchForUnregistration)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        setMonitor({}); // it has gone with the portal
        endInstallation(UpdateError(Reason::Vanished));
    });
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] { createMonitor(); });
}

FlatpakService::~FlatpakService()
{
    if (!m_monitor.isEmpty())
        (void)m_bus.send(QDBusMessage::createMethodCall(portal, m_monitor, monitorInterface, QStringLiteral("Close")));
    endInstallation(UpdateError(Reason::Vanished)); // whoever waits for it comes to an end
}

void FlatpakService::start()
{
    createMonitor();
}

/// Unless there is one, or one is on its way: the question itself may start the portal.
void FlatpakService::createMonitor()
{
    if (m_isAsking || !m_monitor.isEmpty())
        return;
    m_isAsking = true;
    auto call = portalCall(QStringLiteral("CreateUpdateMonitor"));
    call << QVariantMap();
    auto* const pending = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        m_isAsking = false;
        if (!finished->isError())
            setMonitor(finished->reply().arguments().value(0).value<QDBusObjectPath>().path());
    });
}

void FlatpakService::setMonitor(const QString& path)
{
    const auto available = QStringLiteral("UpdateAvailable");
    const auto progress = QStringLiteral("Progress");
    if (!m_monitor.isEmpty()) {
        m_bus.disconnect({}, m_monitor, monitorInterface, available, this, SLOT(receiveUpdateAvailable(QVariantMap)));
        m_bus.disconnect({}, m_monitor, monitorInterface, progress, this, SLOT(receiveProgress(QVariantMap)));
    }
    m_monitor = path;
    if (!m_monitor.isEmpty()) {
        m_bus.connect({}, m_monitor, monitorInterface, available, this, SLOT(receiveUpdateAvailable(QVariantMap)));
        m_bus.connect({}, m_monitor, monitorInterface, progress, this, SLOT(receiveProgress(QVariantMap)));
    }
    Q_EMIT obstacleChanged();
}

UpdateService::Obstacle FlatpakService::obstacle() const
{
    if (m_monitor.isEmpty() || !m_bus.isConnected())
        return Obstacle::NoService;
    return m_installation ? Obstacle::Busy : Obstacle::None;
}

QCoro::Task<UpdateService::Finding> FlatpakService::look()
{
    Finding finding;
    finding.update = m_seen;
    co_return finding;
}

QCoro::Task<> FlatpakService::install(Update /*update*/)
{
    if (m_monitor.isEmpty())
        throw UpdateError(Reason::Unreachable);
    m_installation.emplace();
    m_installation->start();
    const auto end = m_installation->future();
    Q_EMIT obstacleChanged();
    auto call = QDBusMessage::createMethodCall(portal, m_monitor, monitorInterface, QStringLiteral("Update"));
    call << QString() << QVariantMap(); // no window that a question could stand before
    // It answers once it has begun, which may take a question to the user.
    constexpr int forever = std::numeric_limits<int>::max();
    auto* const pending = new QDBusPendingCallWatcher(m_bus.asyncCall(call, forever), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        if (finished->isError())
            endInstallation(UpdateError(Reason::Failed, finished->reply().errorMessage()));
    });
    const QPointer self(this);
    const auto ending = co_await end;
    if (ending)
        throw UpdateError(*ending);
    if (self)
        m_seen.reset();
}

void FlatpakService::endInstallation(Ending ending)
{
    if (!m_installation)
        return;
    m_installation->addResult(std::move(ending));
    m_installation->finish();
    m_installation.reset();
    Q_EMIT obstacleChanged();
}

void FlatpakService::receiveUpdateAvailable(const QVariantMap& info)
{
    m_seen = Update{.version = {}, .id = info.value(QStringLiteral("remote-commit")).toString()};
    Q_EMIT updateSeen(*m_seen);
}

void FlatpakService::receiveProgress(const QVariantMap& info)
{
    switch (Status{info.value(QStringLiteral("status")).toUInt()}) {
    case Status::Running: {
        const auto operations = std::max(1U, info.value(QStringLiteral("n_ops")).toUInt());
        const auto done
            = info.value(QStringLiteral("op")).toUInt() * 100 + info.value(QStringLiteral("progress")).toUInt();
        Q_EMIT progressed(static_cast<int>(std::min(100U, done / operations)));
        break;
    }
    case Status::Empty: // the newer version is there already
    case Status::Done:
        endInstallation(std::nullopt);
        break;
    case Status::Failed:
        endInstallation(UpdateError(Reason::Failed, info.value(QStringLiteral("error_message")).toString()));
        break;
    }
}

bool FlatpakService::startInstalledVersion()
{
    using Descriptors = QMap<uint, QDBusUnixFileDescriptor>;
    using Environment = QMap<QString, QString>;
    qDBusRegisterMetaType<QList<QByteArray>>();
    qDBusRegisterMetaType<Descriptors>();
    qDBusRegisterMetaType<Environment>();
    auto call = portalCall(QStringLiteral("Spawn"));
    call << bytestring(QStringLiteral("/"))
         << QVariant::fromValue(QList<QByteArray>{bytestring(QCoreApplication::applicationFilePath())})
         << QVariant::fromValue(Descriptors()) << QVariant::fromValue(Environment()) << spawnLatestVersion
         << QVariantMap();
    return m_bus.send(call);
}

} // namespace quillbox

#include "moc_FlatpakService.cpp"
