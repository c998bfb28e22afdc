#include "App/Workflow/CurrentCoordinator.h"

#include "CoordinatorStudio.h"

#include <QSignalSpy>
#include <QTest>

namespace quillbox {
namespace {

using Coordinator = RecordingCoordinator;
using test::someRegion;
using Studio = test::CoordinatorStudio;

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
    Studio studio;
    auto& first = *studio.coordinator;
    CurrentCoordinator current(std::move(studio.coordinator));
    current.begin();
    studio.selector->select(someRegion);
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
    Studio studio;
    studio.recorder->startError = std::make_exception_ptr(std::runtime_error("no"));
    CurrentCoordinator current(std::move(studio.coordinator));
    current.get().setPreset(ExportPreset::docs);
    current.begin();
    studio.selector->select(someRegion);
    QVERIFY(current.get().isIn<Coordinator::Failed>());
    current.begin();
    QVERIFY(current.get().preset() == ExportPreset::docs);
    QCOMPARE(current.get().recorder(), studio.recorder);
    QCOMPARE(current.get().selector(), studio.selector);
    QCOMPARE(current.get().history(), studio.history);
}

void CurrentCoordinatorTest::theOldCoordinatorGoes()
{
    Studio studio;
    studio.recorder->startError = std::make_exception_ptr(std::runtime_error("no"));
    const QPointer old(studio.coordinator.get());
    CurrentCoordinator current(std::move(studio.coordinator));
    current.begin();
    studio.selector->select(someRegion);
    current.begin();
    QVERIFY(test::eventually([&] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return old.isNull();
    }));
}

void CurrentCoordinatorTest::toggleBeginsAndStops()
{
    Studio studio;
    CurrentCoordinator current(std::move(studio.coordinator));
    current.toggle();
    QVERIFY(current.get().isIn<Coordinator::SelectingRegion>());
    current.toggle(); // nothing to stop, and nothing to begin
    QCOMPARE(studio.selector->presentations, 1);
    studio.selector->select(someRegion);
    current.toggle();
    QVERIFY(test::eventually([&] { return current.get().isIn<Coordinator::Done>(); }));
}

void CurrentCoordinatorTest::passesTheProgressOn()
{
    Studio studio;
    CurrentCoordinator current(std::move(studio.coordinator));
    std::optional<ExportProgress> progress;
    connect(&current, &CurrentCoordinator::progressChanged, this, [&] { progress = current.get().progress(); });
    current.begin();
    studio.selector->select(someRegion);
    current.stop();
    QVERIFY(test::eventually([&] { return current.get().isIn<Coordinator::Done>(); }));
    QVERIFY(progress.has_value());
    QCOMPARE(progress->fraction(), 0.5); // the first attempt was good
}

void CurrentCoordinatorTest::passesTheWishToFinishOn()
{
    Studio studio;
    CurrentCoordinator current(std::move(studio.coordinator));
    const QSignalSpy spy(&current, &CurrentCoordinator::progressChanged);
    test::ScriptedRecorder::close(studio.recorder->stopGate); // or the clip may be done at once
    current.begin();
    studio.selector->select(someRegion);
    current.stop();
    current.finishNow();
    QVERIFY(current.get().isFinishing());
    QCOMPARE(spy.size(), 1);
    studio.recorder->stopGate->finish();
    QVERIFY(test::eventually([&] { return current.get().isIn<Coordinator::Done>(); }));
}

} // namespace quillbox

QTEST_MAIN(quillbox::CurrentCoordinatorTest)
#include "CurrentCoordinatorTest.moc"
