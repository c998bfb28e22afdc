#include "App/Workflow/RecordingClock.h"
#include "support/QtTests.h"

#include <QSignalSpy>
#include <QTest>

namespace quillbox {

using namespace std::chrono_literals;

class RecordingClockTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void standsAtZeroUntilItIsStarted();
    void countsWholeSeconds();
    void goesBackToZero();
    void beginsAnew();
    void announcesTheNextSecond();
    void announcesNothingAfterItsEnd();
    void showsMinutesAndSeconds();

private:
    std::chrono::steady_clock::time_point m_now;
    RecordingClock m_clock{nullptr, [this] {
                               return m_now;
                           }};
};

void RecordingClockTest::standsAtZeroUntilItIsStarted()
{
    m_now += 5s;
    QCOMPARE(m_clock.elapsed(), 0s);
}

void RecordingClockTest::countsWholeSeconds()
{
    m_clock.start();
    QCOMPARE(m_clock.elapsed(), 0s);
    m_now += 999ms;
    QCOMPARE(m_clock.elapsed(), 0s);
    m_now += 1ms;
    QCOMPARE(m_clock.elapsed(), 1s);
    m_now += 2h;
    QCOMPARE(m_clock.elapsed(), 7201s);
}

void RecordingClockTest::goesBackToZero()
{
    m_clock.start();
    m_now += 5s;
    const QSignalSpy changes(&m_clock, &RecordingClock::changed);
    m_clock.stop();
    QCOMPARE(m_clock.elapsed(), 0s);
    m_clock.stop();
    QCOMPARE(changes.size(), 1);
}

void RecordingClockTest::beginsAnew()
{
    m_clock.start();
    m_now += 5s;
    m_clock.start();
    QCOMPARE(m_clock.elapsed(), 0s);
}

void RecordingClockTest::announcesTheNextSecond()
{
    int calls = 0;
    RecordingClock clock(nullptr, [&calls] { // a millisecond before the second is over, then behind it
        return std::chrono::steady_clock::time_point(++calls == 1 ? 0ms : calls == 2 ? 999ms : 1000ms);
    });
    QSignalSpy changes(&clock, &RecordingClock::changed);
    clock.start();
    QCOMPARE(changes.size(), 1);
    QVERIFY(changes.wait());
    QCOMPARE(clock.elapsed(), 1s);
}

void RecordingClockTest::announcesNothingAfterItsEnd()
{
    RecordingClock clock(nullptr, [this] {
        m_now += 999ms;
        return m_now;
    });
    clock.start();
    clock.stop();
    const QSignalSpy changes(&clock, &RecordingClock::changed);
    QTest::qWait(5); // the next second was a millisecond away
    QCOMPARE(changes.size(), 0);
}

void RecordingClockTest::showsMinutesAndSeconds()
{
    QCOMPARE(RecordingClock::text(0s), QString("0:00"));
    QCOMPARE(RecordingClock::text(7s), QString("0:07"));
    QCOMPARE(RecordingClock::text(12min + 34s), QString("12:34"));
    QCOMPARE(RecordingClock::text(59min + 59s), QString("59:59"));
    QCOMPARE(RecordingClock::text(1h + 2min + 3s), QString("1:02:03"));
}

namespace {
const test::Registration<RecordingClockTest> registeredRecordingClockTest("RecordingClock");
} // namespace

} // namespace quillbox

#include "RecordingClockTest.moc"
