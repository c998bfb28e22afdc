#include "Capture/RecordingReducer.h"

#include "Encoding/GIFOptimizer.h"
#include "RecorderStudio.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <cstdint>
#include <future>
#include <limits>
#include <memory>
#include <utility>

namespace quillbox {
namespace {

using Studio = test::RecorderStudio;

constexpr FrameSpill::Limits noRoom{.plainBytes = 0, .memoryBytes = 0, .diskSpaceToLeave = ~std::uint64_t{0}};

constexpr std::int64_t noLimit = std::numeric_limits<std::int64_t>::max();
/// Room for everything, but no more than two of the studio's pictures may wait.
constexpr FrameSpill::Limits fewWaiting{
    .plainBytes = noLimit, .memoryBytes = noLimit, .diskSpaceToLeave = 0, .waitingBytes = 8};

/// Pixels that come back once somebody lets them: whoever looks at them waits.
class HeldUp : public PixelBand::Source {
public:
    explicit HeldUp(std::shared_future<void> release)
        : m_release(std::move(release))
    {
    }
    [[nodiscard]] std::shared_ptr<const Bytes> pixels() const override
    {
        m_release.wait();
        return std::make_shared<const Bytes>(Bytes{1, 1, 1, 255});
    }

private:
    std::shared_future<void> m_release;
};

/// A recording of pictures 1 to `last`, a tick each, while the reducer is held up by the first.
void recordHeldUp(Studio& studio, std::uint8_t last, std::promise<void>& release)
{
    const auto band = std::make_shared<const PixelBand>(Bytes{1, 1, 1, 255});
    band->park(std::make_unique<HeldUp>(release.get_future().share()));
    studio.start();
    studio.script->sink.frame(RGBAFrame::ofBands(1, 1, {band}), *studio.now);
    for (std::uint8_t number = 2; number <= last; ++number) {
        studio.tick();
        studio.deliver(number);
        QCoreApplication::processEvents(); // the recorder takes it in
    }
    studio.tick();
}

/// Counts the events of its own that a recorder gets.
class EventCounter : public QObject {
public:
    explicit EventCounter(QObject& watched) { watched.installEventFilter(this); }
    [[nodiscard]] int count() const { return m_count; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::User)
            ++m_count;
        return QObject::eventFilter(watched, event);
    }

private:
    int m_count = 0;
};

} // namespace

/// What a recorder learns of its frames while it records.
class RecordedReducerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void learnsOfTheFramesWhatTheyComeTo();
    void learnsNothingOfAPictureAfterTheStop();
    void hasLearntNothingWithoutARecording();
    void endsTheRecordingWhenThereIsNoRoom();
    void endsTheRecordingWhenThereWasNoRoomBeforeItBegan();
    void skipsPicturesThatItCannotTakeCareOf();
    void showsTheLastPictureEvenIfItHadToWait();
    void showsAPictureThatHadToWaitUntilTheNextOne();
};

void RecordedReducerTest::learnsOfTheFramesWhatTheyComeTo()
{
    Studio studio;
    studio.recordTwo();
    studio.deliver(3);
    for (int i = 0; i < 10; ++i)
        studio.tick();
    const auto frames = studio.stop();
    const auto reducer = studio.recorder->reducer();
    const FrameReducer* const taken = reducer->of(frames);
    QVERIFY(taken != nullptr);
    QCOMPARE(taken->frameCount(), std::ssize(frames));
    const GIFOptimizer::Config config{.preset = ExportPreset::docs, .sourceFPS = 30, .ditheringOverride = {}};
    QVERIFY(GIFOptimizer::optimize(*taken, config) == GIFOptimizer::optimize(frames, config));
}

void RecordedReducerTest::learnsNothingOfAPictureAfterTheStop()
{
    Studio studio;
    studio.recordTwo();
    const auto frames = studio.stop();
    studio.deliver(3);
    QCoreApplication::processEvents();
    const auto reducer = studio.recorder->reducer();
    const FrameReducer* const taken = reducer->of(frames);
    QVERIFY(taken != nullptr);
    QCOMPARE(taken->frameCount(), 2);
    QVERIFY(reducer->of(studio.stop()) == nullptr); // that one has three
}

