#include "Capture/RecordingReducer.h"

#include "Encoding/GIFOptimizer.h"
#include "RecorderFixture.h"
#include "support/QtTests.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <future>
#include <limits>
#include <memory>
#include <utility>

namespace quillbox {
namespace {

using Fixture = test::RecorderFixture;

constexpr FrameSpill::Limits noRoom{.plainBytes = 0, .memoryBytes = 0, .diskSpaceToLeave = ~std::uint64_t{0}};

constexpr std::int64_t noLimit = std::numeric_limits<std::int64_t>::max();
/// Room for everything, but no more than two of the fixture's pictures may wait.
constexpr FrameSpill::Limits fewWaiting{
    .plainBytes = noLimit, .memoryBytes = noLimit, .diskSpaceToLeave = 0, .waitingBytes = 8};

/// Pixels that come back once somebody lets them: whoever looks at them waits.
class HeldUp : public BackingStore {
public:
    explicit HeldUp(std::shared_future<void> release)
        : m_release(std::move(release))
    {
    }
    [[nodiscard]] std::shared_ptr<const Bytes> read() const override
    {
        m_release.wait();
        return std::make_shared<const Bytes>(Bytes{1, 1, 1, 255});
    }

private:
    std::shared_future<void> m_release;
};

/// Pixels that tell when somebody looks at them.
class Watched : public BackingStore {
public:
    explicit Watched(std::shared_ptr<std::atomic<bool>> wasSeen)
        : m_wasSeen(std::move(wasSeen))
    {
    }
    [[nodiscard]] std::shared_ptr<const Bytes> read() const override
    {
        *m_wasSeen = true;
        return std::make_shared<const Bytes>(Bytes{3, 3, 3, 255});
    }

private:
    std::shared_ptr<std::atomic<bool>> m_wasSeen;
};

void deliver(Fixture& fixture, std::unique_ptr<const BackingStore> store)
{
    const auto band = std::make_shared<const PixelBand>(Bytes(4));
    band->evict(std::move(store));
    fixture.script->sink.frame(RGBAFrame::ofBands(1, 1, {band}), *fixture.now);
}

/// A recording of pictures 1 to `last`, a tick each, while the reducer is held up by the first.
void recordHeldUp(Fixture& fixture, std::uint8_t last, std::promise<void>& release)
{
    fixture.start();
    deliver(fixture, std::make_unique<HeldUp>(release.get_future().share()));
    for (std::uint8_t number = 2; number <= last; ++number) {
        fixture.tick();
        fixture.deliver(number);
        QCoreApplication::processEvents(); // the recorder takes it in
    }
    fixture.tick();
}

/// Counts how often a recorder is told that there is something for it.
class EventCounter : public QObject {
public:
    explicit EventCounter(QObject& watched) { watched.installEventFilter(this); }
    [[nodiscard]] int count() const { return m_count; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::MetaCall)
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
    void aPictureAfterTheStopIsInTheNextRecordingOnly();
    void theSameRecordingIsMeasuredOnce();
    void theRecordingOutlivesTheRecorder();
    void endsTheRecordingWhenThereIsNoRoom();
    void endsTheRecordingWhenThereWasNoRoomBeforeItBegan();
    void skipsPicturesThatItCannotTakeCareOf();
    void showsTheLastPictureEvenIfItHadToWait();
    void showsAPictureThatHadToWaitUntilTheNextOne();
};

void RecordedReducerTest::learnsOfTheFramesWhatTheyComeTo()
{
    Fixture fixture;
    fixture.recordTwo();
    fixture.deliver(3);
    for (int i = 0; i < 10; ++i)
        fixture.tick();
    const auto recording = fixture.stopRecording();
    QCOMPARE(recording.frames().size(), 12U);
    QCOMPARE(recording.reduced().frameCount(), 12);
    const GIFOptimizer::Config config{.preset = ExportPreset::docs, .sourceFPS = 30, .ditheringOverride = {}};
    QVERIFY(GIFOptimizer::optimize(recording.reduced(), config) == GIFOptimizer::optimize(recording.frames(), config));
}

void RecordedReducerTest::aPictureAfterTheStopIsInTheNextRecordingOnly()
{
    Fixture fixture;
    fixture.recordTwo();
    const auto two = fixture.stopRecording();
    fixture.deliver(3);
    QCoreApplication::processEvents();
    const auto three = fixture.stopRecording();
    QCOMPARE(two.reduced().frameCount(), 2);
    QCOMPARE(three.reduced().frameCount(), 3);
}

void RecordedReducerTest::theSameRecordingIsMeasuredOnce()
{
    Fixture fixture;
    fixture.recordTwo();
    const auto first = fixture.stopRecording();
    QCOMPARE(&fixture.stopRecording().reduced(), &first.reduced());
}

void RecordedReducerTest::theRecordingOutlivesTheRecorder()
{
    Fixture fixture;
    fixture.recordTwo();
    const auto recording = fixture.stopRecording();
    fixture.recorder.reset();
    QCOMPARE(recording.reduced().frameCount(), 2);
}

void RecordedReducerTest::endsTheRecordingWhenThereIsNoRoom()
{
    Fixture fixture(noRoom);
    QSignalSpy interruptions(fixture.recorder.get(), &StreamRecorder::interrupted);
    fixture.recordTwo();
    QVERIFY(test::eventually([&] { return !interruptions.isEmpty(); }));
    QCOMPARE(interruptions.at(0).at(0).toString(), QStringLiteral("The disk is nearly full"));
    fixture.deliver(3); // too late
    fixture.tick();
    QCOMPARE(test::numbers(fixture.stop()), (std::vector{1, 2}));
    QCOMPARE(interruptions.size(), 1);
}

void RecordedReducerTest::endsTheRecordingWhenThereWasNoRoomBeforeItBegan()
{
    Fixture fixture(noRoom);
    QSignalSpy interruptions(fixture.recorder.get(), &StreamRecorder::interrupted);
    test::Script::close(fixture.script->startGate);
    EventCounter wakings(*fixture.recorder);
    auto starting = fixture.recorder->start(test::recordedRegion);
    fixture.deliver(1);
    fixture.tick();
    fixture.deliver(2);
    QVERIFY(test::eventually([&] { return wakings.count() == 2; })); // both pictures, and that there is no room
    fixture.tick();
    fixture.script->startGate->finish();
    test::await(std::move(starting));
    QVERIFY(test::eventually([&] { return !interruptions.isEmpty(); }));
    QCOMPARE(test::numbers(fixture.stop()), (std::vector{1, 2}));
}

void RecordedReducerTest::skipsPicturesThatItCannotTakeCareOf()
{
    Fixture fixture(fewWaiting);
    std::promise<void> release;
    recordHeldUp(fixture, 9, release);
    release.set_value();
    const auto numbers = test::numbers(fixture.stop());
    QCOMPARE(std::ssize(numbers), 9);
    QCOMPARE(numbers.front(), 1);
    QVERIFY(std::ranges::find(numbers, 7) == numbers.end());
    QCOMPARE(numbers.back(), 9);
}

void RecordedReducerTest::showsTheLastPictureEvenIfItHadToWait()
{
    Fixture fixture(fewWaiting);
    std::promise<void> release;
    recordHeldUp(fixture, 9, release); // the ninth waits
    for (int i = 0; i < 5; ++i)
        fixture.tick();
    release.set_value();
    const auto numbers = test::numbers(fixture.stop());
    QCOMPARE(std::ssize(numbers), 14);
    QCOMPARE(std::ranges::count(numbers, 9), 6);
}

void RecordedReducerTest::showsAPictureThatHadToWaitUntilTheNextOne()
{
    Fixture fixture(fewWaiting);
    std::promise<void> release;
    recordHeldUp(fixture, 2, release);
    const auto isAtTheThird = std::make_shared<std::atomic<bool>>(false);
    deliver(fixture, std::make_unique<Watched>(isAtTheThird));
    for (std::uint8_t number = 4; number <= 9; ++number) { // the ninth waits
        fixture.tick();
        fixture.deliver(number);
        QCoreApplication::processEvents();
    }
    for (int i = 0; i < 6; ++i)
        fixture.tick();
    release.set_value();
    QVERIFY(test::eventually([&] { return isAtTheThird->load(); })); // so the first is done with
    fixture.deliver(10);
    QCoreApplication::processEvents();
    fixture.tick();
    const auto numbers = test::numbers(fixture.stop());
    QCOMPARE(std::ssize(numbers), 15);
    QCOMPARE(std::ranges::count(numbers, 9), 6);
    QCOMPARE(numbers.back(), 10);
}

namespace {
const test::Registration<RecordedReducerTest> registeredRecordedReducerTest("RecordedReducer");
} // namespace

} // namespace quillbox

#include "RecordedReducerTest.moc"
