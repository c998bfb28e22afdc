#include "Capture/UncoveredStream.h"

#include "ScriptedStream.h"
#include "support/Await.h"
#include "support/QtTests.h"

#include <QTest>

#include <thread>
#include <vector>

namespace quillbox {
namespace {

using std::chrono_literals::operator""ms;

constexpr int pictureSide = 64;
constexpr CaptureRegion selected{0, 0, pictureSide, pictureSide};
constexpr std::uint8_t uncovered = 200;
constexpr std::uint8_t covered = 150;
constexpr std::uint8_t halfway = 175;

RGBAFrame gray(std::uint8_t level)
{
    return RGBAFrame(pictureSide, pictureSide, Bytes(pictureSide * pictureSide * RGBAFrame::bytesPerPixel, level));
}

/// A stream that is started after an overlay was hidden, at the moment zero of a clock that is made up.
struct GateFixture {
    struct Delivery {
        int level;
        CaptureClock::time_point shownAt;
    };

    std::shared_ptr<test::Script> script = std::make_shared<test::Script>();
    std::shared_ptr<CaptureClock::time_point> now = std::make_shared<CaptureClock::time_point>();
    std::vector<Delivery> delivered;
    std::optional<CaptureError> ended;
    int remainsLeft = 0;
    test::Outcome<bool> starting;
    std::optional<QCoro::Task<>> following;
    std::unique_ptr<CaptureStream> stream = std::make_unique<UncoveredStream>(
        std::make_unique<test::ScriptedStream>(script), OverlayRemains(gray(uncovered), gray(covered)), *now,
        [this] { ++remainsLeft; }, [now = now] { return *now; });

    GateFixture() = default;
    GateFixture(const GateFixture&) = delete;
    GateFixture& operator=(const GateFixture&) = delete;
    ~GateFixture()
    {
        stream.reset();
        (void)test::eventually([this] { return !following || starting.isDone; });
    }