void RecordedReducerTest::hasLearntNothingWithoutARecording()
{
    Studio studio;
    QVERIFY(studio.recorder->reducer() == nullptr);
}

void RecordedReducerTest::endsTheRecordingWhenThereIsNoRoom()
{
    Studio studio(noRoom);
    QSignalSpy interruptions(studio.recorder.get(), &StreamRecorder::interrupted);
    studio.recordTwo();
    QVERIFY(test::eventually([&] { return !interruptions.isEmpty(); }));
    QCOMPARE(interruptions.at(0).at(0).toString(), QStringLiteral("The disk is nearly full"));
    studio.deliver(3); // too late
    studio.tick();
    QCOMPARE(test::numbers(studio.stop()), (std::vector{1, 2}));
    QCOMPARE(interruptions.size(), 1);
}

void RecordedReducerTest::endsTheRecordingWhenThereWasNoRoomBeforeItBegan()
{
    Studio studio(noRoom);
    QSignalSpy interruptions(studio.recorder.get(), &StreamRecorder::interrupted);
    test::Script::close(studio.script->startGate);
    EventCounter wakings(*studio.recorder);
    auto starting = studio.recorder->start(test::someRegion);
    studio.deliver(1);
    studio.tick();
    studio.deliver(2);
    QVERIFY(test::eventually([&] { return wakings.count() == 3; })); // two pictures, and that there is no room
    studio.tick();
    studio.script->startGate->finish();
    test::await(std::move(starting));
    QVERIFY(test::eventually([&] { return !interruptions.isEmpty(); }));
    QCOMPARE(test::numbers(studio.stop()), (std::vector{1, 2}));
}

void RecordedReducerTest::skipsPicturesThatItCannotTakeCareOf()
{
    Studio studio(fewWaiting);
    std::promise<void> release;
    recordHeldUp(studio, 9, release);
    release.set_value();
    const auto numbers = test::numbers(studio.stop());
    QCOMPARE(std::ssize(numbers), 9);
    QCOMPARE(numbers.front(), 1);
    QVERIFY(std::ranges::find(numbers, 7) == numbers.end());
    QCOMPARE(numbers.back(), 9);
}

void RecordedReducerTest::showsTheLastPictureEvenIfItHadToWait()
{
    Studio studio(fewWaiting);
    std::promise<void> release;
    recordHeldUp(studio, 9, release); // the ninth waits
    for (int i = 0; i < 5; ++i)
        studio.tick();
    release.set_value();
    const auto numbers = test::numbers(studio.stop());
    QCOMPARE(std::ssize(numbers), 14);
    QCOMPARE(std::ranges::count(numbers, 9), 6);
}

void RecordedReducerTest::showsAPictureThatHadToWaitUntilTheNextOne()
{
    Studio studio(fewWaiting);
    std::promise<void> release;
    recordHeldUp(studio, 9, release); // the ninth waits
    for (int i = 0; i < 5; ++i)
        studio.tick();
    release.set_value();
    const test::Frames five{test::frame(1), test::frame(2), test::frame(3), test::frame(4), test::frame(5)};
    const auto reducer = studio.recorder->reducer();
    QVERIFY(test::eventually([&] { return !reducer->isBehind(five); })); // three of them are done with
    studio.deliver(10);
    QCoreApplication::processEvents();
    studio.tick();
    const auto numbers = test::numbers(studio.stop());
    QCOMPARE(std::ssize(numbers), 15);
    QCOMPARE(std::ranges::count(numbers, 9), 6);
    QCOMPARE(numbers.back(), 10);
}

} // namespace quillbox

QTEST_GUILESS_MAIN(quillbox::RecordedReducerTest)
#include "RecordedReducerTest.moc"
