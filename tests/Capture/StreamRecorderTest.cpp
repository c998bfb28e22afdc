#include "Capture/StreamRecorder.h"

#include "Encoding/FrameReducer.h"

#include "RecorderFixture.h"
#include "support/QtTests.h"

#include <QSignalSpy>
#include <QTest>

#include <stdexcept>

namespace quillbox {
namespace {

using std::chrono::milliseconds;
using test::frame;
using test::Frames;
using test::numbers;
using test::recordedRegion;
using test::Script;
using test::ScriptedStream;
using Fixture = test::RecorderFixture;

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
    void endsTheFramesAtTheMostThatAreWanted();
    void knowsItsRegionWhileRecording();
    void anInterruptionKeepsTheFrames();
    void anInterruptionBeforeStartFinishesIsAnnouncedAfterwards();
    void stoppingDuringAStartChangesNothing();
    void aSecondStopWaitsForTheSameEnd();
    void theEventLoopTurnsWhileStartWaits();
    void givingUpAStartStopsItsStream();
    void givesUpAStartWhoseStreamRefusesToStop();
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
    Fixture fixture;
    QVERIFY(!fixture.recorder->isRecording());
    QCOMPARE(fixture.recorder->frameCount(), 0);
    QVERIFY(fixture.stop().empty());
    QCOMPARE(fixture.streams, 0);
}

void StreamRecorderTest::returnsWhatWasDelivered()
{
    Fixture fixture;
    fixture.recordTwo();
    QVERIFY(fixture.recorder->isRecording());
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2}));
    QVERIFY(!fixture.recorder->isRecording());
    QCOMPARE(fixture.script->starts, 1);
    QCOMPARE(fixture.script->stops, 1);
    QVERIFY(fixture.script->region == recordedRegion);
    QVERIFY(!fixture.script->isAlive);
}

void StreamRecorderTest::capturesARegionWithoutExtentAsOnePixel()
{
    Fixture fixture;
    test::await(fixture.recorder->start(CaptureRegion{5, 6, 0, 0}));
    QVERIFY((fixture.script->region == CaptureRegion{5, 6, 1, 1}));
}

void StreamRecorderTest::startingWhileRecordingChangesNothing()
{
    Fixture fixture;
    fixture.recordTwo();
    QSignalSpy changes(fixture.recorder.get(), &StreamRecorder::isRecordingChanged);
    fixture.start();
    QCOMPARE(fixture.streams, 1);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2}));
}

void StreamRecorderTest::aNewStartEmptiesTheList()
{
    Fixture fixture;
    fixture.recordTwo();
    (void)fixture.stop();
    fixture.script = std::make_shared<Script>();
    fixture.start();
    fixture.deliver(3);
    fixture.tick();
    QCOMPARE(numbers(fixture.stop()), (std::vector{3}));
}

void StreamRecorderTest::aFailedStartKeepsTheFramesAndPassesTheErrorOn()
{
    Fixture fixture;
    fixture.recordTwo();
    (void)fixture.stop();
    fixture.script = std::make_shared<Script>();
    fixture.script->startError = std::make_exception_ptr(std::runtime_error("denied"));
    QSignalSpy changes(fixture.recorder.get(), &StreamRecorder::isRecordingAboutToChange);
    try {
        fixture.start();
        QFAIL("the error must be passed on");
    } catch (const std::runtime_error& error) {
        QCOMPARE(error.what(), "denied");
    }
    QVERIFY(!fixture.recorder->isRecording());
    QVERIFY(!fixture.script->isAlive);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2}));
}

void StreamRecorderTest::aCaptureErrorIsPassedOn()
{
    Fixture fixture;
    fixture.script->startError = std::make_exception_ptr(CaptureError(CaptureError::Reason::OutsideDisplay, "outside"));
    try {
        fixture.start();
        QFAIL("the error must be passed on");
    } catch (const CaptureError& error) {
        QVERIFY(error.reason() == CaptureError::Reason::OutsideDisplay);
        QCOMPARE(error.what(), "outside");
    }
}

