#include "App/ExportProgress.h"

#include <QTest>

namespace quillbox {
namespace {

double fraction(std::int64_t attempt, std::int64_t attempts, std::int64_t framesDone, std::int64_t frameCount = 10)
{
    return ExportProgress{attempt, attempts, framesDone, frameCount}.fraction();
}

} // namespace

class ExportProgressTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isNothingWhileTheFramesAreMeasured();
    void beginsAtNothing();
    void fillsHalfWithTheFirstAttempt();
    void fillsHalfOfWhatIsLeftWithTheNext();
    void fillsEverythingWithTheLastAttemptThatThereCanBe();
    void fillsEverythingWithTheOnlyAttempt();
    void goesOnWhereTheAttemptBeforeEnded();
    void risesWithEveryFrameOfEveryAttempt();
    void risesWhenFewerAttemptsAreLeft();
    void standsStillInAFileWithoutFrames();
    void countsNoFrameTwice();
};

void ExportProgressTest::isNothingWhileTheFramesAreMeasured()
{
    QCOMPARE(fraction(0, 5, 7), 0.0);
}

void ExportProgressTest::beginsAtNothing()
{
    QCOMPARE(ExportProgress().fraction(), 0.0);
    QCOMPARE(fraction(1, 5, 0), 0.0);
}

void ExportProgressTest::fillsHalfWithTheFirstAttempt()
{
    QCOMPARE(fraction(1, 5, 5), 0.25);
    QCOMPARE(fraction(1, 5, 10), 0.5);
}

void ExportProgressTest::fillsHalfOfWhatIsLeftWithTheNext()
{
    QCOMPARE(fraction(2, 5, 5), 0.625);
    QCOMPARE(fraction(2, 5, 10), 0.75);
    QCOMPARE(fraction(4, 5, 10), 0.9375);
}

void ExportProgressTest::fillsEverythingWithTheLastAttemptThatThereCanBe()
{
    QCOMPARE(fraction(5, 5, 5), 0.96875);
    QCOMPARE(fraction(5, 5, 10), 1.0);
}

void ExportProgressTest::fillsEverythingWithTheOnlyAttempt()
{
    QCOMPARE(fraction(1, 1, 3), 0.3);
    QCOMPARE(fraction(1, 1, 10), 1.0);
}

void ExportProgressTest::goesOnWhereTheAttemptBeforeEnded()
{
    for (std::int64_t attempt = 2; attempt <= 5; ++attempt)
        QCOMPARE(fraction(attempt, 5, 0), fraction(attempt - 1, 5, 10));
}

void ExportProgressTest::risesWithEveryFrameOfEveryAttempt()
{
    double before = -1;
    for (std::int64_t attempt = 1; attempt <= 5; ++attempt) {
        for (std::int64_t frame = 1; frame <= 900; ++frame) {
            const double now = fraction(attempt, 5, frame, 900);
            QVERIFY(now > before);
            QVERIFY(now <= 1);
            before = now;
        }
    }
}

void ExportProgressTest::risesWhenFewerAttemptsAreLeft()
{
    for (std::int64_t attempt = 1; attempt < 5; ++attempt)
        QVERIFY(fraction(attempt, attempt, 3) > fraction(attempt, 5, 3));
}

void ExportProgressTest::standsStillInAFileWithoutFrames()
{
    QCOMPARE(fraction(2, 5, 0, 0), 0.5);
}

void ExportProgressTest::countsNoFrameTwice()
{
    QCOMPARE(fraction(1, 5, 11), 0.5);
}

} // namespace quillbox

QTEST_APPLESS_MAIN(quillbox::ExportProgressTest)
#include "ExportProgressTest.moc"
