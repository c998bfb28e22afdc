#include "App/Workflow/RecordingCoordinator.h"

#include "Capture/RecordingReducer.h"
#include "CoordinatorStudio.h"

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
using Studio = test::CoordinatorStudio;
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
    void beginsAgainAfterACancel();
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
    const Studio studio;
    QVERIFY(studio.coordinator->isIn<Coordinator::Idle>());
    QVERIFY(studio.coordinator->preset() == ExportPreset::slack);
}

void RecordingCoordinatorTest::asksForARegionFirst()
{
    const Studio studio;
    studio.coordinator->beginFlow();
    QVERIFY(studio.coordinator->isIn<Coordinator::SelectingRegion>());
    QCOMPARE(studio.selector->presentations, 1);
    QCOMPARE(studio.recorder->starts, 0);
}

void RecordingCoordinatorTest::returnsToIdleWhenTheSelectionIsCancelled()
{
    const Studio studio;
    studio.coordinator->beginFlow();
    studio.selector->select(std::nullopt);
    QVERIFY(studio.coordinator->isIn<Coordinator::Idle>());
    QCOMPARE(studio.recorder->starts, 0);
}

void RecordingCoordinatorTest::beginsAgainAfterACancel()
{
    Studio studio;
    studio.coordinator->beginFlow();
    studio.selector->select(std::nullopt);
    studio.recordARegion();
    QVERIFY(studio.coordinator->isIn<Coordinator::Recording>());
}

void RecordingCoordinatorTest::recordsTheRegionThatWasSelected()
{
    Studio studio;
    studio.recordARegion();
    QVERIFY(studio.coordinator->isIn<Coordinator::Recording>());
    QVERIFY(studio.recorder->region == someRegion);
}

void RecordingCoordinatorTest::staysSelectingUntilTheRecorderHasStarted()
{
    Studio studio;
    ScriptedRecorder::close(studio.recorder->startGate);
    studio.recordARegion();
    QVERIFY(studio.coordinator->isIn<Coordinator::SelectingRegion>());
    studio.recorder->startGate->finish();
    QVERIFY(test::eventually([&] { return studio.coordinator->isIn<Coordinator::Recording>(); }));
}

void RecordingCoordinatorTest::failsWithTheReasonWhenTheRecorderDoesNotStart()
{
    Studio studio;
    studio.recorder->startError = std::make_exception_ptr(std::runtime_error("denied"));
    studio.recordARegion();
    QCOMPARE(studio.failure(), QStringLiteral("Couldn't start recording: denied"));
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
    Studio studio;
    const auto taking = take(studio, step);
    QVERIFY(test::eventually([&] { return taking.isReady() || step == Step::Processing; }));
    const auto before = studio.coordinator->phase();
    const QSignalSpy spy(studio.coordinator.get(), &Coordinator::phaseChanged);
    studio.coordinator->beginFlow();
    QVERIFY(studio.coordinator->phase() == before);
    QVERIFY(spy.isEmpty());
    QCOMPARE(studio.selector->presentations, 1);
    if (step == Step::Processing)
        studio.recorder->stopGate->finish();
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
    Studio studio;
    const auto taking = take(studio, step);
    QVERIFY(test::eventually([&] { return taking.isReady() || step == Step::Processing; }));
    const auto before = studio.coordinator->phase();
    const int stops = studio.recorder->stops;
    const QSignalSpy spy(studio.coordinator.get(), &Coordinator::phaseChanged);
    test::await(studio.coordinator->stopAndExport());
    QVERIFY(studio.coordinator->phase() == before);
    QVERIFY(spy.isEmpty());
    QCOMPARE(studio.recorder->stops, stops);
    if (step == Step::Processing)
        studio.recorder->stopGate->finish();
    QVERIFY(test::eventually([&] { return taking.isReady(); }));
}

void RecordingCoordinatorTest::failsWithoutFramesAndWritesNothing()
{
    Studio studio;
    studio.recorder->frames.clear();
    studio.finish();
    QCOMPARE(studio.failure(), QStringLiteral("No frames captured."));
    QVERIFY(!QFileInfo::exists(studio.clips().path()));
    QVERIFY(studio.history->entries().empty());
}

void RecordingCoordinatorTest::savesTheClipInTheClipsFolder()
{
    Studio studio;
    studio.finish();
    const auto* const done = std::get_if<Coordinator::Done>(&studio.coordinator->phase());
    QVERIFY2(done != nullptr, qPrintable(studio.failure()));
    QCOMPARE(QFileInfo(done->path).dir(), studio.clips());
    QCOMPARE(QFileInfo(done->path).size(), done->byteCount);
    QImageReader reader(done->path);
    QCOMPARE(reader.format(), QByteArray("gif"));
    QCOMPARE(reader.read().size(), QSize(8, 6));
}

