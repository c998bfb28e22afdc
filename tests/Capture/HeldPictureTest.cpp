#include "Capture/StreamRecorder.h"

#include "RecorderFixture.h"

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

void HeldPictureTest::holdingWhileIdleHoldsNothing()
{
    Fixture fixture;
    fixture.recorder->holdPicture();
    fixture.recordTwo();
    QCOMPARE(numbers(fixture.stop()), (std::vector{1, 2}));
    fixture.recorder->releasePicture();
}

} // namespace quillbox

QTEST_GUILESS_MAIN(quillbox::HeldPictureTest)
#include "HeldPictureTest.moc"