void StreamRecorderTest::noDisplayIsARecorderError()
{
    Fixture fixture;
    fixture.script->startError = std::make_exception_ptr(CaptureError(CaptureError::Reason::NoDisplay, "none"));
    try {
        fixture.start();
        QFAIL("the error must be passed on");
    } catch (const StreamRecorder::RecorderError& error) {
        QVERIFY(error == StreamRecorder::RecorderError::noDisplay);
    }
    QVERIFY(!fixture.recorder->isRecording());
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
    Fixture fixture;
    fixture.recordTwo();
    const Frames first = fixture.stop();
    fixture.tick();
    const Frames second = fixture.stop();
    QCOMPARE(numbers(second), (std::vector{1, 2}));
    QVERIFY(second[0].sharesPixels(first[0]));
    QCOMPARE(fixture.script->stops, 1);
}

void StreamRecorderTest::anErrorOfTheStreamsStopIsSwallowed()
{
    Fixture fixture;
    fixture.recordTwo();
    fixture.script->stopError = std::make_exception_ptr(std::runtime_error("stuck"));
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2}));
    QVERIFY(!fixture.recorder->isRecording());
}

void StreamRecorderTest::aPictureBeforeStartFinishesIsKept()
{
    Fixture fixture;
    (void)Script::close(fixture.script->startGate);
    auto starting = fixture.recorder->start(recordedRegion);
    fixture.deliver(1);
    QCoreApplication::processEvents();
    fixture.script->startGate->finish();
    test::await(std::move(starting));
    fixture.tick();
    QCOMPARE(numbers(fixture.stop()), (std::vector{1}));
}

void StreamRecorderTest::aPictureThatIsQueuedAtTheStopIsKept()
{
    Fixture fixture;
    fixture.start();
    fixture.deliver(1); // no event is processed between this and the stop
    auto stopping = fixture.recorder->stop();
    QCOMPARE(numbers(test::await(std::move(stopping))), (std::vector{1}));
}

void StreamRecorderTest::aPictureAfterTheStopStaysUntilTheNextStart()
{
    Fixture fixture;
    fixture.recordTwo();
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2}));
    fixture.deliver(3);
    QCoreApplication::processEvents();
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2, 3}));
    fixture.script = std::make_shared<Script>();
    fixture.start();
    QVERIFY(fixture.stop().empty());
}

void StreamRecorderTest::aPictureOfAnEarlierRecordingIsDropped()
{
    Fixture fixture;
    fixture.recordTwo();
    (void)fixture.stop();
    const FrameSink earlier = fixture.script->sink;
    fixture.script = std::make_shared<Script>();
    fixture.start();
    earlier.frame(frame(9), *fixture.now);
    fixture.deliver(3);
    fixture.tick();
    QCOMPARE(numbers(fixture.stop()), (std::vector{3}));
}

void StreamRecorderTest::withoutAPictureThereIsNoFrame()
{
    Fixture fixture;
    fixture.start();
    fixture.tick();
    QVERIFY(fixture.stop().empty());
}

void StreamRecorderTest::announcesBeforeAndAfterEachChange()
{
    Fixture fixture;
    std::vector<std::string> seen;
    const StreamRecorder& recorder = *fixture.recorder;
    connect(&recorder, &StreamRecorder::isRecordingAboutToChange, this, [&](bool next) {
        seen.push_back(std::string("to ") + (next ? "true" : "false") + (recorder.isRecording() ? " from true" : ""));
    });
    connect(&recorder, &StreamRecorder::isRecordingChanged, this,
        [&] { seen.push_back(recorder.isRecording() ? "is true" : "is false"); });
    fixture.start();
    (void)fixture.stop();
    (void)fixture.stop();
    QCOMPARE(seen, (std::vector<std::string>{"to true", "is true", "to false from true", "is false"}));
}

void StreamRecorderTest::countsFramesWhileRecording()
{
    Fixture fixture;
    fixture.start();
    QCOMPARE(fixture.recorder->frameCount(), 0);
    fixture.deliver(1);
    QCoreApplication::processEvents();
    QCOMPARE(fixture.recorder->frameCount(), 1);
    *fixture.now += std::chrono::seconds(2);
    QCOMPARE(fixture.recorder->frameCount(), 60);
    QCOMPARE(std::ssize(fixture.stop()), 60);
    *fixture.now += std::chrono::seconds(2);
    QCOMPARE(fixture.recorder->frameCount(), 60);
}

