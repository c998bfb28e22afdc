#include "App/Updates/UpdaterController.h"

#include "ScriptedUpdates.h"
#include "support/Await.h"

#include "App/Updates/UpdateMessages.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace quillbox {
namespace {

using namespace test;
using Controller = UpdaterController;
using Obstacle = UpdateService::Obstacle;
using Reason = UpdateError::Reason;

const Update newer{.version = QStringLiteral("1.1"), .id = QStringLiteral("quillbox;1.1;amd64;stable")};
const Update newest{.version = QStringLiteral("1.2"), .id = QStringLiteral("quillbox;1.2;amd64;stable")};

class UpdaterControllerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void startsTheServiceAtOnce();
    void asksTheServiceAfreshWhetherItCanCheck();
    void announcesThatACheckCanStart();
    void tellsWhatIsInTheWay();
    void ignoresACheckThatCanNotStart();
    void canNotCheckWhileItLooks();
    void canNotCheckWhileItInstalls();
    void announcesEachPhaseBeforeAndAfter();
    void offersWhatWasFound();
    void forgetsALookThatWasDismissed();
    void ignoresWhatADismissedLookBringsDuringTheNext();
    void endsIdleWhenSomebodyElseCancelled();
    void installsOnlyWhatIsAvailable();
    void failsWithTheReason();
    void doesNotGiveUpAnInstallationWhenDismissed();
    void tellsOfAnUpdateOnceForEachVersion();
    void tellsNothingOfWhatTheUserHasSeen();
    void outlivesNothingThatStillRuns();

private:
    void lookAndFind(const UpdateService::Finding& finding);
    template <typename P> [[nodiscard]] bool becomes()
    {
        return eventually([this] { return m_updater->isIn<P>(); });
    }

    ScriptedUpdates* m_service = nullptr;
    std::unique_ptr<Controller> m_updater;
};

void UpdaterControllerTest::init()
{
    auto service = std::make_unique<ScriptedUpdates>();
    m_service = service.get();
    m_updater = std::make_unique<Controller>(std::move(service));
}

void UpdaterControllerTest::lookAndFind(const UpdateService::Finding& finding)
{
    m_updater->checkForUpdates();
    m_service->answer(finding);
    QVERIFY(eventually([this] { return !m_updater->isIn<Controller::Looking>(); }));
}

void UpdaterControllerTest::startsTheServiceAtOnce()
{
    QCOMPARE(m_service->starts, 1);
    QVERIFY(m_updater->isIn<Controller::Idle>());
}

void UpdaterControllerTest::asksTheServiceAfreshWhetherItCanCheck()
{
    QVERIFY(m_updater->canCheckForUpdates());
    const QSignalBlocker unannounced(m_service);
    m_service->setObstacle(Obstacle::NoService);
    QVERIFY(!m_updater->canCheckForUpdates());
}

void UpdaterControllerTest::announcesThatACheckCanStart()
{
    const QSignalSpy changes(m_updater.get(), &Controller::canCheckForUpdatesChanged);
    m_service->setObstacle(Obstacle::Busy);
    m_service->setObstacle(Obstacle::None);
    QCOMPARE(changes.count(), 2);
}

void UpdaterControllerTest::tellsWhatIsInTheWay()
{
    QCOMPARE(m_updater->obstacle(), QString());
    m_service->setObstacle(Obstacle::Busy);
    QCOMPARE(m_updater->obstacle(), QString());
    m_service->setObstacle(Obstacle::NoService);
    QCOMPARE(m_updater->obstacle(), QString("The system's software service can't be reached."));
    m_service->setObstacle(Obstacle::NotPackaged);
    QCOMPARE(m_updater->obstacle(),
        QString("This copy of Quillbox was not installed as a package, so the system can't update it."));
}

void UpdaterControllerTest::ignoresACheckThatCanNotStart()
{
    m_service->setObstacle(Obstacle::NoService);
    m_updater->checkForUpdates();
    QCOMPARE(m_service->checks, 0);
    QVERIFY(m_updater->isIn<Controller::Idle>());
}

void UpdaterControllerTest::canNotCheckWhileItLooks()
{
    m_updater->checkForUpdates();
    QVERIFY(!m_updater->canCheckForUpdates());
    m_updater->checkForUpdates();
    QCOMPARE(m_service->checks, 1);
    m_service->answer();
    QVERIFY(becomes<Controller::UpToDate>());
    QVERIFY(m_updater->canCheckForUpdates());
}

void UpdaterControllerTest::canNotCheckWhileItInstalls()
{
    lookAndFind({.update = newer});
    QVERIFY(m_updater->canCheckForUpdates());
    m_updater->install();
    QVERIFY(!m_updater->canCheckForUpdates());
    m_service->answer();
    QVERIFY(becomes<Controller::Installed>());
    QVERIFY(m_updater->canCheckForUpdates());
}

