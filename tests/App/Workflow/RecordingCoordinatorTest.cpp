#include "App/Workflow/RecordingCoordinator.h"

#include "Capture/RecordingReducer.h"
#include "CoordinatorFixture.h"
#include "support/QtTests.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QMimeData>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>
#include <QThreadPool>
#include <QUrl>

#include <fstream>
#include <stdexcept>

namespace quillbox {
namespace {

using Coordinator = RecordingCoordinator;
using Fixture = test::CoordinatorFixture;
using test::gray;
using test::ScriptedRecorder;
using test::ScriptedSelector;
using test::someRegion;
using test::Step;
using test::take;

} // namespace

class RecordingCoordinatorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsIdleWithTheSlackPreset();
    void asksForARegionFirst();
    void returnsToIdleWhenTheSelectionIsCancelled();
    void returnsToIdleAtOnceWhereThereIsNoScreen();
    void beginsAgainAfterACancel();
    void saysWhyThereIsNothingToSelectFrom();
    void recordsTheRegionThatWasSelected();
    void staysSelectingUntilTheRecorderHasStarted();
    void failsWithTheReasonWhenTheRecorderDoesNotStart();
    void ignoresBeginOutsideIdle_data();
    void ignoresBeginOutsideIdle();
    void ignoresStopOutsideRecording_data();
    void ignoresStopOutsideRecording();
    void failsWithoutFramesAndWritesNothing();
    void savesTheClipInTheClipsFolder();
    void putsTheFileAndItsBytesOnTheClipboard();
    void recordsTheClipInTheHistoryWithTheCapturedSize();
    void namesTheLimitWhenAFrameIsTooLarge();
    void takesTheLargestSideThereCanBe();
    void saysWhyTheClipCannotBeSaved();
    void readsThePresetOnceWhenItStops();
    void readsThePresetBeforeTheRecorderHasStopped();
    void announcesEachPhaseBeforeAndAfterIt();
    void announcesEachPresetBeforeAndAfterIt();
    void putsThingsInOrderWhenDone();
    void theEventLoopTurnsWhileTheClipIsMade();
    void takesWhatWasLearntWhileRecording();
    void mayBeDestroyedDuringTheSelection();
    void mayBeDestroyedWhileTheRecorderStarts();
    void mayBeDestroyedWhileTheRecorderStops();
    void mayBeDestroyedWhileTheClipIsMade();
    void mayBeDestroyedByAnObserverOfProcessing();
    void makesItsOwnRecorderAndSelectorWhenGivenNone();
};

void RecordingCoordinatorTest::startsIdleWithTheSlackPreset()
{
    const Fixture fixture;
    QVERIFY(fixture.coordinator->isIn<Coordinator::Idle>());
    QVERIFY(fixture.coordinator->preset() == ExportPreset::slack);
}

void RecordingCoordinatorTest::asksForARegionFirst()
{
    const Fixture fixture;
    fixture.coordinator->beginFlow();
    QVERIFY(fixture.coordinator->isIn<Coordinator::SelectingRegion>());
    QCOMPARE(fixture.selector->presentations, 1);
    QCOMPARE(fixture.recorder->starts, 0);
}

void RecordingCoordinatorTest::returnsToIdleWhenTheSelectionIsCancelled()
{
    const Fixture fixture;
    fixture.coordinator->beginFlow();
    fixture.selector->select(RegionSelector::Cancelled{});
    QVERIFY(fixture.coordinator->isIn<Coordinator::Idle>());
    QCOMPARE(fixture.recorder->starts, 0);
}

void RecordingCoordinatorTest::returnsToIdleAtOnceWhereThereIsNoScreen()
{
    /// What the selector does without a screen: it has no region before it returns.
    struct ScreenlessSelector : RegionSelector {
        void present(Completion completion) override { completion(RegionSelector::Cancelled{}); }
    };
    const Fixture fixture;
    Coordinator coordinator(fixture.recorder, std::make_shared<ScreenlessSelector>(), fixture.history);
    std::vector<std::size_t> phases;
    connect(&coordinator, &Coordinator::phaseChanged, this, [&] { phases.push_back(coordinator.phase().index()); });
    coordinator.beginFlow();
    QCOMPARE(phases, (std::vector<std::size_t>{1, 0})); // selecting, idle
    QCOMPARE(fixture.recorder->starts, 0);
}