void StreamRecorderTest::endsTheFramesAtTheMostThatAreWanted()
{
    Fixture fixture;
    fixture.recorder->setMaxFrames(2);
    fixture.recordTwo();
    fixture.deliver(3);
    fixture.tick();
    QCoreApplication::processEvents();
    QCOMPARE(fixture.recorder->frameCount(), 2);
    const auto recording = fixture.stopRecording();
    QCOMPARE(test::numbers(recording), (std::vector{1, 2}));
    QCOMPARE(recording.reduced().frameCount(), 2);
    fixture.deliver(4);
    QCoreApplication::processEvents();
    QCOMPARE(fixture.stop().size(), std::size_t{2});
}

void StreamRecorderTest::knowsItsRegionWhileRecording()
{
    Fixture fixture;
    QVERIFY(!fixture.recorder->region());
    fixture.start();
    QVERIFY(fixture.recorder->region() == recordedRegion);
    (void)fixture.stop();
    QVERIFY(!fixture.recorder->region());
}

void StreamRecorderTest::anInterruptionKeepsTheFrames()
{
    Fixture fixture;
    QSignalSpy interruptions(fixture.recorder.get(), &StreamRecorder::interrupted);
    fixture.recordTwo();
    fixture.end("The display is gone");
    QCOMPARE(interruptions.count(), 0); // only on the main thread
    QVERIFY(test::eventually([&] { return interruptions.count() == 1; }));
    QCOMPARE(interruptions.at(0).at(0).toString(), QStringLiteral("The display is gone"));
    QVERIFY(fixture.recorder->isRecording());
    *fixture.now += std::chrono::seconds(10); // the time until somebody stops it is not recorded
    QCOMPARE(fixture.recorder->frameCount(), 2);
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2}));
    QVERIFY(!fixture.recorder->isRecording());
}

void StreamRecorderTest::anInterruptionBeforeStartFinishesIsAnnouncedAfterwards()
{
    Fixture fixture;
    QSignalSpy interruptions(fixture.recorder.get(), &StreamRecorder::interrupted);
    (void)Script::close(fixture.script->startGate);
    auto starting = fixture.recorder->start(recordedRegion);
    fixture.deliver(1);
    fixture.end("gone");
    QCoreApplication::processEvents();
    QCOMPARE(interruptions.count(), 0);
    fixture.script->startGate->finish();
    test::await(std::move(starting));
    QCOMPARE(interruptions.count(), 1);
    QCOMPARE(numbers(fixture.stop()), (std::vector{1}));
}

void StreamRecorderTest::stoppingDuringAStartChangesNothing()
{
    Fixture fixture;
    (void)Script::close(fixture.script->startGate);
    auto starting = fixture.recorder->start(recordedRegion);
    QVERIFY(fixture.stop().empty());
    QCOMPARE(fixture.script->stops, 0);
    fixture.script->startGate->finish();
    test::await(std::move(starting));
    QVERIFY(fixture.recorder->isRecording());
}

void StreamRecorderTest::aSecondStopWaitsForTheSameEnd()
{
    Fixture fixture;
    fixture.recordTwo();
    QSignalSpy changes(fixture.recorder.get(), &StreamRecorder::isRecordingChanged);
    (void)Script::close(fixture.script->stopGate);
    auto first = fixture.recorder->stop();
    auto second = fixture.recorder->stop();
    QVERIFY(!first.isReady());
    fixture.script->stopGate->finish();
    QCOMPARE(numbers(test::await(std::move(first))), (std::vector{1, 2}));
    QCOMPARE(numbers(test::await(std::move(second))), (std::vector{1, 2}));
    QCOMPARE(changes.count(), 1);
    QVERIFY(!fixture.recorder->isRecording());
}

