#include "App/Workflow/ExportProgress.h"
#include "support/QtTests.h"

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
    void fillsHalfOfWhatIsLeftAndAtLastEverything_data();
    void fillsHalfOfWhatIsLeftAndAtLastEverything();
    void isNothingAtFirst();
    void goesOnWhereTheAttemptBeforeEnded();
    void risesWithEveryFrameOfEveryAttempt();
    void risesWhenFewerAttemptsAreLeft();
};

void ExportProgressTest::fillsHalfOfWhatIsLeftAndAtLastEverything_data()
{
    QTest::addColumn<ExportProgress>("progress");
    QTest::addColumn<double>("fraction");
    const auto row = [](const char* name, ExportProgress progress, double fraction) {
        QTest::newRow(name) << progress << fraction;
    };
    row("no attempt has begun", {0, 5, 7, 10}, 0);
    row("the first begins", {1, 5, 0, 10}, 0);
    row("half of the first", {1, 5, 5, 10}, 0.25);
    row("the whole first", {1, 5, 10, 10}, 0.5);
    row("half of the second", {2, 5, 5, 10}, 0.625);
    row("the whole second", {2, 5, 10, 10}, 0.75);
    row("the last but one", {4, 5, 10, 10}, 0.9375);
    row("half of the last that there can be", {5, 5, 5, 10}, 0.96875);
    row("the whole last", {5, 5, 10, 10}, 1);
    row("a part of the only one", {1, 1, 3, 10}, 0.3);
    row("the whole only one", {1, 1, 10, 10}, 1);
    row("a file without frames", {2, 5, 0, 0}, 0.5);
    row("a frame too many", {1, 5, 11, 10}, 0.5);
}

void ExportProgressTest::fillsHalfOfWhatIsLeftAndAtLastEverything()
{
    QFETCH(const ExportProgress, progress);
    QFETCH(const double, fraction);
    QCOMPARE(progress.fraction(), fraction);
}

void ExportProgressTest::isNothingAtFirst()
{
    QCOMPARE(ExportProgress().fraction(), 0.0);
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

namespace {
const test::Registration<ExportProgressTest> registeredExportProgressTest("ExportProgress");
} // namespace

} // namespace quillbox

#include "ExportProgressTest.moc"
