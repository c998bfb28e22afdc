#include "Capture/StreamRecorder.h"

#include "Capture/Journal/CutOffRecordings.h"
#include "Encoding/FrameReducer.h"
#include "RecorderFixture.h"
#include "support/QtTests.h"
#include "support/TemporaryFolder.h"

#include <QCoreApplication>
#include <QTest>

namespace quillbox {
namespace {

using test::numbers;
using Fixture = test::RecorderFixture;

} // namespace

class HeldPictureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aHeldPictureStaysUntilItIsReleased();
    void aReleaseShowsTheLatestPictureThatArrivedMeanwhile();
    void aPictureThatSeveralHoldStaysUntilTheLastReleasesIt();
    void aReleaseAwaitsAPictureThatWasTakenAfterIt();
    void aHoldTakesAReleaseBackThatAwaitsItsPicture();
    void aClipThatEndsWhileAReleaseAwaitsItsPictureIsNotCutShort();
    void aHoldBeforeTheFirstPictureTakesThatOne();
    void aHoldEndsWithTheRecording();
    void aClipThatEndsHeldHasThreeTenthsOfASecondOfIt();
    void aHoldThatEndsBeforeTheClipIsInItWhole();
    void holdingWhileIdleHoldsNothing();
    void aHeldPictureDoesNotLowerTheFrameRate();
    void aHeldTailDoesNotLowerTheFrameRate();
    void framesAfterAHoldCountAgain();
    void heldFramesOfARecordingThatWasCutOffDoNotLowerTheFrameRate();
};

void HeldPictureTest::aHeldPictureStaysUntilItIsReleased()
{
    Fixture fixture;
    fixture.recordTwo();
    fixture.recorder->holdPicture(&fixture);
    fixture.deliver(3); // something of our own covers the region
    fixture.tick();
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2, 2}));
}

void HeldPictureTest::aReleaseShowsTheLatestPictureThatArrivedMeanwhile()
{
    Fixture fixture;
    fixture.recordTwo();
    fixture.recorder->holdPicture(&fixture);
    fixture.deliver(3);
    fixture.tick();
    fixture.deliver(4); // uncovered again
    fixture.tick();
    fixture.recorder->releasePicture(&fixture);
    fixture.tick();
    fixture.deliver(5);
    fixture.tick();
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2, 2, 2, 4, 5}));
}

void HeldPictureTest::aPictureThatSeveralHoldStaysUntilTheLastReleasesIt()
{
    Fixture fixture;
    const int other = 0;
    fixture.recordTwo();
    fixture.recorder->holdPicture(&fixture);
    fixture.recorder->holdPicture(&other);
    fixture.recorder->holdPicture(&other); // which is no other one
    fixture.deliver(3);
    fixture.tick();
    fixture.recorder->releasePicture(&fixture);
    fixture.recorder->releasePicture(&fixture); // and who does not hold it
    fixture.tick();
    fixture.recorder->releasePicture(&other);
    fixture.tick();
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2, 2, 2, 3}));
}

namespace {

/// A recorder whose stream has pictures on demand, after two frames; it was held, and then covered and released.
struct ReleasedFixture : Fixture {
    CaptureClock::time_point covered;

    ReleasedFixture()
    {
        script->hasPicturesOnDemand = true;
        recordTwo();
        recorder->holdPicture(this);
        covered = *now;
        tick();
        recorder->releasePicture(this);
    }
    void deliverLate(std::uint8_t number) const
    {
        std::thread([&] { script->sink.frame(test::frame(number), covered); }).join();
    }
};

} // namespace

void HeldPictureTest::aReleaseAwaitsAPictureThatWasTakenAfterIt()
{
    ReleasedFixture fixture;
    QCOMPARE(fixture.script->requested, *fixture.now);
    fixture.deliverLate(3);
    QCoreApplication::processEvents(); // it is taken
    fixture.tick();
    fixture.deliverLate(4);
    QCoreApplication::processEvents();
    fixture.deliver(5);
    fixture.tick();
    fixture.deliver(6);
    fixture.tick();
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2, 2, 2, 5, 6}));
}

void HeldPictureTest::aHoldTakesAReleaseBackThatAwaitsItsPicture()
{
    ReleasedFixture fixture;
    fixture.recorder->holdPicture(&fixture);
    fixture.deliver(3);
    fixture.tick();
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2, 2, 2}));
}

void HeldPictureTest::aClipThatEndsWhileAReleaseAwaitsItsPictureIsNotCutShort()
{
    ReleasedFixture fixture;
    for (int tick = 0; tick < 60; ++tick)
        fixture.tick();
    QCOMPARE(numbers(fixture.stop()).size(), std::size_t{2 + 1 + 60});
}

void HeldPictureTest::aHoldBeforeTheFirstPictureTakesThatOne()
{
    Fixture fixture;
    fixture.start();
    fixture.recorder->holdPicture(&fixture);
    fixture.deliver(1);
    fixture.tick();
    fixture.deliver(2);
    fixture.tick();
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 1})); // a clip of something rather than none
}

void HeldPictureTest::aHoldEndsWithTheRecording()
{
    Fixture fixture;
    fixture.recordTwo();
    fixture.recorder->holdPicture(&fixture);
    (void)fixture.stop();
    fixture.recordTwo();
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2}));
}

