#include "App/Workflow/RecordingCoordinator.h"

#include "App/Workflow/ClipExport.h"
#include "CoordinatorStudio.h"
#include "support/HardClip.h"

#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <stop_token>
#include <vector>

namespace quillbox {
namespace {

using Coordinator = RecordingCoordinator;
using Studio = test::CoordinatorStudio;
using test::ScriptedRecorder;
using test::Step;
using test::take;

/// The size of the first file that the encoder makes of the hard clip.
std::int64_t sizeOfTheFirstAttempt()
{
    std::stop_source stop;
    stop.request_stop();
    return ClipExport::encode({.frames = support::hardClip()}, ExportPreset::slack,
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
    Studio studio;
    studio.recorder->frames = support::hardClip();
    const auto* const coordinator = studio.coordinator.get();
    std::vector<double> fractions;
    bool alwaysProcessing = true;
    connect(coordinator, &Coordinator::progressChanged, this, [&] {
        fractions.push_back(coordinator->progress().value().fraction());
        alwaysProcessing = alwaysProcessing && coordinator->isIn<Coordinator::Processing>();
    });
    studio.finish();
    QVERIFY(!fractions.empty());
    QVERIFY(std::is_sorted(fractions.begin(), fractions.end()));
    QVERIFY(fractions.back() > 15.0 / 16); // past the fifth attempt
    QVERIFY(alwaysProcessing);
}

void CoordinatorProgressTest::isThereOnlyWhileProcessing()
{
    Studio studio;
    QVERIFY(!studio.coordinator->progress());
    studio.recordARegion();
    QVERIFY(!studio.coordinator->progress());
    connect(studio.coordinator.get(), &Coordinator::phaseChanged, this, [&] {
        QVERIFY(!studio.coordinator->progress()); // none yet, or none any more
    });
    test::await(studio.coordinator->stopAndExport());
    QVERIFY(studio.coordinator->isIn<Coordinator::Done>());
}

void CoordinatorProgressTest::goesOnToTheEndWhenToldToFinish()
{
    Studio studio;
    ScriptedRecorder::close(studio.recorder->stopGate); // or the clip may be done at once
    studio.recordARegion();
    auto exporting = studio.coordinator->stopAndExport();
    const QSignalSpy phases(studio.coordinator.get(), &Coordinator::phaseChanged);
    studio.coordinator->finishNow();
    QVERIFY(studio.coordinator->isFinishing());
    studio.recorder->stopGate->finish();
    test::await(std::move(exporting));
    QCOMPARE(phases.size(), 1);
    const auto done = std::get<Coordinator::Done>(studio.coordinator->phase());
    QCOMPARE(QFileInfo(done.path).size(), done.byteCount);
    QVERIFY(studio.history->entries().front().byteCount == done.byteCount);
    QVERIFY(!studio.coordinator->isFinishing());
}

void CoordinatorProgressTest::mayBeToldToFinishBeforeTheFramesAreThere()
{
    Studio studio;
    studio.recorder->frames = support::hardClip();
    ScriptedRecorder::close(studio.recorder->stopGate);
    studio.recordARegion();
    auto exporting = studio.coordinator->stopAndExport();
    studio.coordinator->finishNow();
    QVERIFY(studio.coordinator->isIn<Coordinator::Processing>());
    studio.recorder->stopGate->finish();
    test::await(std::move(exporting));
    QVERIFY(std::get<Coordinator::Done>(studio.coordinator->phase()).byteCount == sizeOfTheFirstAttempt());
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
    Studio studio;
    test::await(take(studio, step));
    const auto before = studio.coordinator->phase();
    const QSignalSpy phases(studio.coordinator.get(), &Coordinator::phaseChanged);
    const QSignalSpy changes(studio.coordinator.get(), &Coordinator::progressChanged);
    studio.coordinator->finishNow();
    QVERIFY(studio.coordinator->phase() == before);
    QVERIFY(phases.isEmpty());
    QVERIFY(changes.isEmpty());
    QVERIFY(!studio.coordinator->isFinishing());
    if (step == Step::Recording) { // and nothing of it is left for later
        const auto exporting = studio.coordinator->stopAndExport();
        QVERIFY(!studio.coordinator->isFinishing());
        QVERIFY(test::eventually([&] { return exporting.isReady(); }));
    }
}

void CoordinatorProgressTest::mayBeDestroyedByAnObserver()
{
    Studio studio;
    studio.recordARegion();
    connect(studio.coordinator.get(), &Coordinator::progressChanged, this, [&] { studio.coordinator.reset(); });
    test::await(studio.coordinator->stopAndExport());
    QVERIFY(!studio.coordinator);
    QVERIFY(studio.history->entries().empty());
}

} // namespace quillbox

QTEST_MAIN(quillbox::CoordinatorProgressTest)
#include "CoordinatorProgressTest.moc"