    void start()
    {
        FrameSink sink;
        sink.frame = [this](const RGBAFrame& frame, CaptureClock::time_point shownAt) {
            delivered.push_back({frame.pixels()[0], shownAt});
        };
        sink.ended = [this](const CaptureError& reason) {
            ended = reason;
        };
        following.emplace(test::follow(stream->start(selected, std::move(sink)), starting));
    }
    /// From a thread of the stream's.
    void deliver(std::uint8_t level) const
    {
        std::thread([&] { script->sink.frame(gray(level), *now); }).join();
    }
    bool hasStarted()
    {
        return test::eventually([this] { return starting.isDone; }) && !starting.error;
    }
    std::vector<int> levels() const
    {
        std::vector<int> result;
        for (const Delivery& each : delivered)
            result.push_back(each.level);
        return result;
    }
    /// Why it has not started.
    std::optional<CaptureError::Reason> failure()
    {
        if (!test::eventually([this] { return starting.isDone; }) || !starting.error)
            return std::nullopt;
        try {
            std::rethrow_exception(starting.error);
        } catch (const CaptureError& error) {
            return error.reason();
        }
    }
};

} // namespace

class UncoveredStreamTest : public QObject {
    Q_OBJECT

private:
    Q_SLOT void beginsWithTheFirstPictureThatShowsNothingOfTheOverlay();
    Q_SLOT void beginsAtOnceWhereTheOverlayHasGone();
    Q_SLOT void beginsWithRemainsInTheEndAndSaysSo();
    Q_SLOT void beginsWithAStillPictureOfSomethingElseAtATickOfTheStreams();
    Q_SLOT void momentsDoNotGoBack();
    Q_SLOT void aSourceThatEndsBeforeIsAFailure();
    Q_SLOT void aSourceThatEndsAfterwardsIsTold();
    Q_SLOT void isAskedForPicturesAsItsSourceIs();
    Q_SLOT void isStoppedWhileItWaits();
    Q_SLOT void mayGoWhileItWaits();
};

void UncoveredStreamTest::beginsWithTheFirstPictureThatShowsNothingOfTheOverlay()
{
    GateFixture fixture;
    fixture.start();
    fixture.deliver(covered);
    *fixture.now += 700ms;
    fixture.deliver(halfway);
    QVERIFY(!fixture.starting.isDone);
    QCOMPARE(fixture.levels(), std::vector<int>{});
    *fixture.now += 100ms;
    fixture.deliver(uncovered);
    fixture.deliver(7);
    QVERIFY(fixture.hasStarted());
    QCOMPARE(fixture.levels(), (std::vector<int>{uncovered, 7}));
    QVERIFY(fixture.delivered.front().shownAt == *fixture.now);
    QCOMPARE(fixture.remainsLeft, 0);
}

void UncoveredStreamTest::beginsAtOnceWhereTheOverlayHasGone()
{
    GateFixture fixture;
    fixture.start();
    fixture.deliver(uncovered);
    QVERIFY(fixture.hasStarted());
    QCOMPARE(fixture.levels(), (std::vector<int>{uncovered}));
}

void UncoveredStreamTest::beginsWithRemainsInTheEndAndSaysSo()
{
    GateFixture fixture;
    fixture.start();
    fixture.deliver(halfway);
    *fixture.now += 2000ms; // and no picture follows
    QVERIFY(fixture.hasStarted());
    QCOMPARE(fixture.levels(), (std::vector<int>{halfway}));
    QCOMPARE(fixture.remainsLeft, 1);
}

void UncoveredStreamTest::beginsWithAStillPictureOfSomethingElseAtATickOfTheStreams()
{
    GateFixture fixture;
    fixture.start();
    fixture.deliver(7);
    const auto first = *fixture.now;
    *fixture.now += 260ms;
    QVERIFY(fixture.hasStarted());
    QCOMPARE(fixture.levels(), (std::vector<int>{7}));
    QVERIFY(fixture.delivered.front().shownAt == first + std::chrono::nanoseconds(7'000'000'000 / 30));
    QCOMPARE(fixture.remainsLeft, 0);
}

void UncoveredStreamTest::momentsDoNotGoBack()
{
    GateFixture fixture;
    fixture.start();
    fixture.deliver(7);
    *fixture.now += 260ms;
    QVERIFY(fixture.hasStarted());
    *fixture.now -= 100ms;
    fixture.deliver(8);
    QVERIFY(fixture.delivered.back().shownAt == fixture.delivered.front().shownAt);
}

void UncoveredStreamTest::aSourceThatEndsBeforeIsAFailure()
{
    GateFixture fixture;
    fixture.start();
    fixture.deliver(covered);
    fixture.script->sink.ended(CaptureError(CaptureError::Reason::DisplayGone, "gone"));
    QCOMPARE(fixture.failure(), CaptureError::Reason::DisplayGone);
    QVERIFY(!fixture.ended);
    fixture.deliver(uncovered);
    QCOMPARE(fixture.levels(), std::vector<int>{});
}

void UncoveredStreamTest::aSourceThatEndsAfterwardsIsTold()
{
    GateFixture fixture;
    fixture.start();
    fixture.deliver(uncovered);
    QVERIFY(fixture.hasStarted());
    fixture.script->sink.ended(CaptureError(CaptureError::Reason::DisplayGone, "gone"));
    QVERIFY(fixture.ended && fixture.ended->reason() == CaptureError::Reason::DisplayGone);
}

void UncoveredStreamTest::isAskedForPicturesAsItsSourceIs()
{
    GateFixture fixture;
    QVERIFY(!fixture.stream->requestPicture(*fixture.now + 5ms));
    QCOMPARE(fixture.script->requested, *fixture.now + 5ms);
    fixture.script->hasPicturesOnDemand = true;
    QVERIFY(fixture.stream->requestPicture(*fixture.now));
}

void UncoveredStreamTest::isStoppedWhileItWaits()
{
    GateFixture fixture;
    fixture.start();
    fixture.deliver(covered);
    test::await(fixture.stream->stop());
    QCOMPARE(fixture.failure(), CaptureError::Reason::Stopped);
    QCOMPARE(fixture.script->stops, 1);
}

void UncoveredStreamTest::mayGoWhileItWaits()
{
    GateFixture fixture;
    fixture.start();
    fixture.deliver(covered);
    fixture.stream.reset();
    QVERIFY(!fixture.script->isAlive);
    QCOMPARE(fixture.failure(), CaptureError::Reason::Stopped);
}

namespace {
const test::Registration<UncoveredStreamTest> registeredUncoveredStreamTest("UncoveredStream");
} // namespace

} // namespace quillbox

#include "UncoveredStreamTest.moc"