void RecordingCoordinatorTest::beginsAgainAfterACancel()
{
    Fixture fixture;
    fixture.coordinator->beginFlow();
    fixture.selector->select(RegionSelector::Cancelled{});
    fixture.recordARegion();
    QVERIFY(fixture.coordinator->isIn<Coordinator::Recording>());
}

void RecordingCoordinatorTest::saysWhyThereIsNothingToSelectFrom()
{
    const Fixture fixture;
    fixture.coordinator->beginFlow();
    fixture.selector->select(CaptureError(CaptureError::Reason::Unavailable, "no such luck"));
    QCOMPARE(fixture.failure(), QStringLiteral("Couldn't start recording: no such luck"));
    QCOMPARE(fixture.recorder->starts, 0);
}

void RecordingCoordinatorTest::recordsTheRegionThatWasSelected()
{
    Fixture fixture;
    fixture.recordARegion();
    QVERIFY(fixture.coordinator->isIn<Coordinator::Recording>());
    QVERIFY(fixture.recorder->region == someRegion);
}

void RecordingCoordinatorTest::staysSelectingUntilTheRecorderHasStarted()
{
    Fixture fixture;
    ScriptedRecorder::close(fixture.recorder->startGate);
    fixture.recordARegion();
    QVERIFY(fixture.coordinator->isIn<Coordinator::SelectingRegion>());
    fixture.recorder->startGate->finish();
    QVERIFY(test::eventually([&] { return fixture.coordinator->isIn<Coordinator::Recording>(); }));
}

void RecordingCoordinatorTest::failsWithTheReasonWhenTheRecorderDoesNotStart()
{
    Fixture fixture;
    fixture.recorder->startError = std::make_exception_ptr(std::runtime_error("denied"));
    fixture.recordARegion();
    QCOMPARE(fixture.failure(), QStringLiteral("Couldn't start recording: denied"));
}

void RecordingCoordinatorTest::ignoresBeginOutsideIdle_data()
{
    QTest::addColumn<Step>("step");
    QTest::newRow("selecting") << Step::Selecting;
    QTest::newRow("recording") << Step::Recording;
    QTest::newRow("processing") << Step::Processing;
    QTest::newRow("done") << Step::Done;
    QTest::newRow("failed") << Step::Failed;
}

void RecordingCoordinatorTest::ignoresBeginOutsideIdle()
{
    QFETCH(const Step, step);
    Fixture fixture;
    const auto taking = take(fixture, step);
    QVERIFY(test::eventually([&] { return taking.isReady() || step == Step::Processing; }));
    const auto before = fixture.coordinator->phase();
    const QSignalSpy spy(fixture.coordinator.get(), &Coordinator::phaseChanged);
    fixture.coordinator->beginFlow();
    QVERIFY(fixture.coordinator->phase() == before);
    QVERIFY(spy.isEmpty());
    QCOMPARE(fixture.selector->presentations, 1);
    if (step == Step::Processing)
        fixture.recorder->stopGate->finish();
    QVERIFY(test::eventually([&] { return taking.isReady(); }));
}

void RecordingCoordinatorTest::ignoresStopOutsideRecording_data()
{
    QTest::addColumn<Step>("step");
    QTest::newRow("idle") << Step::Idle;
    QTest::newRow("selecting") << Step::Selecting;
    QTest::newRow("processing") << Step::Processing;
    QTest::newRow("done") << Step::Done;
    QTest::newRow("failed") << Step::Failed;
}

