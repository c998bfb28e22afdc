// Against a portal that the test plays itself, on a session bus of its own.
#include "App/Updates/FlatpakService.h"

#include "support/Await.h"

#include <QDBusContext>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QSignalSpy>
#include <QTest>

namespace quillbox {
namespace {

using namespace test;
using Reason = UpdateError::Reason;

const auto portalName = QStringLiteral("org.freedesktop.portal.Flatpak");
const auto monitorPath = QStringLiteral("/org/freedesktop/portal/Flatpak/update_monitor/1_1/t");

/// What stands at the monitor's path.
class FakeMonitor : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Flatpak.UpdateMonitor")

public:
    int updates = 0;
    int closes = 0;
    QString refusal; ///< of the next update

    Q_SCRIPTABLE Q_INVOKABLE void Update(const QString& /*parentWindow*/, const QVariantMap& /*options*/) // NOLINT
    {
        ++updates;
        if (!refusal.isEmpty())
            sendErrorReply(QStringLiteral("org.freedesktop.DBus.Error.Failed"), refusal);
    }
    Q_SCRIPTABLE Q_INVOKABLE void Close() { ++closes; } // NOLINT

Q_SIGNALS:
    Q_SCRIPTABLE void UpdateAvailable(const QVariantMap& info); // NOLINT
    Q_SCRIPTABLE void Progress(const QVariantMap& info);        // NOLINT
};

class FakePortal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Flatpak")

public:
    bool isOutside = false; ///< of any Flatpak

    Q_SCRIPTABLE Q_INVOKABLE QDBusObjectPath CreateUpdateMonitor(const QVariantMap& /*options*/) // NOLINT
    {
        if (isOutside)
            sendErrorReply(QDBusError::NotSupported, QStringLiteral("not in a sandbox"));
        return QDBusObjectPath(monitorPath);
    }
};

class FlatpakServiceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void canCheckOnceThereIsAMonitor();
    void canNotCheckOutsideOfFlatpak();
    void findsNothingBeforeAnythingWasAnnounced();
    void passesOnWhatIsAnnounced();
    void installsWithProgress();
    void takesNothingToDoForDone();
    void failsWithThePortalsWords();
    void failsWhenRefused();
    void noticesThatThePortalEnds();
    void closesItsMonitor();

private:
    void begin();
    void announce();
    void progress(uint status, uint percent = 0, const QString& message = {});
    [[nodiscard]] std::optional<Reason> install(const std::function<void()>& meanwhile);

    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "portal");
    std::unique_ptr<FakePortal> m_portal;
    std::unique_ptr<FakeMonitor> m_monitor;
    std::unique_ptr<FlatpakService> m_service;
};

void FlatpakServiceTest::init()
{
    QVERIFY2(m_bus.isConnected(), "run by dbus-run-session");
    m_portal = std::make_unique<FakePortal>();
    m_monitor = std::make_unique<FakeMonitor>();
    const auto exported = QDBusConnection::ExportScriptableContents | QDBusConnection::ExportScriptableInvokables;
    QVERIFY(m_bus.registerObject("/org/freedesktop/portal/Flatpak", m_portal.get(), exported));
    QVERIFY(m_bus.registerObject(monitorPath, m_monitor.get(), exported));
    QVERIFY(m_bus.registerService(portalName));
    m_service = std::make_unique<FlatpakService>();
}

void FlatpakServiceTest::cleanup()
{
    m_service.reset();
    m_bus.unregisterService(portalName);
    m_bus.unregisterObject("/org/freedesktop/portal/Flatpak");
    m_bus.unregisterObject(monitorPath);
}

void FlatpakServiceTest::begin()
{
    m_service->start();
    QVERIFY(eventually([this] { return m_service->obstacle() == UpdateService::Obstacle::None; }));
}

void FlatpakServiceTest::announce()
{
    const QSignalSpy seen(m_service.get(), &UpdateService::updateSeen);
    Q_EMIT m_monitor->UpdateAvailable(
        {{"running-commit", "aaaa"}, {"local-commit", "aaaa"}, {"remote-commit", "bbbb"}});
    QVERIFY(eventually([&] { return !seen.isEmpty(); }));
    QVERIFY(seen[0][0].value<Update>() == (Update{.version = {}, .id = "bbbb"}));
}

