#include "Capture/LiveIntake.h"

#include "Encoding/GIFOptimizer.h"
#include "RecorderStudio.h"

#include <QCoreApplication>
#include <QTest>

namespace quillbox {
namespace {

using Studio = test::RecorderStudio;

} // namespace

/// What a recorder learns of its frames while it records.
class RecordedIntakeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void learnsOfTheFramesWhatTheyComeTo();
    void learnsNothingOfAPictureAfterTheStop();
    void hasLearntNothingWithoutARecording();
};

void RecordedIntakeTest::learnsOfTheFramesWhatTheyComeTo()
{
    Studio studio;
    studio.recordTwo();
    studio.deliver(3);
    for (int i = 0; i < 10; ++i)
        studio.tick();
    const auto frames = studio.stop();
    const auto intake = studio.recorder->intake();
    const FrameIntake* const taken = intake->of(frames);
    QVERIFY(taken != nullptr);
    QCOMPARE(taken->frameCount(), std::ssize(frames));
    const GIFOptimizer::Config config{.preset = ExportPreset::docs, .sourceFPS = 30, .ditheringOverride = {}};
    QVERIFY(GIFOptimizer::optimize(*taken, config) == GIFOptimizer::optimize(frames, config));
}

void RecordedIntakeTest::learnsNothingOfAPictureAfterTheStop()
{
    Studio studio;
    studio.recordTwo();
    const auto frames = studio.stop();
    studio.deliver(3);
    QCoreApplication::processEvents();
    const auto intake = studio.recorder->intake();
    const FrameIntake* const taken = intake->of(frames);
    QVERIFY(taken != nullptr);
    QCOMPARE(taken->frameCount(), 2);
    QVERIFY(intake->of(studio.stop()) == nullptr); // that one has three
}

void RecordedIntakeTest::hasLearntNothingWithoutARecording()
{
    Studio studio;
    QVERIFY(studio.recorder->intake() == nullptr);
}

} // namespace quillbox

QTEST_GUILESS_MAIN(quillbox::RecordedIntakeTest)
#include "RecordedIntakeTest.moc"