void RecordingCoordinatorTest::putsTheFileAndItsBytesOnTheClipboard()
{
    Studio studio;
    QGuiApplication::clipboard()->setText(QStringLiteral("what was there"));
    studio.finish();
    const auto done = std::get<Coordinator::Done>(studio.coordinator->phase());
    QFile file(done.path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const auto* const content = QGuiApplication::clipboard()->mimeData();
    QCOMPARE(content->urls(), {QUrl::fromLocalFile(done.path)});
    QCOMPARE(content->data(QStringLiteral("image/gif")), file.readAll());
    QCOMPARE(content->formats(), QStringList({QStringLiteral("text/uri-list"), QStringLiteral("image/gif")}));
}

void RecordingCoordinatorTest::recordsTheClipInTheHistoryWithTheCapturedSize()
{
    Studio studio;
    studio.recorder->frames = std::vector<RGBAFrame>(4, gray(1920, 1080));
    const auto before = QDateTime::currentDateTimeUtc();
    studio.finish();
    const auto done = std::get<Coordinator::Done>(studio.coordinator->phase());
    QCOMPARE(studio.history->entries().size(), 1U);
    const auto& entry = studio.history->entries().front();
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
    Studio studio;
    studio.recorder->frames = {gray(70000, 10)};
    studio.finish();
    QCOMPARE(studio.failure(), QStringLiteral("Region too large to encode (70000×10). Max is 65535 per side."));
    QVERIFY(!QFileInfo::exists(studio.clips().path()));
}

void RecordingCoordinatorTest::takesTheLargestSideThereCanBe()
{
    Studio studio;
    studio.recorder->frames = {gray(65535, 1)};
    studio.finish();
    QVERIFY2(studio.coordinator->isIn<Coordinator::Done>(), qPrintable(studio.failure()));
}

void RecordingCoordinatorTest::saysWhyTheClipCannotBeSaved()
{
    Studio studio;
    std::ofstream((studio.home() + "/Videos").toStdString()) << "a file in the way";
    studio.finish();
    QVERIFY(studio.failure().startsWith(QStringLiteral("Couldn't save clip: ")));
    QVERIFY2(
        studio.failure().contains(studio.home() + "/Videos/Quillbox: Not a directory"), qPrintable(studio.failure()));
    QVERIFY(studio.history->entries().empty());
}

void RecordingCoordinatorTest::readsThePresetOnceWhenItStops()
{
    Studio studio;
    studio.coordinator->setPreset(ExportPreset::github);
    studio.recordARegion();
    auto exporting = studio.coordinator->stopAndExport();
    QVERIFY(studio.coordinator->isIn<Coordinator::Processing>());
    studio.coordinator->setPreset(ExportPreset::docs);
    test::await(std::move(exporting));
    QCOMPARE(studio.history->entries().front().preset, QStringLiteral("GitHub"));
    QVERIFY(studio.coordinator->preset() == ExportPreset::docs);
}

void RecordingCoordinatorTest::announcesEachPhaseBeforeAndAfterIt()
{
    Studio studio;
    std::vector<std::size_t> announced;
    std::vector<std::size_t> reached;
    const auto* const coordinator = studio.coordinator.get();
    connect(coordinator, &Coordinator::phaseAboutToChange, coordinator, [&](const Coordinator::Phase& next) {
        QVERIFY(next != coordinator->phase());
        announced.push_back(next.index());
    });
    connect(
        coordinator, &Coordinator::phaseChanged, coordinator, [&] { reached.push_back(coordinator->phase().index()); });
    studio.finish();
    QCOMPARE(announced, (std::vector<std::size_t>{1, 2, 3, 4})); // selecting, recording, processing, done
    QCOMPARE(reached, announced);
}

void RecordingCoordinatorTest::announcesEachPresetBeforeAndAfterIt()
{
    const Studio studio;
    const auto* const coordinator = studio.coordinator.get();
    QStringList seen;
    connect(coordinator, &Coordinator::presetAboutToChange, coordinator, [&](ExportPreset next) {
        seen << QString::fromUtf8(coordinator->preset().title().data()) << QString::fromUtf8(next.title().data());
    });
    connect(coordinator, &Coordinator::presetChanged, coordinator,
        [&] { seen << QString::fromUtf8(coordinator->preset().title().data()); });
    studio.coordinator->setPreset(ExportPreset::docs);
    QCOMPARE(seen, QStringList({"Slack", "Docs", "Docs"}));
}

void RecordingCoordinatorTest::putsThingsInOrderWhenDone()
{
    Studio studio;
    QStringList order;
    QGuiApplication::clipboard()->clear();
    const QObject context;
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &context,
        [&] { order << QStringLiteral("clipboard"); });
    connect(studio.history.get(), &HistoryStore::entriesChanged, &context, [&] { order << QStringLiteral("history"); });
    connect(studio.coordinator.get(), &Coordinator::phaseChanged, &context, [&] {
        if (studio.coordinator->isIn<Coordinator::Done>())
            order << QStringLiteral("done");
    });
    studio.finish();
    QCOMPARE(order, QStringList({"clipboard", "history", "done"}));
}