void UpdaterControllerTest::announcesEachPhaseBeforeAndAfter()
{
    QStringList order;
    connect(m_updater.get(), &Controller::phaseAboutToChange, this, [&](const Controller::Phase& next) {
        order.append(
            std::holds_alternative<Controller::Looking>(next) && m_updater->isIn<Controller::Idle>() ? "before" : "?");
    });
    connect(m_updater.get(), &Controller::phaseChanged, this,
        [&] { order.append(m_updater->isIn<Controller::Looking>() ? "after" : "?"); });
    connect(m_updater.get(), &Controller::canCheckForUpdatesChanged, this,
        [&] { order.append(m_updater->canCheckForUpdates() ? "can" : "can't"); });
    m_updater->checkForUpdates();
    QCOMPARE(order, QStringList({"before", "after", "can't"}));
}

void UpdaterControllerTest::offersWhatWasFound()
{
    lookAndFind({.update = newer, .staleness = UpdateError(Reason::NoNetwork)});
    const auto& offer = std::get<Controller::Available>(m_updater->phase());
    QVERIFY(offer.update == newer);
    QCOMPARE(offer.staleness, UpdateMessages::staleness(UpdateError(Reason::NoNetwork)));
}

void UpdaterControllerTest::forgetsALookThatWasDismissed()
{
    m_updater->checkForUpdates();
    m_updater->dismiss();
    QCOMPARE(m_service->cancels, 1);
    QVERIFY(m_updater->isIn<Controller::Idle>());
    const QSignalSpy changes(m_updater.get(), &Controller::phaseChanged);
    m_service->answer({.update = newer});
    QTimer::singleShot(0, this, [this] { m_service->setObstacle(Obstacle::Busy); }); // after the look's own event
    QVERIFY(eventually([this] { return !m_updater->canCheckForUpdates(); }));
    QVERIFY(changes.isEmpty());
}

void UpdaterControllerTest::ignoresWhatADismissedLookBringsDuringTheNext()
{
    m_updater->checkForUpdates();
    m_updater->dismiss();
    m_updater->checkForUpdates(); // the scripted service ends the first one now, without a finding
    m_service->answer({.update = newer});
    QVERIFY(eventually([this] { return !m_updater->isIn<Controller::Looking>(); }));
    QVERIFY(m_updater->isIn<Controller::Available>());
}

void UpdaterControllerTest::endsIdleWhenSomebodyElseCancelled()
{
    lookAndFind({.isCancelled = true});
    QVERIFY(m_updater->isIn<Controller::Idle>());
}

void UpdaterControllerTest::installsOnlyWhatIsAvailable()
{
    m_updater->install();
    QCOMPARE(m_service->installed, QStringList());
    lookAndFind({.update = newer});
    m_updater->install();
    m_updater->install(); // a second click
    QCOMPARE(m_service->installed, QStringList(newer.id));
}

void UpdaterControllerTest::failsWithTheReason()
{
    m_updater->checkForUpdates();
    m_service->answer(UpdateError(Reason::Failed, "E: <b>no</b>\nspace"));
    QVERIFY(becomes<Controller::Failed>());
    const auto failure = std::get<Controller::Failed>(m_updater->phase());
    QCOMPARE(failure.title, QString("Couldn't look for updates"));
    QCOMPARE(failure.message, QString("The system's software service says: E: <b>no</b>\nspace"));
    QVERIFY(failure.canTrySoftwareCenter);
}

void UpdaterControllerTest::doesNotGiveUpAnInstallationWhenDismissed()
{
    lookAndFind({.update = newer});
    m_updater->install();
    m_updater->dismiss();
    QVERIFY(m_updater->isIn<Controller::Installing>());
    m_service->answer(UpdateError(Reason::Untrusted));
    QVERIFY(becomes<Controller::Failed>());
    QCOMPARE(std::get<Controller::Failed>(m_updater->phase()).title, QString("Couldn't install the update"));
}

void UpdaterControllerTest::tellsOfAnUpdateOnceForEachVersion()
{
    const QSignalSpy told(m_updater.get(), &Controller::updateSeen);
    Q_EMIT m_service->updateSeen(newer);
    Q_EMIT m_service->updateSeen(newer);
    QCOMPARE(told.count(), 1);
    Q_EMIT m_service->updateSeen(newest);
    QCOMPARE(told.count(), 2);
}

void UpdaterControllerTest::tellsNothingOfWhatTheUserHasSeen()
{
    const QSignalSpy told(m_updater.get(), &Controller::updateSeen);
    lookAndFind({.update = newer});
    Q_EMIT m_service->updateSeen(newer);
    m_updater->dismiss();
    Q_EMIT m_service->updateSeen(newer);
    QVERIFY(told.isEmpty());
}

void UpdaterControllerTest::outlivesNothingThatStillRuns()
{
    m_updater->checkForUpdates();
    m_updater.reset(); // the look's coroutine ends with the service
    QCoreApplication::processEvents();
}

} // namespace
} // namespace quillbox

QTEST_GUILESS_MAIN(quillbox::UpdaterControllerTest)
#include "UpdaterControllerTest.moc"
