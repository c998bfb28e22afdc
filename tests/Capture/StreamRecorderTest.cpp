#include "Capture/StreamRecorder.h"

#include "RecorderStudio.h"

#include <QSignalSpy>
#include <QTest>

#include <stdexcept>

namespace quillbox {
namespace {

using std::chrono::milliseconds;
using test::frame;
using test::Frames;
using test::numbers;
using test::Script;
using test::ScriptedStream;
using test::someRegion;
using Studio = test::RecorderStudio;

} // namespace

class StreamRecorderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isIdleAndEmptyAtFirst();
    void returnsWhatWasDelivered();
    void capturesARegionWithoutExtentAsOnePixel();
    void startingWhileRecordingChangesNothing();
    void aNewStartEmptiesTheList();
    void aFailedStartKeepsTheFramesAndPassesTheErrorOn();
    void aCaptureErrorIsPassedOn();
    void noDisplayIsARecorderError();
    void recorderErrorsAreEqualAndHashTheirOrdinal();
    void stoppingWhenIdleReturnsTheFramesAgain();
    void anErrorOfTheStreamsStopIsSwallowed();
    void aPictureBeforeStartFinishesIsKept();
    void aPictureThatIsQueuedAtTheStopIsKept();
    void aPictureAfterTheStopStaysUntilTheNextStart();
    void aPictureOfAnEarlierRecordingIsDropped();
    void withoutAPictureThereIsNoFrame();
    void announcesBeforeAndAfterEachChange();
    void countsFramesWhileRecording();
    void knowsItsRegionWhileRecording();
    void anInterruptionKeepsTheFrames();
    void anInterruptionBeforeStartFinishesIsAnnouncedAfterwards();
    void stoppingDuringAStartChangesNothing();
    void aSecondStopWaitsForTheSameEnd();
    void theEventLoopTurnsWhileStartWaits();
    void givingUpAStartStopsItsStream();
    void givingUpNothingIsNothing();
    void destroyingItDuringAStartEndsTheStream();
    void destroyingItDuringAStopStillReturnsTheFrames();
    void destroyingItDropsQueuedPictures();
    void destroyingItWhileRecordingEndsTheStream();
    void withoutADisplayARealStartFails_data();
    void withoutADisplayARealStartFails();
};

void StreamRecorderTest::isIdleAndEmptyAtFirst()
{
    Studio studio;
    QVERIFY(!studio.recorder->isRecording());
    QCOMPARE(studio.recorder->frameCount(), 0);
    QVERIFY(studio.stop().empty());
    QCOMPARE(studio.streams, 0);
}

void StreamRecorderTest::returnsWhatWasDelivered()
{
    Studio studio;
    studio.recordTwo();
    QVERIFY(studio.recorder->isRecording());
    QCOMPARE(numbers(studio.stop()), (std::vector{1, 2}));
    QVERIFY(!studio.recorder->isRecording());
    QCOMPARE(studio.script->starts, 1);
    QCOMPARE(studio.script->stops, 1);
    QVERIFY(studio.script->region == someRegion);
    QVERIFY(!studio.script->isAlive);
}

void StreamRecorderTest::capturesARegionWithoutExtentAsOnePixel()
{
    Studio studio;
    test::await(studio.recorder->start(CaptureRegion{5, 6, 0, 0}));
    QVERIFY((studio.script->region == CaptureRegion{5, 6, 1, 1}));
}

void StreamRecorderTest::startingWhileRecordingChangesNothing()
{
    Studio studio;
    studio.recordTwo();
    QSignalSpy changes(studio.recorder.get(), &StreamRecorder::isRecordingChanged);
    studio.start();
    QCOMPARE(studio.streams, 1);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(numbers(studio.stop()), (std::vector{1, 2}));
}

void StreamRecorderTest::aNewStartEmptiesTheList()
{
    Studio studio;
    studio.recordTwo();
    (void)studio.stop();
    studio.script = std::make_shared<Script>();
    studio.start();
    studio.deliver(3);
    studio.tick();
    QCOMPARE(numbers(studio.stop()), (std::vector{3}));
}

