#include "App/Workflow/CurrentCoordinator.h"

#include "CoordinatorFixture.h"

#include <QSignalSpy>
#include <QTest>

namespace quillbox {
namespace {

using Coordinator = RecordingCoordinator;
using test::someRegion;
using Fixture = test::CoordinatorFixture;

} // namespace

class CurrentCoordinatorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theNextFlowReplacesTheCoordinatorThatHasEnded();
    void theReplacementKeepsWhatTheOldOneHad();
    void theOldCoordinatorGoes();
    void toggleBeginsAndStops();
    void passesTheProgressOn();
    void passesTheWishToFinishOn();
};

void CurrentCoordinatorTest::theNextFlowReplacesTheCoordinatorThatHasEnded()
{
    Fixture fixture;
    auto& first = *fixture.coordinator;
    CurrentCoordinator current(std::move(fixture.coordinator));
    current.begin();
    fixture.selector->select(someRegion);
    current.stop();
    QVERIFY(test::eventually([&] { return first.isIn<Coordinator::Done>(); }));
    QCOMPARE(&current.get(), &first);
    const QSignalSpy spy(&current, &CurrentCoordinator::phaseChanged);
    current.begin();
    QVERIFY(&current.get() != &first);
    QVERIFY(current.get().isIn<Coordinator::SelectingRegion>());
    QCOMPARE(spy.size(), 2); // idle again, then selecting
}

void CurrentCoordinatorTest::theReplacementKeepsWhatTheOldOneHad()
{
    Fixture fixture;
    fixture.recorder->startError = std::make_exception_ptr(std::runtime_error("no"));
    CurrentCoordinator current(std::move(fixture.coordinator));
    current.get().setPreset(ExportPreset::docs);
    current.begin();
    fixture.selector->select(someRegion);
    QVERIFY(current.get().isIn<Coordinator::Failed>());
    current.begin();
    QVERIFY(current.get().preset() == ExportPreset::docs);
    QCOMPARE(current.get().recorder(), fixture.recorder);
    QCOMPARE(current.get().selector(), fixture.selector);
    QCOMPARE(current.get().history(), fixture.history);
}

void CurrentCoordinatorTest::theOldCoordinatorGoes()
{
    Fixture fixture;
    fixture.recorder->startError = std::make_exception_ptr(std::runtime_error("no"));
    const QPointer old(fixture.coordinator.get());
    CurrentCoordinator current(std::move(fixture.coordinator));
    current.begin();
    fixture.selector->select(someRegion);
    current.begin();
    QVERIFY(test::eventually([&] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return old.isNull();
    }));
}

void CurrentCoordinatorTest::toggleBeginsAndStops()
{
    Fixture fixture;
    CurrentCoordinator current(std::move(fixture.coordinator));
    current.toggle();
    QVERIFY(current.get().isIn<Coordinator::SelectingRegion>());
    current.toggle(); // nothing to stop, and nothing to begin
    QCOMPARE(fixture.selector->presentations, 1);
    fixture.selector->select(someRegion);
    current.toggle();
    QVERIFY(test::eventually([&] { return current.get().isIn<Coordinator::Done>(); }));
}

void CurrentCoordinatorTest::passesTheProgressOn()
{
    Fixture fixture;
    CurrentCoordinator current(std::move(fixture.coordinator));
    std::optional<ExportProgress> progress;
    connect(&current, &CurrentCoordinator::progressChanged, this, [&] { progress = current.get().progress(); });
    current.begin();
    fixture.selector->select(someRegion);
    current.stop();
    QVERIFY(test::eventually([&] { return current.get().isIn<Coordinator::Done>(); }));
    QVERIFY(progress.has_value());
    QCOMPARE(progress->fraction(), 0.5); // the first attempt was good
}

void CurrentCoordinatorTest::passesTheWishToFinishOn()
{
    Fixture fixture;
    CurrentCoordinator current(std::move(fixture.coordinator));
    const QSignalSpy spy(&current, &CurrentCoordinator::progressChanged);
    test::ScriptedRecorder::close(fixture.recorder->stopGate); // or the clip may be done at once
    current.begin();
    fixture.selector->select(someRegion);
    current.stop();
    current.finishNow();
    QVERIFY(current.get().isFinishing());
    QCOMPARE(spy.size(), 1);
    fixture.recorder->stopGate->finish();
    QVERIFY(test::eventually([&] { return current.get().isIn<Coordinator::Done>(); }));
}

} // namespace quillbox

QTEST_MAIN(quillbox::CurrentCoordinatorTest)
#include "CurrentCoordinatorTest.moc"