void HeldPictureTest::aClipThatEndsHeldHasThreeTenthsOfASecondOfIt()
{
    Fixture fixture;
    fixture.recordTwo(); // two frames
    fixture.recorder->holdPicture(&fixture);
    for (int tick = 0; tick < 60; ++tick) {
        fixture.deliver(3);
        fixture.tick();
    }
    QCOMPARE(fixture.recorder->frameCount(), 62);
    const auto shown = numbers(fixture.stop());
    QCOMPARE(shown.size(), std::size_t{2 + 9});
    QCOMPARE(shown.back(), 2);
}

void HeldPictureTest::aHoldThatEndsBeforeTheClipIsInItWhole()
{
    Fixture fixture;
    fixture.recordTwo();
    fixture.recorder->holdPicture(&fixture);
    for (int tick = 0; tick < 60; ++tick)
        fixture.tick();
    fixture.recorder->releasePicture(&fixture);
    fixture.tick();
    QCOMPARE(numbers(fixture.stop()).size(), std::size_t{2 + 60 + 1});
}

void HeldPictureTest::holdingWhileIdleHoldsNothing()
{
    Fixture fixture;
    fixture.recorder->holdPicture(&fixture);
    fixture.recordTwo();
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2}));
    fixture.recorder->releasePicture(&fixture);
}

namespace {

/// Every fourth picture is another one: a quarter of the screen changes with each, on an average.
void showMoving(Fixture& fixture, int ticks)
{
    for (int tick = 0; tick < ticks; ++tick) {
        if (tick % 4 == 0)
            fixture.deliver(static_cast<std::uint8_t>(1 + tick));
        fixture.tick();
    }
}

void showStill(Fixture& fixture, int ticks)
{
    for (int tick = 0; tick < ticks; ++tick)
        fixture.tick();
}

std::int64_t chosenRate(const Recording& recording)
{
    return recording.reduced().selection(ExportPreset::docs).fps;
}

} // namespace

void HeldPictureTest::aHeldPictureDoesNotLowerTheFrameRate()
{
    Fixture moving;
    moving.start();
    showMoving(moving, 60);
    const auto usual = chosenRate(moving.stopRecording());
    Fixture fixture;
    fixture.start();
    showMoving(fixture, 32);
    fixture.recorder->holdPicture(&fixture);
    showStill(fixture, 60);
    fixture.recorder->releasePicture(&fixture);
    showMoving(fixture, 28);
    const auto recording = fixture.stopRecording();
    QCOMPARE(recording.frames().size(), std::size_t{120});
    QCOMPARE(chosenRate(recording), usual);
    QCOMPARE(chosenRate(recording.measuredAnew()), usual);
    QVERIFY(chosenRate(Recording(recording.frames())) < usual); // if they counted
}

void HeldPictureTest::aHeldTailDoesNotLowerTheFrameRate()
{
    Fixture moving;
    moving.start();
    showMoving(moving, 33);
    const auto usual = chosenRate(moving.stopRecording());
    Fixture fixture;
    fixture.start();
    showMoving(fixture, 33);
    fixture.recorder->holdPicture(&fixture);
    showStill(fixture, 60);
    const auto recording = fixture.stopRecording();
    QCOMPARE(recording.frames().size(), std::size_t{33 + 9});
    QCOMPARE(chosenRate(recording), usual);
    QVERIFY(chosenRate(Recording(recording.frames())) < usual);
}

void HeldPictureTest::framesAfterAHoldCountAgain()
{
    Fixture fixture;
    fixture.start();
    showMoving(fixture, 32);
    fixture.recorder->holdPicture(&fixture);
    showStill(fixture, 4);
    fixture.recorder->releasePicture(&fixture);
    showStill(fixture, 200);
    const auto recording = fixture.stopRecording();
    QCOMPARE(chosenRate(recording), chosenRate(Recording(recording.frames())));
}

void HeldPictureTest::heldFramesOfARecordingThatWasCutOffDoNotLowerTheFrameRate()
{
    Fixture moving;
    moving.start();
    showMoving(moving, 60);
    const auto usual = chosenRate(moving.stopRecording());
    const support::TemporaryFolder folder;
    {
        Fixture fixture(
            std::nullopt, RecordingJournal::Options{.folder = folder.path(), .diskSpaceToLeave = 0, .coreShare = 1e9});
        fixture.start();
        fixture.recorder->holdPicture(&fixture); // before there is a picture
        showMoving(fixture, 1);
        fixture.recorder->releasePicture(&fixture);
        showMoving(fixture, 32);
        fixture.recorder->holdPicture(&fixture);
        showStill(fixture, 60);
        fixture.recorder->releasePicture(&fixture);
        showMoving(fixture, 28);
        QCoreApplication::processEvents(); // what was delivered is taken
    }                                      // and nobody has stopped it
    const auto found = CutOffRecordings::find(folder.path());
    QCOMPARE(found.size(), std::size_t{1});
    const auto recording = CutOffRecordings::take(found.front());
    QCOMPARE(recording.frames().size(), std::size_t{1 + 32 + 60 + 24 + 1}); // the last picture is one frame
    QCOMPARE(chosenRate(recording), usual);
    QVERIFY(chosenRate(Recording(recording.frames())) < usual);
}

namespace {
const test::Registration<HeldPictureTest> registeredHeldPictureTest("HeldPicture");
} // namespace

} // namespace quillbox

#include "HeldPictureTest.moc"