void StreamRecorderTest::aFailedStartKeepsTheFramesAndPassesTheErrorOn()
{
    Studio studio;
    studio.recordTwo();
    (void)studio.stop();
    studio.script = std::make_shared<Script>();
    studio.script->startError = std::make_exception_ptr(std::runtime_error("denied"));
    QSignalSpy changes(studio.recorder.get(), &StreamRecorder::isRecordingAboutToChange);
    try {
        studio.start();
        QFAIL("the error must be passed on");
    } catch (const std::runtime_error& error) {
        QCOMPARE(error.what(), "denied");
    }
    QVERIFY(!studio.recorder->isRecording());
    QVERIFY(!studio.script->isAlive);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(numbers(studio.stop()), (std::vector{1, 2}));
}

void StreamRecorderTest::aCaptureErrorIsPassedOn()
{
    Studio studio;
    studio.script->startError = std::make_exception_ptr(CaptureError(CaptureError::Reason::OutsideDisplay, "outside"));
    try {
        studio.start();
        QFAIL("the error must be passed on");
    } catch (const CaptureError& error) {
        QVERIFY(error.reason() == CaptureError::Reason::OutsideDisplay);
        QCOMPARE(error.what(), "outside");
    }
}

void StreamRecorderTest::noDisplayIsARecorderError()
{
    Studio studio;
    studio.script->startError = std::make_exception_ptr(CaptureError(CaptureError::Reason::NoDisplay, "none"));
    try {
        studio.start();
        QFAIL("the error must be passed on");
    } catch (const StreamRecorder::RecorderError& error) {
        QVERIFY(error == StreamRecorder::RecorderError::noDisplay);
    }
    QVERIFY(!studio.recorder->isRecording());
}

void StreamRecorderTest::recorderErrorsAreEqualAndHashTheirOrdinal()
{
    const StreamRecorder::RecorderError one(StreamRecorder::RecorderError::noDisplay);
    const StreamRecorder::RecorderError other(StreamRecorder::RecorderError::noDisplay);
    QVERIFY(one == other);
    QCOMPARE(std::hash<StreamRecorder::RecorderError>{}(one), std::hash<int>{}(0));
}

void StreamRecorderTest::stoppingWhenIdleReturnsTheFramesAgain()
{
    Studio studio;
    studio.recordTwo();
    const Frames first = studio.stop();
    studio.tick();
    const Frames second = studio.stop();
    QCOMPARE(numbers(second), (std::vector{1, 2}));
    QVERIFY(second[0].sharesPixels(first[0]));
    QCOMPARE(studio.script->stops, 1);
}

void StreamRecorderTest::anErrorOfTheStreamsStopIsSwallowed()
{
    Studio studio;
    studio.recordTwo();
    studio.script->stopError = std::make_exception_ptr(std::runtime_error("stuck"));
    QCOMPARE(numbers(studio.stop()), (std::vector{1, 2}));
    QVERIFY(!studio.recorder->isRecording());
}

void StreamRecorderTest::aPictureBeforeStartFinishesIsKept()
{
    Studio studio;
    (void)Script::close(studio.script->startGate);
    auto starting = studio.recorder->start(someRegion);
    studio.deliver(1);
    QCoreApplication::processEvents();
    studio.script->startGate->finish();
    test::await(std::move(starting));
    studio.tick();
    QCOMPARE(numbers(studio.stop()), (std::vector{1}));
}

void StreamRecorderTest::aPictureThatIsQueuedAtTheStopIsKept()
{
    Studio studio;
    studio.start();
    studio.deliver(1); // no event is processed between this and the stop
    auto stopping = studio.recorder->stop();
    QCOMPARE(numbers(test::await(std::move(stopping))), (std::vector{1}));
}

void StreamRecorderTest::aPictureAfterTheStopStaysUntilTheNextStart()
{
    Studio studio;
    studio.recordTwo();
    QCOMPARE(numbers(studio.stop()), (std::vector{1, 2}));
    studio.deliver(3);
    QCoreApplication::processEvents();
    QCOMPARE(numbers(studio.stop()), (std::vector{1, 2, 3}));
    studio.script = std::make_shared<Script>();
    studio.start();
    QVERIFY(studio.stop().empty());
}

void StreamRecorderTest::aPictureOfAnEarlierRecordingIsDropped()
{
    Studio studio;
    studio.recordTwo();
    (void)studio.stop();
    const FrameSink earlier = studio.script->sink;
    studio.script = std::make_shared<Script>();
    studio.start();
    earlier.frame(frame(9), *studio.now);
    studio.deliver(3);
    studio.tick();
    QCOMPARE(numbers(studio.stop()), (std::vector{3}));
}