void RecordingCoordinatorTest::theEventLoopTurnsWhileTheClipIsMade()
{
    Studio studio;
    studio.recordARegion();
    bool turned = false;
    auto exporting = studio.coordinator->stopAndExport();
    QMetaObject::invokeMethod(
        this, [&] { turned = studio.coordinator->isIn<Coordinator::Processing>(); }, Qt::QueuedConnection);
    test::await(std::move(exporting));
    QVERIFY(turned);
}

void RecordingCoordinatorTest::takesWhatWasLearntWhileRecording()
{
    Studio studio;
    studio.recorder->frames = {gray(8, 6), gray(8, 6)};
    studio.recorder->learnt
        = std::make_shared<RecordingReducer>(FrameSpill(FrameSpill::usualLimits(), FrameSpill::usualFolder()));
    studio.recorder->learnt->follow({gray(16, 12), gray(16, 12)}); // of other frames, so that the file tells
    studio.recordARegion();
    test::await(studio.coordinator->stopAndExport());
    const QImageReader clip(std::get<Coordinator::Done>(studio.coordinator->phase()).path);
    QCOMPARE(clip.size(), QSize(16, 12));
}

void RecordingCoordinatorTest::mayBeDestroyedDuringTheSelection()
{
    Studio studio;
    studio.coordinator->beginFlow();
    studio.coordinator.reset();
    studio.selector->select(someRegion);
    QCOMPARE(studio.recorder->starts, 0);
}

void RecordingCoordinatorTest::mayBeDestroyedWhileTheRecorderStarts()
{
    Studio studio;
    ScriptedRecorder::close(studio.recorder->startGate);
    studio.recordARegion();
    studio.coordinator.reset();
    studio.recorder->startGate->finish();
    QVERIFY(test::eventually([&] { return studio.recorder->isRecording(); }));
}

void RecordingCoordinatorTest::mayBeDestroyedWhileTheRecorderStops()
{
    Studio studio;
    ScriptedRecorder::close(studio.recorder->stopGate);
    studio.recordARegion();
    auto exporting = studio.coordinator->stopAndExport();
    studio.coordinator.reset();
    studio.recorder->stopGate->finish();
    test::await(std::move(exporting));
    QVERIFY(studio.history->entries().empty());
}

void RecordingCoordinatorTest::mayBeDestroyedWhileTheClipIsMade()
{
    Studio studio;
    studio.recordARegion();
    QGuiApplication::clipboard()->setText(QStringLiteral("what was there"));
    QSemaphore work; // else the clip may be done before anybody can look
    auto* const workers = QThreadPool::globalInstance();
    for (int i = 0; i < workers->maxThreadCount(); ++i)
        workers->start([&work] { work.acquire(); });
    auto exporting = studio.coordinator->stopAndExport();
    studio.coordinator.reset();
    work.release(workers->maxThreadCount());
    test::await(std::move(exporting));
    workers->waitForDone(); // one of them may not have seen the semaphore yet
    QVERIFY(studio.history->entries().empty());
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("what was there"));
}

void RecordingCoordinatorTest::mayBeDestroyedByAnObserverOfProcessing()
{
    Studio studio;
    studio.recordARegion();
    connect(studio.coordinator.get(), &Coordinator::phaseChanged, this, [&] { studio.coordinator.reset(); });
    test::await(studio.coordinator->stopAndExport());
    QCOMPARE(studio.recorder->stops, 0);
}

void RecordingCoordinatorTest::makesItsOwnRecorderAndSelectorWhenGivenNone()
{
    const Studio studio;
    const Coordinator own(nullptr, nullptr, studio.history);
    QVERIFY(own.recorder() != nullptr);
    QVERIFY(!own.recorder()->isRecording());
    QVERIFY(own.selector() != nullptr);
}

} // namespace quillbox

QTEST_MAIN(quillbox::RecordingCoordinatorTest)
#include "RecordingCoordinatorTest.moc"