void RecordingCoordinatorTest::ignoresStopOutsideRecording()
{
    QFETCH(const Step, step);
    Fixture fixture;
    const auto taking = take(fixture, step);
    QVERIFY(test::eventually([&] { return taking.isReady() || step == Step::Processing; }));
    const auto before = fixture.coordinator->phase();
    const int stops = fixture.recorder->stops;
    const QSignalSpy spy(fixture.coordinator.get(), &Coordinator::phaseChanged);
    test::await(fixture.coordinator->stopAndExport());
    QVERIFY(fixture.coordinator->phase() == before);
    QVERIFY(spy.isEmpty());
    QCOMPARE(fixture.recorder->stops, stops);
    if (step == Step::Processing)
        fixture.recorder->stopGate->finish();
    QVERIFY(test::eventually([&] { return taking.isReady(); }));
}

void RecordingCoordinatorTest::failsWithoutFramesAndWritesNothing()
{
    Fixture fixture;
    fixture.recorder->frames.clear();
    fixture.finish();
    QCOMPARE(fixture.failure(), QStringLiteral("No frames captured."));
    QVERIFY(!QFileInfo::exists(fixture.clips().path()));
    QVERIFY(fixture.history->entries().empty());
}

void RecordingCoordinatorTest::savesTheClipInTheClipsFolder()
{
    Fixture fixture;
    fixture.finish();
    const auto* const done = std::get_if<Coordinator::Done>(&fixture.coordinator->phase());
    QVERIFY2(done != nullptr, qPrintable(fixture.failure()));
    QCOMPARE(QFileInfo(done->path).dir(), fixture.clips());
    QCOMPARE(QFileInfo(done->path).size(), done->byteCount);
    QImageReader reader(done->path);
    QCOMPARE(reader.format(), QByteArray("gif"));
    QCOMPARE(reader.read().size(), QSize(8, 6));
}

