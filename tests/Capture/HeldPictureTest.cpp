#include "Capture/StreamRecorder.h"

#include "RecorderFixture.h"
#include "support/QtTests.h"

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
    void aHoldBeforeTheFirstPictureTakesThatOne();
    void aHoldEndsWithTheRecording();
    void aClipThatEndsHeldHasThreeTenthsOfASecondOfIt();
    void aHoldThatEndsBeforeTheClipIsInItWhole();
    void holdingWhileIdleHoldsNothing();
};

void HeldPictureTest::aHeldPictureStaysUntilItIsReleased()
{
    Fixture fixture;
    fixture.recordTwo();
    fixture.recorder->holdPicture();
    fixture.deliver(3); // something of our own covers the region
    fixture.tick();
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2, 2}));
}

void HeldPictureTest::aReleaseShowsTheLatestPictureThatArrivedMeanwhile()
{
    Fixture fixture;
    fixture.recordTwo();
    fixture.recorder->holdPicture();
    fixture.deliver(3);
    fixture.tick();
    fixture.deliver(4); // uncovered again
    fixture.tick();
    fixture.recorder->releasePicture();
    fixture.tick();
    fixture.deliver(5);
    fixture.tick();
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2, 2, 2, 4, 5}));
}

void HeldPictureTest::aHoldBeforeTheFirstPictureTakesThatOne()
{
    Fixture fixture;
    fixture.start();
    fixture.recorder->holdPicture();
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
    fixture.recorder->holdPicture();
    (void)fixture.stop();
    fixture.recordTwo();
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2}));
}

void HeldPictureTest::aClipThatEndsHeldHasThreeTenthsOfASecondOfIt()
{
    Fixture fixture;
    fixture.recordTwo(); // two frames
    fixture.recorder->holdPicture();
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
    fixture.recorder->holdPicture();
    for (int tick = 0; tick < 60; ++tick)
        fixture.tick();
    fixture.recorder->releasePicture();
    fixture.tick();
    QCOMPARE(numbers(fixture.stop()).size(), std::size_t{2 + 60 + 1});
}

void HeldPictureTest::holdingWhileIdleHoldsNothing()
{
    Fixture fixture;
    fixture.recorder->holdPicture();
    fixture.recordTwo();
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2}));
    fixture.recorder->releasePicture();
}

namespace {
const test::Registration<HeldPictureTest> registeredHeldPictureTest("HeldPicture");
} // namespace

} // namespace quillbox

#include "HeldPictureTest.moc"