void FlatpakServiceTest::progress(uint status, uint percent, const QString& message)
{
    Q_EMIT m_monitor->Progress({{"n_ops", 2U}, {"op", 1U}, {"progress", percent}, {"status", status},
        {"error", "org.freedesktop.DBus.Error.Failed"}, {"error_message", message}});
}

std::optional<Reason> FlatpakServiceTest::install(const std::function<void()>& meanwhile)
{
    const int before = m_monitor->updates;
    Outcome<bool> outcome;
    const auto following = follow(m_service->install({}), outcome);
    const bool asked = eventually([&] { return m_monitor->updates > before; });
    meanwhile();
    if (!asked || !eventually([&] { return outcome.isDone; }))
        throw std::runtime_error("an installation did not finish");
    if (!outcome.error)
        return std::nullopt;
    try {
        std::rethrow_exception(outcome.error);
    } catch (const UpdateError& error) {
        return error.reason();
    }
}

void FlatpakServiceTest::canCheckOnceThereIsAMonitor()
{
    const QSignalSpy changes(m_service.get(), &UpdateService::obstacleChanged);
    QCOMPARE(m_service->obstacle(), UpdateService::Obstacle::NoService);
    begin();
    QCOMPARE(changes.count(), 1);
}

void FlatpakServiceTest::canNotCheckOutsideOfFlatpak()
{
    m_portal->isOutside = true;
    m_service->start();
    // The answer to a later question on the same connection comes after the refusal.
    auto question = QDBusMessage::createMethodCall(portalName, monitorPath, {}, "Close");
    const auto answer = QDBusConnection::sessionBus().asyncCall(question);
    QVERIFY(eventually([&] { return answer.isFinished(); }));
    QCOMPARE(m_service->obstacle(), UpdateService::Obstacle::NoService);
}

void FlatpakServiceTest::findsNothingBeforeAnythingWasAnnounced()
{
    begin();
    QVERIFY(!await(m_service->look()).update);
}

void FlatpakServiceTest::passesOnWhatIsAnnounced()
{
    begin();
    announce();
    const auto finding = await(m_service->look());
    QVERIFY(finding.update);
    QCOMPARE(finding.update->id, QString("bbbb"));
    QCOMPARE(finding.update->version, QString()); // Flatpak knows commits only
}

void FlatpakServiceTest::installsWithProgress()
{
    begin();
    announce();
    const QSignalSpy progressed(m_service.get(), &UpdateService::progressed);
    const auto failure = install([&] {
        QCOMPARE(m_service->obstacle(), UpdateService::Obstacle::Busy);
        progress(0, 40);
        progress(2);
    });
    QVERIFY(!failure);
    QCOMPARE(progressed[0][0].toInt(), 70); // all of the first operation, and 40 % of the second
    QCOMPARE(m_service->obstacle(), UpdateService::Obstacle::None);
    QVERIFY(!await(m_service->look()).update); // nothing is left to install
}

void FlatpakServiceTest::takesNothingToDoForDone()
{
    begin();
    QVERIFY(!install([this] { progress(1); }));
}

void FlatpakServiceTest::failsWithThePortalsWords()
{
    begin();
    QVERIFY(install([this] { progress(3, 0, "it needs more permissions"); }) == Reason::Failed);
}

void FlatpakServiceTest::failsWhenRefused()
{
    begin();
    m_monitor->refusal = "not now";
    QVERIFY(install([] {}) == Reason::Failed);
    QCOMPARE(m_service->obstacle(), UpdateService::Obstacle::None);
}

void FlatpakServiceTest::noticesThatThePortalEnds()
{
    begin();
    QVERIFY(install([this] { m_bus.unregisterService(portalName); }) == Reason::Vanished);
    QCOMPARE(m_service->obstacle(), UpdateService::Obstacle::NoService);
    QVERIFY(m_bus.registerService(portalName)); // it is started anew
    QVERIFY(eventually([this] { return m_service->obstacle() == UpdateService::Obstacle::None; }));
}

void FlatpakServiceTest::closesItsMonitor()
{
    begin();
    m_service.reset();
    QVERIFY(eventually([this] { return m_monitor->closes == 1; }));
}

} // namespace
} // namespace quillbox

QTEST_GUILESS_MAIN(quillbox::FlatpakServiceTest)
#include "FlatpakServiceTest.moc"