void RecordingCoordinatorTest::putsTheFileAndItsBytesOnTheClipboard()
{
    Fixture fixture;
    QGuiApplication::clipboard()->setText(QStringLiteral("what was there"));
    fixture.finish();
    const auto done = std::get<Coordinator::Done>(fixture.coordinator->phase());
    QFile file(done.path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const auto* const content = QGuiApplication::clipboard()->mimeData();
    QCOMPARE(content->urls(), {QUrl::fromLocalFile(done.path)});
    QCOMPARE(content->data(QStringLiteral("image/gif")), file.readAll());
    QCOMPARE(content->formats(), QStringList({QStringLiteral("text/uri-list"), QStringLiteral("image/gif")}));
}

void RecordingCoordinatorTest::recordsTheClipInTheHistoryWithTheCapturedSize()
{
    Fixture fixture;
    fixture.recorder->frames = std::vector<RGBAFrame>(4, gray(1920, 1080));
    const auto before = QDateTime::currentDateTimeUtc();
    fixture.finish();
    const auto done = std::get<Coordinator::Done>(fixture.coordinator->phase());
    QCOMPARE(fixture.history->entries().size(), 1U);
    const auto& entry = fixture.history->entries().front();
    QCOMPARE(entry.format, QStringLiteral("GIF"));
    QCOMPARE(entry.preset, QStringLiteral("Slack"));
    QVERIFY(entry.outputPath == done.path);
    QVERIFY(entry.byteCount == done.byteCount);
    QVERIFY(entry.width == 1920);
    QVERIFY(entry.height == 1080);
    QVERIFY(entry.durationSeconds > 0);
    QVERIFY(entry.date >= before && entry.date <= QDateTime::currentDateTimeUtc());
    QCOMPARE(QImageReader(done.path).size().width(), 960);
}

void RecordingCoordinatorTest::namesTheLimitWhenAFrameIsTooLarge()
{
    Fixture fixture;
    fixture.recorder->frames = {gray(70000, 10)};
    fixture.finish();
    QCOMPARE(fixture.failure(), QStringLiteral("Region too large to encode (70000×10). Max is 65535 per side."));
    QVERIFY(!QFileInfo::exists(fixture.clips().path()));
}

void RecordingCoordinatorTest::takesTheLargestSideThereCanBe()
{
    Fixture fixture;
    fixture.recorder->frames = {gray(65535, 1)};
    fixture.finish();
    QVERIFY2(fixture.coordinator->isIn<Coordinator::Done>(), qPrintable(fixture.failure()));
}

void RecordingCoordinatorTest::saysWhyTheClipCannotBeSaved()
{
    Fixture fixture;
    std::ofstream((fixture.home() + "/Videos").toStdString()) << "a file in the way";
    fixture.finish();
    QVERIFY(fixture.failure().startsWith(QStringLiteral("Couldn't save clip: ")));
    QVERIFY2(fixture.failure().contains(fixture.home() + "/Videos/Quillbox: Not a directory"),
        qPrintable(fixture.failure()));
    QVERIFY(fixture.history->entries().empty());
}

void RecordingCoordinatorTest::readsThePresetOnceWhenItStops()
{
    Fixture fixture;
    fixture.coordinator->setPreset(ExportPreset::github);
    fixture.recordARegion();
    auto exporting = fixture.coordinator->stopAndExport();
    QVERIFY(fixture.coordinator->isIn<Coordinator::Processing>());
    fixture.coordinator->setPreset(ExportPreset::docs);
    test::await(std::move(exporting));
    QCOMPARE(fixture.history->entries().front().preset, QStringLiteral("GitHub"));
    QVERIFY(fixture.coordinator->preset() == ExportPreset::docs);
}

void RecordingCoordinatorTest::readsThePresetBeforeTheRecorderHasStopped()
{
    Fixture fixture;
    ScriptedRecorder::close(fixture.recorder->stopGate);
    fixture.recordARegion();
    auto exporting = fixture.coordinator->stopAndExport();
    fixture.coordinator->setPreset(ExportPreset::docs);
    fixture.recorder->stopGate->finish();
    test::await(std::move(exporting));
    QCOMPARE(fixture.history->entries().front().preset, QStringLiteral("Slack"));
    QVERIFY(fixture.coordinator->preset() == ExportPreset::docs);
}

void RecordingCoordinatorTest::announcesEachPhaseBeforeAndAfterIt()
{
    Fixture fixture;
    std::vector<std::size_t> announced;
    std::vector<std::size_t> reached;
    const auto* const coordinator = fixture.coordinator.get();
    connect(coordinator, &Coordinator::phaseAboutToChange, coordinator, [&](const Coordinator::Phase& next) {
        QVERIFY(next != coordinator->phase());
        announced.push_back(next.index());
    });
    connect(
        coordinator, &Coordinator::phaseChanged, coordinator, [&] { reached.push_back(coordinator->phase().index()); });
    fixture.finish();
    QCOMPARE(announced, (std::vector<std::size_t>{1, 2, 3, 4})); // selecting, recording, processing, done
    QCOMPARE(reached, announced);
}

void RecordingCoordinatorTest::announcesEachPresetBeforeAndAfterIt()
{
    const Fixture fixture;
    const auto* const coordinator = fixture.coordinator.get();
    QStringList seen;
    connect(coordinator, &Coordinator::presetAboutToChange, coordinator, [&](ExportPreset next) {
        seen << QString::fromUtf8(coordinator->preset().title().data()) << QString::fromUtf8(next.title().data());
    });
    connect(coordinator, &Coordinator::presetChanged, coordinator,
        [&] { seen << QString::fromUtf8(coordinator->preset().title().data()); });
    fixture.coordinator->setPreset(ExportPreset::docs);
    QCOMPARE(seen, QStringList({"Slack", "Docs", "Docs"}));
}

void RecordingCoordinatorTest::putsThingsInOrderWhenDone()
{
    Fixture fixture;
    QStringList order;
    QGuiApplication::clipboard()->clear();
    const QObject context;
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &context,
        [&] { order << QStringLiteral("clipboard"); });
    connect(
        fixture.history.get(), &HistoryStore::entriesChanged, &context, [&] { order << QStringLiteral("history"); });
    connect(fixture.coordinator.get(), &Coordinator::phaseChanged, &context, [&] {
        if (fixture.coordinator->isIn<Coordinator::Done>())
            order << QStringLiteral("done");
    });
    fixture.finish();
    QCOMPARE(order, QStringList({"clipboard", "history", "done"}));
}

