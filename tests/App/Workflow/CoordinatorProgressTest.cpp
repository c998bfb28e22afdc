#include "App/Workflow/RecordingCoordinator.h"

#include "App/Workflow/ClipExport.h"
#include "CoordinatorFixture.h"
#include "support/HardClip.h"
#include "support/QtTests.h"

#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <stop_token>
#include <vector>

namespace quillbox {
namespace {

using Coordinator = RecordingCoordinator;
using Fixture = test::CoordinatorFixture;
using test::ScriptedRecorder;
using test::Step;
using test::take;

/// The size of the first file that the encoder makes of the hard clip.
std::int64_t sizeOfTheFirstAttempt()
{
    std::stop_source stop;
    stop.request_stop();
    return ClipExport::encode(Recording(support::hardClip()), ExportPreset::slack,
        {.parallelism = {}, .progress = {}, .finishNow = stop.get_token()})
        .byteCount;
}

} // namespace

class CoordinatorProgressTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isPublishedWhileTheClipIsMade();
    void isThereOnlyWhileProcessing();
    void goesOnToTheEndWhenToldToFinish();
    void mayBeToldToFinishBeforeTheFramesAreThere();
    void ignoresFinishNowOutsideProcessing_data();
    void ignoresFinishNowOutsideProcessing();
    void mayBeDestroyedByAnObserver();
};

void CoordinatorProgressTest::isPublishedWhileTheClipIsMade()
{
    Fixture fixture;
    fixture.recorder->frames = support::hardClip();
    const auto* const coordinator = fixture.coordinator.get();
    std::vector<double> fractions;
    bool alwaysProcessing = true;
    connect(coordinator, &Coordinator::progressChanged, this, [&] {
        fractions.push_back(coordinator->progress().value().fraction());
        alwaysProcessing = alwaysProcessing && coordinator->isIn<Coordinator::Processing>();
    });
    fixture.finish();
    QVERIFY(!fractions.empty());
    QVERIFY(std::is_sorted(fractions.begin(), fractions.end()));
    QVERIFY(fractions.back() > 15.0 / 16); // past the fifth attempt
    QVERIFY(alwaysProcessing);
}

void CoordinatorProgressTest::isThereOnlyWhileProcessing()
{
    Fixture fixture;
    QVERIFY(!fixture.coordinator->progress());
    fixture.recordARegion();
    QVERIFY(!fixture.coordinator->progress());
    connect(fixture.coordinator.get(), &Coordinator::phaseChanged, this, [&] {
        QVERIFY(!fixture.coordinator->progress()); // none yet, or none any more
    });
    test::await(fixture.coordinator->stopAndExport());
    QVERIFY(fixture.coordinator->isIn<Coordinator::Done>());
}

void CoordinatorProgressTest::goesOnToTheEndWhenToldToFinish()
{
    Fixture fixture;
    ScriptedRecorder::close(fixture.recorder->stopGate); // or the clip may be done at once
    fixture.recordARegion();
    auto exporting = fixture.coordinator->stopAndExport();
    const QSignalSpy phases(fixture.coordinator.get(), &Coordinator::phaseChanged);
    fixture.coordinator->finishNow();
    QVERIFY(fixture.coordinator->isFinishing());
    fixture.recorder->stopGate->finish();
    test::await(std::move(exporting));
    QCOMPARE(phases.size(), 1);
    const auto done = std::get<Coordinator::Done>(fixture.coordinator->phase());
    QCOMPARE(QFileInfo(done.path).size(), done.byteCount);
    QVERIFY(fixture.history->entries().front().byteCount == done.byteCount);
    QVERIFY(!fixture.coordinator->isFinishing());
}

void CoordinatorProgressTest::mayBeToldToFinishBeforeTheFramesAreThere()
{
    Fixture fixture;
    fixture.recorder->frames = support::hardClip();
    ScriptedRecorder::close(fixture.recorder->stopGate);
    fixture.recordARegion();
    auto exporting = fixture.coordinator->stopAndExport();
    fixture.coordinator->finishNow();
    QVERIFY(fixture.coordinator->isIn<Coordinator::Processing>());
    fixture.recorder->stopGate->finish();
    test::await(std::move(exporting));
    QVERIFY(std::get<Coordinator::Done>(fixture.coordinator->phase()).byteCount == sizeOfTheFirstAttempt());
}

void CoordinatorProgressTest::ignoresFinishNowOutsideProcessing_data()
{
    QTest::addColumn<Step>("step");
    QTest::newRow("idle") << Step::Idle;
    QTest::newRow("selecting") << Step::Selecting;
    QTest::newRow("recording") << Step::Recording;
    QTest::newRow("done") << Step::Done;
    QTest::newRow("failed") << Step::Failed;
}

void CoordinatorProgressTest::ignoresFinishNowOutsideProcessing()
{
    QFETCH(const Step, step);
    Fixture fixture;
    test::await(take(fixture, step));
    const auto before = fixture.coordinator->phase();
    const QSignalSpy phases(fixture.coordinator.get(), &Coordinator::phaseChanged);
    const QSignalSpy changes(fixture.coordinator.get(), &Coordinator::progressChanged);
    fixture.coordinator->finishNow();
    QVERIFY(fixture.coordinator->phase() == before);
    QVERIFY(phases.isEmpty());
    QVERIFY(changes.isEmpty());
    QVERIFY(!fixture.coordinator->isFinishing());
    if (step == Step::Recording) { // and nothing of it is left for later
        const auto exporting = fixture.coordinator->stopAndExport();
        QVERIFY(!fixture.coordinator->isFinishing());
        QVERIFY(test::eventually([&] { return exporting.isReady(); }));
    }
}

void CoordinatorProgressTest::mayBeDestroyedByAnObserver()
{
    Fixture fixture;
    fixture.recordARegion();
    connect(fixture.coordinator.get(), &Coordinator::progressChanged, this, [&] { fixture.coordinator.reset(); });
    test::await(fixture.coordinator->stopAndExport());
    QVERIFY(!fixture.coordinator);
    QVERIFY(fixture.history->entries().empty());
}

namespace {
const test::Registration<CoordinatorProgressTest> registeredCoordinatorProgressTest("CoordinatorProgress");
} // namespace

} // namespace quillbox

#include "CoordinatorProgressTest.moc"
