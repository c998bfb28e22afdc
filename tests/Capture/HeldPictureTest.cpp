#include "Capture/StreamRecorder.h"

#include "RecorderStudio.h"

#include <QTest>

namespace quillbox {
namespace {

using test::numbers;
using Studio = test::RecorderStudio;

} // namespace

class HeldPictureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aHeldPictureStaysUntilItIsReleased();
    void aReleaseShowsTheLatestPictureThatArrivedMeanwhile();
    void aHoldEndsWithTheRecording();
    void holdingWhileIdleHoldsNothing();
};

void HeldPictureTest::aHeldPictureStaysUntilItIsReleased()
{
    Studio studio;
    studio.recordTwo();
    studio.recorder->holdPicture();
    studio.deliver(3); // something of our own covers the region
    studio.tick();
    QCOMPARE(numbers(studio.stop()), (std::vector{1, 2, 2}));
}

void HeldPictureTest::aReleaseShowsTheLatestPictureThatArrivedMeanwhile()
{
    Studio studio;
    studio.recordTwo();
    studio.recorder->holdPicture();
    studio.deliver(3);
    studio.tick();
    studio.deliver(4); // uncovered again
    studio.tick();
    studio.recorder->releasePicture();
    studio.tick();
    studio.deliver(5);
    studio.tick();
    QCOMPARE(numbers(studio.stop()), (std::vector{1, 2, 2, 2, 4, 5}));
}

void HeldPictureTest::aHoldEndsWithTheRecording()
{
    Studio studio;
    studio.recordTwo();
    studio.recorder->holdPicture();
    (void)studio.stop();
    studio.recordTwo();
    QCOMPARE(numbers(studio.stop()), (std::vector{1, 2}));
}

void HeldPictureTest::holdingWhileIdleHoldsNothing()
{
    Studio studio;
    studio.recorder->holdPicture();
    studio.recordTwo();
    QCOMPARE(numbers(studio.stop()), (std::vector{1, 2}));
    studio.recorder->releasePicture();
}

} // namespace quillbox

QTEST_GUILESS_MAIN(quillbox::HeldPictureTest)
#include "HeldPictureTest.moc"
