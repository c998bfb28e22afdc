#include "App/Workflow/CurrentCoordinator.h"

#include "CoordinatorFixture.h"
#include "support/BusyWorkers.h"
#include "support/QtTests.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <optional>
#include <utility>

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
    void makesAgainWhatWasRecorded();
    void beginsNothingWhileAFurtherClipIsMade();
    void beginsAfreshAfterAFurtherClip();
    void makesAgainAlsoAfterACancelledSelection();
    void forgetsTheRecordingWhenTheNextOneRuns();
    void offersToTryAgainWhatCouldNotBeSaved();
    void offersNothingWhereNothingWasRecorded();
    void offersNothingAfterAStartThatFailed();
    void keepsEveryChangeFromNowOn();
    void keepsEveryChangeInOneClip();
    void keepsEveryChangeOfARunningRecordingToo();

private:
    static void record(CurrentCoordinator& current, Fixture& fixture)
    {
        current.begin();
        fixture.selector->select(someRegion);
        QVERIFY(current.isIn<Coordinator::Recording>());
    }
    static void finish(CurrentCoordinator& current)
    {
        current.stop();
        QVERIFY(test::eventually([&] { return !current.isBusy(); }));
    }
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

void CurrentCoordinatorTest::makesAgainWhatWasRecorded()
{
    Fixture fixture;
    fixture.recorder->frames = test::smallChanges(20);
    CurrentCoordinator current(std::move(fixture.coordinator));
    QVERIFY(!current.canMakeAgain());
    record(current, fixture);
    QVERIFY(!current.canMakeAgain());
    finish(current);
    const auto first = *current.finishedClip();
    QVERIFY(first.lacksPictures());
    QVERIFY(current.latestRequest() == (ClipRequest{.preset = ExportPreset::slack}));
    const QSignalSpy phases(&current, &CurrentCoordinator::phaseChanged);
    {
        const support::BusyWorkers workers;
        current.makeAgain({.preset = ExportPreset::slack, .isPrecise = true});
        QVERIFY(current.isIn<Coordinator::Processing>());
        QVERIFY(current.isBusy());
        QVERIFY(current.finishedClip() == nullptr);
    }
    QVERIFY(test::eventually([&] { return current.isIn<Coordinator::Done>(); }));
    QCOMPARE(phases.size(), 2);
    QCOMPARE(current.finishedClip()->shownPictures, 20);
    QVERIFY(std::get<Coordinator::Done>(current.phase()).path != first.path);
    QCOMPARE(fixture.history->entries().size(), 2U);
    QVERIFY(std::get<Coordinator::Done>(current.get().phase()).path == first.path); // it stays ended
}

void CurrentCoordinatorTest::beginsNothingWhileAFurtherClipIsMade()
{
    Fixture fixture;
    CurrentCoordinator current(std::move(fixture.coordinator));
    record(current, fixture);
    finish(current);
    auto workers = std::make_unique<support::BusyWorkers>();
    current.makeAgain(current.latestRequest());
    current.toggle();
    QCOMPARE(fixture.selector->presentations, 1);
    const QSignalSpy progress(&current, &CurrentCoordinator::progressChanged);
    current.finishNow();
    QVERIFY(current.isFinishing());
    QCOMPARE(progress.size(), 1);
    workers.reset();
    QVERIFY(test::eventually([&] { return current.isIn<Coordinator::Done>(); }));
}

void CurrentCoordinatorTest::beginsAfreshAfterAFurtherClip()
{
    Fixture fixture;
    CurrentCoordinator current(std::move(fixture.coordinator));
    const auto* const first = &current.get();
    record(current, fixture);
    finish(current);
    current.makeAgain(current.latestRequest());
    QVERIFY(test::eventually([&] { return !current.isBusy(); }));
    current.begin();
    QVERIFY(&current.get() != first);
    QVERIFY(current.isIn<Coordinator::SelectingRegion>());
}

void CurrentCoordinatorTest::makesAgainAlsoAfterACancelledSelection()
{
    Fixture fixture;
    CurrentCoordinator current(std::move(fixture.coordinator));
    record(current, fixture);
    finish(current);
    current.begin();
    QVERIFY(!current.canMakeAgain());
    fixture.selector->select(RegionSelector::Cancelled{});
    QVERIFY(current.isIn<Coordinator::Idle>());
    current.makeAgain(current.latestRequest());
    QVERIFY(test::eventually([&] { return current.isIn<Coordinator::Done>(); }));
    QCOMPARE(fixture.history->entries().size(), 2U);
    current.begin();
    QVERIFY(current.isIn<Coordinator::SelectingRegion>());
}

