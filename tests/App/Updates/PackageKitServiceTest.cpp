// What the user wishes for: checks and installations.
#include "PackageKitFixture.h"

#include <QCoreApplication>
#include <QTimer>

#include <csignal>

namespace quillbox {
namespace {

using namespace test;

class PackageKitServiceTest : public PackageKitFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void canCheckWhereTheDaemonCanBeStarted();
    void canNotCheckWithoutABus();
    void findsAnUpdateWithItsVersion();
    void findsNoneWhereThereIsNone();
    void saysThatNoSourceOffersThePackage();
    void saysThatThePackageIsNotInstalled();
    void goesOnWithWhatIsKnownWhenTheRefreshIsRefused();
    void goesOnWithWhatIsKnownWhenTheSourceCanNotBeReached();
    void takesForAnUpdateOnlyWhatCanBeInstalled();
    void installsWhatItFound();
    void theInstallationGoesOnWhenTheApplicationQuits();
    void refusesAnUntrustedPackage();
    void acceptsThatThePasswordIsRefused();
    void noticesThatAnInstallationWasWithoutEffect();
    void waitsForASlowAnswerWithoutStandingStill();
    void canBeCancelledWhileTheAnswerIsSlow();
    void noticesThatTheDaemonWasKilledDuringACheck();
    void noticesThatTheDaemonWasKilledDuringAnInstallation();
    void findsOutThatItWasInstalledAlthoughTheDaemonWasKilled();
    void noticesThatTheDaemonWasKilledBeforeItAnswersAtAll();
    void endsQuietlyWhenDestroyedDuringACheck();
};

void PackageKitServiceTest::canCheckWhereTheDaemonCanBeStarted()
{
    begin();
    QCOMPARE(daemon(), 0);
}

void PackageKitServiceTest::canNotCheckWithoutABus()
{
    PackageKitService service({.bus = QDBusConnection("no such connection"), .package = "quillbox"});
    service.start();
    QCOMPARE(service.obstacle(), UpdateService::Obstacle::NoService);
}

void PackageKitServiceTest::findsAnUpdateWithItsVersion()
{
    findUpdate();
    QCOMPARE(phase<UpdaterController::Available>().update.version, QString("1.1"));
    QCOMPARE(phase<UpdaterController::Available>().staleness, QString());
    QVERIFY(updateButton()->isEnabled());
}

void PackageKitServiceTest::findsNoneWhereThereIsNone()
{
    source({"offer", "quillbox", "1.0"});
    begin();
    checkToTheEnd();
    QVERIFY(isIn<UpdaterController::UpToDate>());
    QCOMPARE(phase<UpdaterController::UpToDate>().version, QString("1.0"));
    QCOMPARE(phase<UpdaterController::UpToDate>().staleness, QString());
    QVERIFY(updateButton()->isEnabled());
}

void PackageKitServiceTest::saysThatNoSourceOffersThePackage()
{
    source({"offer", "another", "7"});
    begin();
    checkToTheEnd();
    QVERIFY(fails(Reason::NotOffered));
    QVERIFY(updateButton()->isEnabled());
}

void PackageKitServiceTest::saysThatThePackageIsNotInstalled()
{
    source({"remove"});
    begin();
    checkToTheEnd();
    QVERIFY(fails(Reason::NotPackaged));
    QVERIFY(!updateButton()->isEnabled());
    QCOMPARE(updateButton()->toolTip(), UpdateMessages::describe(UpdateError(Reason::NotPackaged)));
}

void PackageKitServiceTest::goesOnWithWhatIsKnownWhenTheRefreshIsRefused()
{
    source({"offer", "quillbox", "1.0"});
    begin();
    checkToTheEnd();
    source({"offer", "quillbox", "1.1"}); // it doesn't get to know
    polkit("AllowUnknown", {false});
    checkToTheEnd();
    QVERIFY(isIn<UpdaterController::UpToDate>());
    QCOMPARE(phase<UpdaterController::UpToDate>().staleness, UpdateMessages::staleness(UpdateError(Reason::Refused)));
    QVERIFY(updateButton()->isEnabled());
}

void PackageKitServiceTest::goesOnWithWhatIsKnownWhenTheSourceCanNotBeReached()
{
    source({"break"});
    begin();
    checkToTheEnd();
    QVERIFY(isIn<UpdaterController::UpToDate>());
    QCOMPARE(phase<UpdaterController::UpToDate>().staleness, UpdateMessages::staleness(UpdateError(Reason::NoNetwork)));
    QVERIFY(updateButton()->isEnabled());
}

void PackageKitServiceTest::takesForAnUpdateOnlyWhatCanBeInstalled()
{
    auto package = PackageKit::PackageId::parse("quillbox;1.1;amd64;stable");
    QVERIFY(package && !package->isUpdate());
    for (std::uint32_t info = 0; info < 20; ++info) {
        package->info = info;
        QCOMPARE(package->isUpdate(), info >= 3 && info <= 8); // 2: available, 9: blocked
    }
}

void PackageKitServiceTest::installsWhatItFound()
{
    findUpdate();
    const QSignalSpy progress(m_updater.get(), &UpdaterController::progressed);
    m_updater->install();
    QVERIFY(isIn<UpdaterController::Installing>());
    QVERIFY(!updateButton()->isEnabled());
    waitForTheInstallation();
    QVERIFY(isIn<UpdaterController::Installed>());
    QCOMPARE(phase<UpdaterController::Installed>().update.version, QString("1.1"));
    QCOMPARE(installedVersion(), QString("1.1"));
    QVERIFY(!progress.isEmpty());
    QVERIFY(updateButton()->isEnabled());
}

void PackageKitServiceTest::theInstallationGoesOnWhenTheApplicationQuits()
{
    findUpdate();
    polkit("SimulateHang", {true});
    m_updater->install();
    QVERIFY(eventually([this] { return isPasswordAsked(); }));
    m_hud.reset();
    m_updater.reset();
    QCoreApplication::processEvents();
    polkit("SimulateHang", {false});
    polkit("ReleaseHangingCalls", {});
    QVERIFY(eventually([this] { return installedVersion() == "1.1"; }));
    begin();
    checkToTheEnd(); // which waits for the end of that
    QCOMPARE(phase<UpdaterController::UpToDate>().version, QString("1.1"));
}

void PackageKitServiceTest::refusesAnUntrustedPackage()
{
    source({"offer-unsigned", "quillbox", "1.1"});
    begin();
    checkToTheEnd();
    QVERIFY(isIn<UpdaterController::Available>());
    m_updater->install();
    waitForTheInstallation();
    QVERIFY(fails(Reason::Untrusted));
    QVERIFY(installedVersion() != "1.1");
    QVERIFY(updateButton()->isEnabled());
}

void PackageKitServiceTest::acceptsThatThePasswordIsRefused()
{
    findUpdate();
    polkit("AllowUnknown", {false});
    m_updater->install();
    waitForTheInstallation();
    QVERIFY(fails(Reason::Refused));
    QVERIFY(phase<UpdaterController::Failed>().canTrySoftwareCenter);
    QVERIFY(updateButton()->isEnabled());
}

void PackageKitServiceTest::noticesThatAnInstallationWasWithoutEffect()
{
    source({"offer", "quillbox", "1.1"});
    PackageKitService service({.bus = m_bus, .package = "quillbox"});
    service.start();
    QVERIFY(eventually([&] { return service.obstacle() == UpdateService::Obstacle::None; }));
    const auto finding = await(service.look());
    QVERIFY(finding.update);
    // Installed it is, but not what was promised.
    const Update promised{.version = "1.2", .id = finding.update->id};
    try {
        await(service.install(promised));
        QFAIL("it did not notice");
    } catch (const UpdateError& error) {
        QCOMPARE(error.reason(), Reason::NotInstalled);
    }
}

void PackageKitServiceTest::waitsForASlowAnswerWithoutStandingStill()
{
    source({"offer", "quillbox", "1.1"});
    begin();
    startDaemon();
    signalDaemon(SIGSTOP);
    check();
    int turns = 0;
    QTimer ticks;
    connect(&ticks, &QTimer::timeout, &ticks, [&turns] { ++turns; });
    ticks.start(1);
    QVERIFY(eventually([&turns] { return turns > 20; }));
    QVERIFY(isIn<UpdaterController::Looking>());
    QVERIFY(!updateButton()->isEnabled());
    signalDaemon(SIGCONT);
    QVERIFY(eventually([this] { return isIn<UpdaterController::Available>(); }));
    QVERIFY(updateButton()->isEnabled());
}

void PackageKitServiceTest::canBeCancelledWhileTheAnswerIsSlow()
{
    begin();
    startDaemon();
    signalDaemon(SIGSTOP);
    check();
    m_updater->dismiss();
    QVERIFY(isIn<UpdaterController::Idle>());
    QVERIFY(eventually([this] { return updateButton()->isEnabled(); }));
    signalDaemon(SIGCONT);
    checkToTheEnd(); // the next one is not disturbed
    QVERIFY(fails(Reason::NotOffered));
}

void PackageKitServiceTest::noticesThatTheDaemonWasKilledDuringACheck()
{
    source({"offer", "quillbox", "1.1"});
    begin();
    polkit("SimulateHang", {true});
    check();
    QVERIFY(eventually([this] { return isPasswordAsked(); })); // it is in the middle of the refresh
    QVERIFY(isIn<UpdaterController::Looking>());
    killDaemon();
    QVERIFY(eventually([this] { return !isIn<UpdaterController::Looking>(); }));
    QVERIFY(fails(Reason::Vanished));
    QVERIFY(updateButton()->isEnabled());
    polkit("SimulateHang", {false});
    checkToTheEnd(); // by a new daemon
    QVERIFY(isIn<UpdaterController::Available>());
}

void PackageKitServiceTest::noticesThatTheDaemonWasKilledDuringAnInstallation()
{
    findUpdate();
    polkit("SimulateHang", {true});
    m_updater->install();
    QVERIFY(eventually([this] { return isPasswordAsked(); }));
    QVERIFY(isIn<UpdaterController::Installing>());
    killDaemon();
    waitForTheInstallation();
    QVERIFY(fails(Reason::Vanished));
    QVERIFY(updateButton()->isEnabled());
}

void PackageKitServiceTest::findsOutThatItWasInstalledAlthoughTheDaemonWasKilled()
{
    findUpdate();
    polkit("SimulateHang", {true});
    m_updater->install();
    QVERIFY(eventually([this] { return isPasswordAsked(); }));
    source({"install", "quillbox", "1.1"});
    killDaemon();
    waitForTheInstallation();
    QVERIFY(isIn<UpdaterController::Installed>());
}

void PackageKitServiceTest::noticesThatTheDaemonWasKilledBeforeItAnswersAtAll()
{
    begin();
    startDaemon();
    signalDaemon(SIGSTOP);
    check();
    killDaemon();
    QVERIFY(eventually([this] { return !isIn<UpdaterController::Looking>(); }));
    QVERIFY(fails(Reason::Vanished));
    QVERIFY(updateButton()->isEnabled());
}

void PackageKitServiceTest::endsQuietlyWhenDestroyedDuringACheck()
{
    begin();
    startDaemon();
    signalDaemon(SIGSTOP);
    check();
    m_hud.reset();
    m_updater.reset();
    QCoreApplication::processEvents();
    QVERIFY(daemon() != 0);
}

} // namespace
} // namespace quillbox

int main(int argc, char** argv)
{
    quillbox::PackageKitServiceTest test;
    return quillbox::test::runOnPackageKit(test, argc, argv);
}

#include "PackageKitServiceTest.moc"
