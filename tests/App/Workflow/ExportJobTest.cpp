#include "App/Workflow/ExportJob.h"

#include "CoordinatorFixture.h"
#include "support/Await.h"
#include "support/HardClip.h"
#include "support/QtTests.h"

#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

namespace quillbox {
namespace {

/// Turns the event loop until the clip is made.
ClipExport::Saved result(const QFuture<ClipExport::Saved>& future)
{
    if (!test::eventually([&] { return future.isFinished(); }))
        throw std::runtime_error("the job did not finish");
    QCoreApplication::processEvents(); // what the worker said last
    return future.result();
}

} // namespace

class ExportJobTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<test::CoordinatorFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void knowsOfNoProgressAtFirst();
    void tellsOfEveryAttemptThatThereCanBe();
    void neverGoesBackAndEndsNearTheWhole();
    void announcesOnceWhatComesFasterThanTheEventLoopTurns();
    void finishesWithTheFirstAttemptWhenToldBeforehand();
    void announcesOnceThatItIsFinishing();
    void expectsFewAttemptsWhenFinishing_data();
    void expectsFewAttemptsWhenFinishing();
    void expectsNoFewerAttemptsThanThereWere();
    void savesTheClipWhenItIsDestroyed();
    void mayBeDestroyedByAnObserver();

private:
    std::unique_ptr<test::CoordinatorFixture> m_fixture; // for its home folder
};

void ExportJobTest::knowsOfNoProgressAtFirst()
{
    const ExportJob job;
    QVERIFY(!job.progress());
    QVERIFY(!job.isFinishing());
}

void ExportJobTest::tellsOfEveryAttemptThatThereCanBe()
{
    ExportJob job;
    (void)result(job.start(Recording({test::gray(8, 6)}), {.preset = ExportPreset::slack}));
    QVERIFY(job.progress() == (ExportProgress{.attempt = 1, .attempts = 9, .framesDone = 1, .frameCount = 1}));
}

void ExportJobTest::neverGoesBackAndEndsNearTheWhole()
{
    ExportJob job;
    std::vector<double> fractions;
    connect(&job, &ExportJob::progressChanged, &job, [&] { fractions.push_back(job.progress().value().fraction()); });
    const auto saved = result(job.start(Recording(support::hardClip()), {.preset = ExportPreset::slack}));
    QVERIFY(saved.result.colorCount == 16);
    QVERIFY(!fractions.empty());
    QVERIFY(std::is_sorted(fractions.begin(), fractions.end()));
    QVERIFY(fractions.back() > 15.0 / 16); // past the fifth attempt
}

void ExportJobTest::announcesOnceWhatComesFasterThanTheEventLoopTurns()
{
    ExportJob job;
    const QSignalSpy announcements(&job, &ExportJob::progressChanged);
    auto future = job.start(Recording(m_fixture->recorder->frames), {.preset = ExportPreset::slack});
    future.waitForFinished(); // the event loop stands still
    QVERIFY(announcements.isEmpty());
    (void)result(future);
    QCOMPARE(announcements.size(), 1);
    QCOMPARE(job.progress().value().fraction(), 0.5);
}

void ExportJobTest::finishesWithTheFirstAttemptWhenToldBeforehand()
{
    ExportJob job;
    job.finishNow();
    const auto saved = result(job.start(Recording(support::hardClip()), {.preset = ExportPreset::slack}));
    QVERIFY(saved.result.colorCount == 64);
    QVERIFY(saved.result.byteCount > ExportPreset(ExportPreset::slack).targetBytes());
    QCOMPARE(QFileInfo(saved.path).size(), saved.result.byteCount);
    QCOMPARE(job.progress().value().fraction(), 1.0);
}

void ExportJobTest::announcesOnceThatItIsFinishing()
{
    ExportJob job;
    const QSignalSpy announcements(&job, &ExportJob::progressChanged);
    job.finishNow();
    job.finishNow();
    QVERIFY(job.isFinishing());
    QCOMPARE(announcements.size(), 1);
}

void ExportJobTest::expectsFewAttemptsWhenFinishing_data()
{
    QTest::addColumn<int>("least");
    for (const int attempt : {1, 3})
        QTest::addRow("from attempt %d on", attempt) << attempt;
}

void ExportJobTest::expectsFewAttemptsWhenFinishing()
{
    QFETCH(const int, least);
    ExportJob job;
    const auto future = job.start(Recording(support::hardClip()), {.preset = ExportPreset::slack});
    QVERIFY(test::eventually([&] { return job.progress() && job.progress()->attempt >= least; }));
    const double before = job.progress()->fraction();
    const auto attempt = job.progress()->attempt;
    job.finishNow();
    QVERIFY(job.progress()->attempts == (attempt <= 1 ? 1 : attempt + 1));
    std::vector<double> fractions{before, job.progress()->fraction()};
    connect(&job, &ExportJob::progressChanged, &job, [&] { fractions.push_back(job.progress()->fraction()); });
    (void)result(future);
    QVERIFY(std::is_sorted(fractions.begin(), fractions.end()));
}

void ExportJobTest::expectsNoFewerAttemptsThanThereWere()
{
    ExportJob job;
    auto future = job.start(Recording(support::hardClip()), {.preset = ExportPreset::slack});
    future.waitForFinished(); // the event loop stands still
    job.finishNow();
    (void)result(future);
    QVERIFY(job.progress()->attempt >= 5);
    QVERIFY(job.progress()->attempts == job.progress()->attempt);
}

void ExportJobTest::savesTheClipWhenItIsDestroyed()
{
    auto job = std::make_unique<ExportJob>();
    const auto future = job->start(Recording(m_fixture->recorder->frames), {.preset = ExportPreset::slack});
    job.reset();
    QVERIFY(QFileInfo::exists(result(future).path));
}

void ExportJobTest::mayBeDestroyedByAnObserver()
{
    auto job = std::make_unique<ExportJob>();
    connect(job.get(), &ExportJob::progressChanged, this, [&] { job.reset(); });
    const auto future = job->start(Recording(m_fixture->recorder->frames), {.preset = ExportPreset::slack});
    QVERIFY(QFileInfo::exists(result(future).path));
    QVERIFY(!job);
}

namespace {
const test::Registration<ExportJobTest> registeredExportJobTest("ExportJob");
} // namespace

} // namespace quillbox

#include "ExportJobTest.moc"