void CurrentCoordinatorTest::forgetsTheRecordingWhenTheNextOneRuns()
{
    Fixture fixture;
    CurrentCoordinator current(std::move(fixture.coordinator));
    record(current, fixture);
    finish(current);
    fixture.recorder->frames.clear();
    record(current, fixture);
    finish(current);
    QVERIFY(current.isIn<Coordinator::Failed>());
    QVERIFY(!current.canMakeAgain());
}

void CurrentCoordinatorTest::offersToTryAgainWhatCouldNotBeSaved()
{
    Fixture fixture;
    fixture.blockClips();
    CurrentCoordinator current(std::move(fixture.coordinator));
    record(current, fixture);
    finish(current);
    QVERIFY(current.isIn<Coordinator::Failed>());
    QVERIFY(current.canTryAgain());
    {
        const support::BusyWorkers workers;
        current.makeAgain(current.latestRequest());
        QVERIFY(!current.canTryAgain()); // while it tries
    }
    QVERIFY(test::eventually([&] { return !current.isBusy(); }));
    QVERIFY(current.canTryAgain());
    fixture.unblockClips();
    current.makeAgain(current.latestRequest());
    QVERIFY(test::eventually([&] { return !current.isBusy(); }));
    QVERIFY(current.isIn<Coordinator::Done>());
    QVERIFY(!current.canTryAgain());
    QCOMPARE(fixture.history->entries().size(), 1U);
}

void CurrentCoordinatorTest::offersNothingWhereNothingWasRecorded()
{
    Fixture fixture;
    fixture.recorder->frames.clear();
    CurrentCoordinator current(std::move(fixture.coordinator));
    record(current, fixture);
    finish(current);
    QVERIFY(current.isIn<Coordinator::Failed>());
    QVERIFY(!current.canTryAgain());
    QVERIFY(!current.canMakeAgain());
}

void CurrentCoordinatorTest::offersNothingAfterAStartThatFailed()
{
    Fixture fixture;
    fixture.blockClips();
    CurrentCoordinator current(std::move(fixture.coordinator));
    record(current, fixture);
    finish(current);
    fixture.recorder->startError = std::make_exception_ptr(std::runtime_error("no"));
    current.begin();
    fixture.selector->select(someRegion);
    QVERIFY(current.isIn<Coordinator::Failed>());
    QVERIFY(!current.canTryAgain()); // it is not what failed
    QVERIFY(current.canMakeAgain()); // but still there
}

void CurrentCoordinatorTest::keepsEveryChangeFromNowOn()
{
    Fixture fixture;
    CurrentCoordinator current(std::move(fixture.coordinator));
    const QSignalSpy changes(&current, &CurrentCoordinator::keepsEveryChangeChanged);
    QVERIFY(!current.keepsEveryChange());
    current.setKeepsEveryChange(true);
    current.setKeepsEveryChange(true);
    QCOMPARE(changes.size(), 1);
    for (int clips = 0; clips < 2; ++clips) {
        record(current, fixture);
        finish(current);
        QVERIFY(current.finishedClip()->request.isPrecise);
    }
    current.setKeepsEveryChange(false);
    record(current, fixture);
    finish(current);
    QVERIFY(!current.finishedClip()->request.isPrecise);
}

void CurrentCoordinatorTest::keepsEveryChangeInOneClip()
{
    Fixture fixture;
    CurrentCoordinator current(std::move(fixture.coordinator));
    current.begin(CurrentCoordinator::Precision::Precise);
    current.begin(); // ignored
    fixture.selector->select(someRegion);
    finish(current);
    QVERIFY(current.finishedClip()->request.isPrecise);
    QVERIFY(!current.keepsEveryChange());
    record(current, fixture);
    finish(current);
    QVERIFY(!current.finishedClip()->request.isPrecise);
    current.begin(CurrentCoordinator::Precision::Precise);
    fixture.selector->select(RegionSelector::Cancelled{});
    record(current, fixture);
    finish(current);
    QVERIFY(!current.finishedClip()->request.isPrecise);
}

void CurrentCoordinatorTest::keepsEveryChangeOfARunningRecordingToo()
{
    Fixture fixture;
    CurrentCoordinator current(std::move(fixture.coordinator));
    record(current, fixture);
    current.setKeepsEveryChange(true);
    finish(current);
    QVERIFY(current.finishedClip()->request.isPrecise);
}

namespace {
const test::Registration<CurrentCoordinatorTest> registeredCurrentCoordinatorTest("CurrentCoordinator");
} // namespace

} // namespace quillbox

#include "CurrentCoordinatorTest.moc"