void StreamRecorderTest::theEventLoopTurnsWhileStartWaits()
{
    Fixture fixture;
    (void)Script::close(fixture.script->startGate);
    auto starting = fixture.recorder->start(recordedRegion);
    bool turned = false;
    QMetaObject::invokeMethod(
        this, [&] { turned = true; }, Qt::QueuedConnection);
    QVERIFY(test::eventually([&] { return turned; }));
    QVERIFY(!starting.isReady());
    fixture.script->startGate->finish();
    test::await(std::move(starting));
}

void StreamRecorderTest::givingUpAStartStopsItsStream()
{
    Fixture fixture;
    (void)Script::close(fixture.script->startGate);
    fixture.script->startError = std::make_exception_ptr(CaptureError(CaptureError::Reason::Stopped, "stopped"));
    test::Outcome<bool> outcome;
    const auto starting = test::follow(fixture.recorder->start(test::recordedRegion), outcome);
    fixture.recorder->giveUpStart();
    QCOMPARE(fixture.script->stops, 1);
    QVERIFY(!outcome.isDone); // the stream tells when it has ended
    fixture.script->startGate->finish();
    QVERIFY(test::eventually([&] { return outcome.isDone; }));
    QVERIFY(outcome.error != nullptr);
    QVERIFY(!fixture.recorder->isRecording());
}

void StreamRecorderTest::givesUpAStartWhoseStreamRefusesToStop()
{
    Fixture fixture;
    (void)Script::close(fixture.script->startGate);
    fixture.script->stopError = std::make_exception_ptr(CaptureError(CaptureError::Reason::Unreadable, "not now"));
    auto starting = fixture.recorder->start(recordedRegion);
    fixture.recorder->giveUpStart();
    fixture.script->startGate->finish();
    test::await(std::move(starting)); // it has just succeeded
    QVERIFY(fixture.recorder->isRecording());
}

void StreamRecorderTest::givingUpNothingIsNothing()
{
    Fixture fixture;
    fixture.recorder->giveUpStart();
    fixture.recordTwo();
    fixture.recorder->giveUpStart();
    QCOMPARE(fixture.script->stops, 0);
    QVERIFY(fixture.recorder->isRecording());
    QCOMPARE(fixture.stop().size(), std::size_t{2});
}

void StreamRecorderTest::destroyingItDuringAStartEndsTheStream()
{
    Fixture fixture;
    (void)Script::close(fixture.script->startGate);
    auto starting = fixture.recorder->start(recordedRegion);
    fixture.recorder.reset();
    QVERIFY(!fixture.script->isAlive);
    fixture.script->startGate->finish();
    test::await(std::move(starting)); // nothing is touched that is gone
}

void StreamRecorderTest::destroyingItDuringAStopStillReturnsTheFrames()
{
    Fixture fixture;
    fixture.recordTwo();
    QCoreApplication::processEvents();
    (void)Script::close(fixture.script->stopGate);
    auto stopping = fixture.recorder->stop();
    fixture.recorder.reset();
    QVERIFY(!fixture.script->isAlive);
    fixture.script->stopGate->finish();
    QCOMPARE(numbers(test::await(std::move(stopping))), (std::vector{1, 2}));
}

void StreamRecorderTest::destroyingItDropsQueuedPictures()
{
    Fixture fixture;
    fixture.start();
    fixture.deliver(1);
    fixture.end("gone");
    fixture.recorder.reset();
    QCoreApplication::processEvents();
    fixture.script->sink.frame(frame(2), *fixture.now); // a stream must not; it does no harm
    QCoreApplication::processEvents();
    QVERIFY(!fixture.script->isAlive);
}

void StreamRecorderTest::destroyingItWhileRecordingEndsTheStream()
{
    Fixture fixture;
    fixture.recordTwo();
    fixture.recorder.reset();
    QVERIFY(!fixture.script->isAlive);
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
        test::await(recorder.start(recordedRegion));
    } catch (const StreamRecorder::RecorderError& error) {
        failed = error == StreamRecorder::RecorderError::noDisplay;
    }
    QVERIFY(failed);
    QVERIFY(!recorder.isRecording());
    QVERIFY(test::await(recorder.stop()).frames().empty());
}

namespace {
const test::Registration<StreamRecorderTest> registeredStreamRecorderTest("StreamRecorder");
} // namespace

} // namespace quillbox

#include "StreamRecorderTest.moc"
