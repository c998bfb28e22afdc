#include "App/RecordingCoordinator.h"

#include "App/ClipExport.h"
#include "Capture/LiveIntake.h"
#include "CoordinatorStudio.h"
#include "support/HardClip.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

#include <algorithm>
#include <filesystem>
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
    void publishesProgressWhileTheClipIsMade();
    void hasNoProgressOutsideProcessing();
    void goesOnToTheEndWhenToldToFinish();
    void mayBeToldToFinishBeforeTheFramesAreThere();
    void takesWhatWasLearntWhileRecording();
    void ignoresFinishNowOutsideProcessing_data();
    void ignoresFinishNowOutsideProcessing();
    void mayBeDestroyedDuringTheSelection();
    void mayBeDestroyedWhileTheRecorderStarts();
    void mayBeDestroyedWhileTheRecorderStops();
    void mayBeDestroyedWhileTheClipIsMade();
    void mayBeDestroyedByAnObserverOfProcessing();
    void mayBeDestroyedByAnObserverOfProgress();
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
    QTest::addColumn<int>("step");
    QTest::newRow("selecting") << 0;
    QTest::newRow("recording") << 1;
    QTest::newRow("processing") << 2;
    QTest::newRow("done") << 3;
    QTest::newRow("failed") << 4;
}

namespace {

/// Takes `studio` to the phase of that row. @return what must be kept alive meanwhile
QCoro::Task<> take(Studio& studio, int step)
{
    studio.coordinator->beginFlow();
    if (step == 0)
        co_return;
    if (step == 4)
        studio.recorder->startError = std::make_exception_ptr(std::runtime_error("no"));
    if (step == 2)
        ScriptedRecorder::close(studio.recorder->stopGate);
    studio.selector->select(someRegion);
    if (step == 2 || step == 3)
        co_await studio.coordinator->stopAndExport();
}

} // namespace

void RecordingCoordinatorTest::ignoresBeginOutsideIdle()
{
    QFETCH(const int, step);
    Studio studio;
    const auto taking = take(studio, step);
    QVERIFY(test::eventually([&] { return taking.isReady() || step == 2; }));
    const auto before = studio.coordinator->phase();
    const QSignalSpy spy(studio.coordinator.get(), &Coordinator::phaseChanged);
    studio.coordinator->beginFlow();
    QVERIFY(studio.coordinator->phase() == before);
    QVERIFY(spy.isEmpty());
    QCOMPARE(studio.selector->presentations, 1);
    if (step == 2)
        studio.recorder->stopGate->finish();
    QVERIFY(test::eventually([&] { return taking.isReady(); }));
}

void RecordingCoordinatorTest::ignoresStopOutsideRecording_data()
{
    QTest::addColumn<int>("step");
    QTest::newRow("idle") << -1;
    QTest::newRow("selecting") << 0;
    QTest::newRow("processing") << 2;
    QTest::newRow("done") << 3;
    QTest::newRow("failed") << 4;
}

void RecordingCoordinatorTest::ignoresStopOutsideRecording()
{
    QFETCH(const int, step);
    Studio studio;
    std::optional<QCoro::Task<>> taking;
    if (step >= 0)
        taking.emplace(take(studio, step));
    QVERIFY(test::eventually([&] { return step < 0 || step == 2 || taking->isReady(); }));
    const auto before = studio.coordinator->phase();
    const int stops = studio.recorder->stops;
    const QSignalSpy spy(studio.coordinator.get(), &Coordinator::phaseChanged);
    test::await(studio.coordinator->stopAndExport());
    QVERIFY(studio.coordinator->phase() == before);
    QVERIFY(spy.isEmpty());
    QCOMPARE(studio.recorder->stops, stops);
    if (step == 2)
        studio.recorder->stopGate->finish();
    QVERIFY(test::eventually([&] { return step < 0 || taking->isReady(); }));
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

void RecordingCoordinatorTest::publishesProgressWhileTheClipIsMade()
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

void RecordingCoordinatorTest::hasNoProgressOutsideProcessing()
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

void RecordingCoordinatorTest::goesOnToTheEndWhenToldToFinish()
{
    Studio studio;
    studio.recordARegion();
    auto exporting = studio.coordinator->stopAndExport();
    const QSignalSpy phases(studio.coordinator.get(), &Coordinator::phaseChanged);
    studio.coordinator->finishNow();
    QVERIFY(studio.coordinator->isFinishing());
    test::await(std::move(exporting));
    QCOMPARE(phases.size(), 1);
    const auto done = std::get<Coordinator::Done>(studio.coordinator->phase());
    QCOMPARE(QFileInfo(done.path).size(), done.byteCount);
    QVERIFY(studio.history->entries().front().byteCount == done.byteCount);
    QVERIFY(!studio.coordinator->isFinishing());
}

namespace {

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

void RecordingCoordinatorTest::mayBeToldToFinishBeforeTheFramesAreThere()
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

void RecordingCoordinatorTest::takesWhatWasLearntWhileRecording()
{
    Studio studio;
    studio.recorder->frames = {gray(8, 6), gray(8, 6)};
    studio.recorder->learnt = std::make_shared<LiveIntake>();
    studio.recorder->learnt->follow({gray(16, 12), gray(16, 12)}); // of other frames, so that the file tells
    studio.recordARegion();
    test::await(studio.coordinator->stopAndExport());
    const QImageReader clip(std::get<Coordinator::Done>(studio.coordinator->phase()).path);
    QCOMPARE(clip.size(), QSize(16, 12));
}

void RecordingCoordinatorTest::ignoresFinishNowOutsideProcessing_data()
{
    QTest::addColumn<int>("step");
    QTest::newRow("idle") << -1;
    QTest::newRow("selecting") << 0;
    QTest::newRow("recording") << 1;
    QTest::newRow("done") << 3;
    QTest::newRow("failed") << 4;
}

void RecordingCoordinatorTest::ignoresFinishNowOutsideProcessing()
{
    QFETCH(const int, step);
    Studio studio;
    if (step >= 0)
        test::await(take(studio, step));
    const auto before = studio.coordinator->phase();
    const QSignalSpy phases(studio.coordinator.get(), &Coordinator::phaseChanged);
    const QSignalSpy changes(studio.coordinator.get(), &Coordinator::progressChanged);
    studio.coordinator->finishNow();
    QVERIFY(studio.coordinator->phase() == before);
    QVERIFY(phases.isEmpty());
    QVERIFY(changes.isEmpty());
    QVERIFY(!studio.coordinator->isFinishing());
    if (step == 1) { // and nothing of it is left for later
        const auto exporting = studio.coordinator->stopAndExport();
        QVERIFY(!studio.coordinator->isFinishing());
        QVERIFY(test::eventually([&] { return exporting.isReady(); }));
    }
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
    auto exporting = studio.coordinator->stopAndExport();
    studio.coordinator.reset();
    test::await(std::move(exporting));
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

void RecordingCoordinatorTest::mayBeDestroyedByAnObserverOfProgress()
{
    Studio studio;
    studio.recordARegion();
    connect(studio.coordinator.get(), &Coordinator::progressChanged, this, [&] { studio.coordinator.reset(); });
    test::await(studio.coordinator->stopAndExport());
    QVERIFY(!studio.coordinator);
    QVERIFY(studio.history->entries().empty());
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