void RecordingCoordinatorTest::theEventLoopTurnsWhileTheClipIsMade()
{
    Fixture fixture;
    fixture.recordARegion();
    bool turned = false;
    auto exporting = fixture.coordinator->stopAndExport();
    QMetaObject::invokeMethod(
        this, [&] { turned = fixture.coordinator->isIn<Coordinator::Processing>(); }, Qt::QueuedConnection);
    test::await(std::move(exporting));
    QVERIFY(turned);
}

void RecordingCoordinatorTest::takesWhatWasLearntWhileRecording()
{
    Fixture fixture;
    fixture.recorder->frames = {gray(8, 6), gray(8, 6)};
    fixture.recorder->learnt = std::make_shared<RecordingReducer>();
    fixture.recorder->learnt->follow({gray(16, 12), gray(16, 12)}); // of other frames, so that the file tells
    fixture.recordARegion();
    test::await(fixture.coordinator->stopAndExport());
    const QImageReader clip(std::get<Coordinator::Done>(fixture.coordinator->phase()).path);
    QCOMPARE(clip.size(), QSize(16, 12));
}

void RecordingCoordinatorTest::mayBeDestroyedDuringTheSelection()
{
    Fixture fixture;
    fixture.coordinator->beginFlow();
    fixture.coordinator.reset();
    fixture.selector->select(someRegion);
    QCOMPARE(fixture.recorder->starts, 0);
}

void RecordingCoordinatorTest::mayBeDestroyedWhileTheRecorderStarts()
{
    Fixture fixture;
    ScriptedRecorder::close(fixture.recorder->startGate);
    fixture.recordARegion();
    fixture.coordinator.reset();
    fixture.recorder->startGate->finish();
    QVERIFY(test::eventually([&] { return fixture.recorder->isRecording(); }));
}

void RecordingCoordinatorTest::mayBeDestroyedWhileTheRecorderStops()
{
    Fixture fixture;
    ScriptedRecorder::close(fixture.recorder->stopGate);
    fixture.recordARegion();
    auto exporting = fixture.coordinator->stopAndExport();
    fixture.coordinator.reset();
    fixture.recorder->stopGate->finish();
    test::await(std::move(exporting));
    QVERIFY(fixture.history->entries().empty());
}

void RecordingCoordinatorTest::mayBeDestroyedWhileTheClipIsMade()
{
    Fixture fixture;
    fixture.recordARegion();
    QGuiApplication::clipboard()->setText(QStringLiteral("what was there"));
    QSemaphore work; // else the clip may be done before anybody can look
    auto* const workers = QThreadPool::globalInstance();
    for (int i = 0; i < workers->maxThreadCount(); ++i)
        workers->start([&work] { work.acquire(); });
    auto exporting = fixture.coordinator->stopAndExport();
    fixture.coordinator.reset();
    work.release(workers->maxThreadCount());
    test::await(std::move(exporting));
    workers->waitForDone(); // one of them may not have seen the semaphore yet
    QVERIFY(fixture.history->entries().empty());
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("what was there"));
}

void RecordingCoordinatorTest::mayBeDestroyedByAnObserverOfProcessing()
{
    Fixture fixture;
    fixture.recordARegion();
    connect(fixture.coordinator.get(), &Coordinator::phaseChanged, this, [&] { fixture.coordinator.reset(); });
    test::await(fixture.coordinator->stopAndExport());
    QCOMPARE(fixture.recorder->stops, 0);
}

void RecordingCoordinatorTest::makesItsOwnRecorderAndSelectorWhenGivenNone()
{
    const Fixture fixture;
    const Coordinator own(nullptr, nullptr, fixture.history);
    QVERIFY(own.recorder() != nullptr);
    QVERIFY(!own.recorder()->isRecording());
    QVERIFY(own.selector() != nullptr);
}

namespace {
const test::Registration<RecordingCoordinatorTest> registeredRecordingCoordinatorTest("RecordingCoordinator");
} // namespace

} // namespace quillbox

#include "RecordingCoordinatorTest.moc"