void StreamRecorderTest::withoutAPictureThereIsNoFrame()
{
    Studio studio;
    studio.start();
    studio.tick();
    QVERIFY(studio.stop().empty());
}

void StreamRecorderTest::announcesBeforeAndAfterEachChange()
{
    Studio studio;
    std::vector<std::string> seen;
    const StreamRecorder& recorder = *studio.recorder;
    connect(&recorder, &StreamRecorder::isRecordingAboutToChange, this, [&](bool next) {
        seen.push_back(std::string("to ") + (next ? "true" : "false") + (recorder.isRecording() ? " from true" : ""));
    });
    connect(&recorder, &StreamRecorder::isRecordingChanged, this,
        [&] { seen.push_back(recorder.isRecording() ? "is true" : "is false"); });
    studio.start();
    (void)studio.stop();
    (void)studio.stop();
    QCOMPARE(seen, (std::vector<std::string>{"to true", "is true", "to false from true", "is false"}));
}

void StreamRecorderTest::countsFramesWhileRecording()
{
    Studio studio;
    studio.start();
    QCOMPARE(studio.recorder->frameCount(), 0);
    studio.deliver(1);
    QCoreApplication::processEvents();
    QCOMPARE(studio.recorder->frameCount(), 1);
    *studio.now += std::chrono::seconds(2);
    QCOMPARE(studio.recorder->frameCount(), 60);
    QCOMPARE(std::ssize(studio.stop()), 60);
    *studio.now += std::chrono::seconds(2);
    QCOMPARE(studio.recorder->frameCount(), 60);
}

void StreamRecorderTest::knowsItsRegionWhileRecording()
{
    Studio studio;
    QVERIFY(!studio.recorder->region());
    studio.start();
    QVERIFY(studio.recorder->region() == someRegion);
    (void)studio.stop();
    QVERIFY(!studio.recorder->region());
}

void StreamRecorderTest::anInterruptionKeepsTheFrames()
{
    Studio studio;
    QSignalSpy interruptions(studio.recorder.get(), &StreamRecorder::interrupted);
    studio.recordTwo();
    studio.end("The display is gone");
    QCOMPARE(interruptions.count(), 0); // only on the main thread
    QVERIFY(test::eventually([&] { return interruptions.count() == 1; }));
    QCOMPARE(interruptions.at(0).at(0).toString(), QStringLiteral("The display is gone"));
    QVERIFY(studio.recorder->isRecording());
    *studio.now += std::chrono::seconds(10); // the time until somebody stops it is not recorded
    QCOMPARE(studio.recorder->frameCount(), 2);
    QCOMPARE(numbers(studio.stop()), (std::vector{1, 2}));
    QVERIFY(!studio.recorder->isRecording());
}

void StreamRecorderTest::anInterruptionBeforeStartFinishesIsAnnouncedAfterwards()
{
    Studio studio;
    QSignalSpy interruptions(studio.recorder.get(), &StreamRecorder::interrupted);
    (void)Script::close(studio.script->startGate);
    auto starting = studio.recorder->start(someRegion);
    studio.deliver(1);
    studio.end("gone");
    QCoreApplication::processEvents();
    QCOMPARE(interruptions.count(), 0);
    studio.script->startGate->finish();
    test::await(std::move(starting));
    QCOMPARE(interruptions.count(), 1);
    QCOMPARE(numbers(studio.stop()), (std::vector{1}));
}

void StreamRecorderTest::stoppingDuringAStartChangesNothing()
{
    Studio studio;
    (void)Script::close(studio.script->startGate);
    auto starting = studio.recorder->start(someRegion);
    QVERIFY(studio.stop().empty());
    QCOMPARE(studio.script->stops, 0);
    studio.script->startGate->finish();
    test::await(std::move(starting));
    QVERIFY(studio.recorder->isRecording());
}

void StreamRecorderTest::aSecondStopWaitsForTheSameEnd()
{
    Studio studio;
    studio.recordTwo();
    QSignalSpy changes(studio.recorder.get(), &StreamRecorder::isRecordingChanged);
    (void)Script::close(studio.script->stopGate);
    auto first = studio.recorder->stop();
    auto second = studio.recorder->stop();
    QVERIFY(!first.isReady());
    studio.script->stopGate->finish();
    QCOMPARE(numbers(test::await(std::move(first))), (std::vector{1, 2}));
    QCOMPARE(numbers(test::await(std::move(second))), (std::vector{1, 2}));
    QCOMPARE(changes.count(), 1);
    QVERIFY(!studio.recorder->isRecording());
}

