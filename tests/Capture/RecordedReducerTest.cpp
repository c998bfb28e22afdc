#include "Capture/RecordingReducer.h"

#include "Encoding/GIFOptimizer.h"
#include "RecorderFixture.h"

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

/// A recording of pictures 1 to `last`, a tick each, while the reducer is held up by the first.
void recordHeldUp(Fixture& fixture, std::uint8_t last, std::promise<void>& release)
{
    const auto band = std::make_shared<const PixelBand>(Bytes{1, 1, 1, 255});
    band->evict(std::make_unique<HeldUp>(release.get_future().share()));
    fixture.start();
    fixture.script->sink.frame(RGBAFrame::ofBands(1, 1, {band}), *fixture.now);
    for (std::uint8_t number = 2; number <= last; ++number) {
        fixture.tick();
        fixture.deliver(number);
        QCoreApplication::processEvents(); // the recorder takes it in
    }
    fixture.tick();
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
    Fixture fixture;
    fixture.recordTwo();
    fixture.deliver(3);
    for (int i = 0; i < 10; ++i)
        fixture.tick();
    const auto frames = fixture.stop();
    const auto reducer = fixture.recorder->reducer();
    const FrameReducer* const taken = reducer->of(frames);
    QVERIFY(taken != nullptr);
    QCOMPARE(taken->frameCount(), std::ssize(frames));
    const GIFOptimizer::Config config{.preset = ExportPreset::docs, .sourceFPS = 30, .ditheringOverride = {}};
    QVERIFY(GIFOptimizer::optimize(*taken, config) == GIFOptimizer::optimize(frames, config));
}

void RecordedReducerTest::learnsNothingOfAPictureAfterTheStop()
{
    Fixture fixture;
    fixture.recordTwo();
    const auto frames = fixture.stop();
    fixture.deliver(3);
    QCoreApplication::processEvents();
    const auto reducer = fixture.recorder->reducer();
    const FrameReducer* const taken = reducer->of(frames);
    QVERIFY(taken != nullptr);
    QCOMPARE(taken->frameCount(), 2);
    QVERIFY(reducer->of(fixture.stop()) == nullptr); // that one has three
}

void RecordedReducerTest::hasLearntNothingWithoutARecording()
{
    Fixture fixture;
    QVERIFY(fixture.recorder->reducer() == nullptr);
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
    QVERIFY(test::eventually([&] { return wakings.count() == 3; })); // two pictures, and that there is no room
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
    recordHeldUp(fixture, 9, release); // the ninth waits
    for (int i = 0; i < 5; ++i)
        fixture.tick();
    release.set_value();
    const test::Frames five{test::frame(1), test::frame(2), test::frame(3), test::frame(4), test::frame(5)};
    const auto reducer = fixture.recorder->reducer();
    QVERIFY(test::eventually([&] { return !reducer->isBehind(five); })); // three of them are done with
    fixture.deliver(10);
    QCoreApplication::processEvents();
    fixture.tick();
    const auto numbers = test::numbers(fixture.stop());
    QCOMPARE(std::ssize(numbers), 15);
    QCOMPARE(std::ranges::count(numbers, 9), 6);
    QCOMPARE(numbers.back(), 10);
}

} // namespace quillbox

QTEST_GUILESS_MAIN(quillbox::RecordedReducerTest)
#include "RecordedReducerTest.moc"