void StreamRecorderTest::theEventLoopTurnsWhileStartWaits()
{
    Studio studio;
    (void)Script::close(studio.script->startGate);
    auto starting = studio.recorder->start(someRegion);
    bool turned = false;
    QMetaObject::invokeMethod(
        this, [&] { turned = true; }, Qt::QueuedConnection);
    QVERIFY(test::eventually([&] { return turned; }));
    QVERIFY(!starting.isReady());
    studio.script->startGate->finish();
    test::await(std::move(starting));
}

void StreamRecorderTest::givingUpAStartStopsItsStream()
{
    Studio studio;
    (void)Script::close(studio.script->startGate);
    studio.script->startError = std::make_exception_ptr(CaptureError(CaptureError::Reason::Stopped, "stopped"));
    test::Outcome<bool> outcome;
    const auto starting = test::follow(studio.recorder->start(test::someRegion), outcome);
    studio.recorder->giveUpStart();
    QCOMPARE(studio.script->stops, 1);
    QVERIFY(!outcome.isDone); // the stream tells when it has ended
    studio.script->startGate->finish();
    QVERIFY(test::eventually([&] { return outcome.isDone; }));
    QVERIFY(outcome.error != nullptr);
    QVERIFY(!studio.recorder->isRecording());
}

void StreamRecorderTest::givingUpNothingIsNothing()
{
    Studio studio;
    studio.recorder->giveUpStart();
    studio.recordTwo();
    studio.recorder->giveUpStart();
    QCOMPARE(studio.script->stops, 0);
    QVERIFY(studio.recorder->isRecording());
    QCOMPARE(studio.stop().size(), std::size_t{2});
}

void StreamRecorderTest::destroyingItDuringAStartEndsTheStream()
{
    Studio studio;
    (void)Script::close(studio.script->startGate);
    auto starting = studio.recorder->start(someRegion);
    studio.recorder.reset();
    QVERIFY(!studio.script->isAlive);
    studio.script->startGate->finish();
    test::await(std::move(starting)); // nothing is touched that is gone
}

void StreamRecorderTest::destroyingItDuringAStopStillReturnsTheFrames()
{
    Studio studio;
    studio.recordTwo();
    QCoreApplication::processEvents();
    (void)Script::close(studio.script->stopGate);
    auto stopping = studio.recorder->stop();
    studio.recorder.reset();
    QVERIFY(!studio.script->isAlive);
    studio.script->stopGate->finish();
    QCOMPARE(numbers(test::await(std::move(stopping))), (std::vector{1, 2}));
}

void StreamRecorderTest::destroyingItDropsQueuedPictures()
{
    Studio studio;
    studio.start();
    studio.deliver(1);
    studio.end("gone");
    studio.recorder.reset();
    QCoreApplication::processEvents();
    studio.script->sink.frame(frame(2), *studio.now); // a stream must not; it does no harm
    QCoreApplication::processEvents();
    QVERIFY(!studio.script->isAlive);
}

void StreamRecorderTest::destroyingItWhileRecordingEndsTheStream()
{
    Studio studio;
    studio.recordTwo();
    studio.recorder.reset();
    QVERIFY(!studio.script->isAlive);
}

void StreamRecorderTest::withoutADisplayARealStartFails_data()
{
    QTest::addColumn<QByteArray>("display");
    QTest::newRow("none is named") << QByteArray();
    QTest::newRow("nothing answers") << QByteArray(":59999");
    QTest::newRow("not a name of a display") << QByteArray("nonsense");
}

void StreamRecorderTest::withoutADisplayARealStartFails()
{
    QFETCH(const QByteArray, display);
    qputenv("QUILLBOX_CAPTURE_BACKEND", "x11");
    qputenv("DISPLAY", display);
    StreamRecorder recorder;
    bool failed = false;
    try {
        test::await(recorder.start(someRegion));
    } catch (const StreamRecorder::RecorderError& error) {
        failed = error == StreamRecorder::RecorderError::noDisplay;
    }
    QVERIFY(failed);
    QVERIFY(!recorder.isRecording());
    QVERIFY(test::await(recorder.stop()).empty());
}

} // namespace quillbox

QTEST_GUILESS_MAIN(quillbox::StreamRecorderTest)
#include "StreamRecorderTest.moc"
