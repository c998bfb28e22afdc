#include "App/Workflow/ClipRemake.h"

#include "CoordinatorFixture.h"
#include "support/BusyWorkers.h"
#include "support/HardClip.h"
#include "support/QtTests.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

namespace quillbox {
namespace {

using Coordinator = RecordingCoordinator;
using test::smallChanges;

const ClipRequest plain{.preset = ExportPreset::slack};
const ClipRequest precise{.preset = ExportPreset::slack, .isPrecise = true};

int picturesIn(const QString& path)
{
    return QImageReader(path).imageCount();
}

} // namespace

class ClipRemakeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void hasNothingAtFirst();
    void makesAClipOfItsOwn();
    void showsEveryChangeWhenAskedFor();
    void makesItForAnotherPreset();
    void countsWhatTheClipShows();
    void copiesTheClipAndPutsItAtTheHeadOfTheHistory();
    void goesFromProcessingToDone();
    void makesNoSecondOneMeanwhile();
    void tellsItsProgressAndFinishesWhenTold();
    void saysWhyItFailsAndKeepsTheRecording();
    void triesAgainAfterAFailure();
    void savesWhereTheUserSays();
    void knowsThatATooLargeFrameStaysSo();
    void movesTheRecordingToTheDiskOnceItIsAClip();
    void letsGoOfTheRecording();
    void mayBeDestroyedMeanwhile();

private:
    [[nodiscard]] FinishedClip clip() const;
    void make(const ClipRequest& request);

    std::unique_ptr<test::CoordinatorFixture> m_fixture;
    std::unique_ptr<ClipRemake> m_remake;
};

void ClipRemakeTest::init()
{
    m_fixture = std::make_unique<test::CoordinatorFixture>();
    m_remake = std::make_unique<ClipRemake>(m_fixture->history);
}

void ClipRemakeTest::cleanup()
{
    m_remake.reset();
    m_fixture.reset();
}

FinishedClip ClipRemakeTest::clip() const
{
    return std::get<FinishedClip>(m_remake->outcome().value());
}

void ClipRemakeTest::make(const ClipRequest& request)
{
    m_remake->make(request);
    QVERIFY(test::eventually([this] { return !m_remake->isMaking(); }));
}

void ClipRemakeTest::hasNothingAtFirst()
{
    QVERIFY(!m_remake->hasRecording());
    make(plain);
    QVERIFY(!m_remake->phase());
    QVERIFY(m_fixture->history->entries().empty());
}

void ClipRemakeTest::makesAClipOfItsOwn()
{
    m_remake->keep(smallChanges(3), plain);
    make(plain);
    const auto first = clip();
    make(plain);
    QVERIFY(clip().path != first.path);
    QVERIFY(QFileInfo::exists(first.path));
    QCOMPARE(QFileInfo(clip().path).dir(), m_fixture->clips());
    QCOMPARE(QFileInfo(clip().path).size(), clip().byteCount);
}

void ClipRemakeTest::showsEveryChangeWhenAskedFor()
{
    m_remake->keep(smallChanges(20), plain);
    make(plain);
    QCOMPARE(picturesIn(clip().path), 1);
    make(precise);
    QCOMPARE(picturesIn(clip().path), 20);
    QVERIFY(m_remake->request() == precise);
}

void ClipRemakeTest::makesItForAnotherPreset()
{
    m_remake->keep({{test::gray(1200, 2, 10)}}, plain);
    make(plain);
    QCOMPARE(QImageReader(clip().path).size().width(), 960);
    make({.preset = ExportPreset::docs});
    QCOMPARE(QImageReader(clip().path).size().width(), 1200);
    QCOMPARE(m_fixture->history->entries().front().preset, QString("Docs"));
}

void ClipRemakeTest::countsWhatTheClipShows()
{
    auto frames = smallChanges(20);
    frames.push_back(frames.back()); // nothing new
    m_remake->keep(std::move(frames), plain);
    make(plain);
    QCOMPARE(clip().shownPictures, 1);
    QCOMPARE(clip().recordedPictures, 20);
    QVERIFY(clip().lacksPictures());
    QVERIFY(!clip().exceedsBudget());
    make(precise);
    QCOMPARE(clip().shownPictures, 20);
    QCOMPARE(clip().recordedPictures, 20);
    QVERIFY(!clip().lacksPictures());
}

void ClipRemakeTest::copiesTheClipAndPutsItAtTheHeadOfTheHistory()
{
    m_remake->keep(smallChanges(2), plain);
    make(plain);
    make(precise);
    const auto& entries = m_fixture->history->entries();
    QCOMPARE(entries.size(), 2U);
    QVERIFY(entries.front().outputPath == clip().path);
    QVERIFY(entries.front().width == 100);
    QCOMPARE(QGuiApplication::clipboard()->mimeData()->urls(), QList{QUrl::fromLocalFile(clip().path)});
}

void ClipRemakeTest::goesFromProcessingToDone()
{
    m_remake->keep(smallChanges(2), plain);
    std::vector<std::size_t> phases;
    connect(m_remake.get(), &ClipRemake::phaseAboutToChange, this,
        [&](const Coordinator::Phase& next) { phases.push_back(next.index()); });
    connect(
        m_remake.get(), &ClipRemake::phaseChanged, this, [&] { QCOMPARE(m_remake->phase()->index(), phases.back()); });
    make(precise);
    QCOMPARE(phases, (std::vector<std::size_t>{3, 4})); // processing, done
    const auto done = std::get<Coordinator::Done>(*m_remake->phase());
    QVERIFY(done == (Coordinator::Done{clip().path, clip().byteCount}));
    m_remake->leave();
    QVERIFY(!m_remake->phase());
    QVERIFY(m_remake->hasRecording());
}

void ClipRemakeTest::makesNoSecondOneMeanwhile()
{
    m_remake->keep(smallChanges(2), plain);
    {
        const support::BusyWorkers workers;
        m_remake->make(precise);
        m_remake->make(plain);
    }
    QVERIFY(test::eventually([this] { return !m_remake->isMaking(); }));
    QVERIFY(m_remake->request() == precise);
    QCOMPARE(m_fixture->history->entries().size(), 1U);
}

void ClipRemakeTest::tellsItsProgressAndFinishesWhenTold()
{
    m_remake->keep(Recording(support::hardClip()), plain);
    std::optional<double> fraction;
    connect(m_remake.get(), &ClipRemake::progressChanged, this, [&] {
        if (const auto progress = m_remake->progress())
            fraction = progress->fraction();
    });
    {
        const support::BusyWorkers workers;
        m_remake->make(plain);
        m_remake->finishNow();
        QVERIFY(m_remake->isFinishing());
    }
    QVERIFY(test::eventually([this] { return !m_remake->isMaking(); }));
    QCOMPARE(fraction.value(), 1.0);
    QVERIFY(clip().exceedsBudget()); // the first attempt, as it stands
    QVERIFY(!m_remake->isFinishing());
}

void ClipRemakeTest::saysWhyItFailsAndKeepsTheRecording()
{
    m_remake->keep(smallChanges(2), plain);
    m_fixture->blockClips();
    make(plain);
    const auto failure = std::get<ExportJob::Failure>(m_remake->outcome().value());
    QVERIFY(failure.message.startsWith("Couldn't save clip: "));
    QVERIFY(failure.mayPass);
    QVERIFY(std::get<Coordinator::Failed>(*m_remake->phase()).message == failure.message);
    QVERIFY(m_remake->hasRecording());
}

void ClipRemakeTest::triesAgainAfterAFailure()
{
    m_remake->keep(smallChanges(20), plain);
    m_fixture->blockClips();
    make(precise);
    m_fixture->unblockClips();
    make(m_remake->request());
    QCOMPARE(picturesIn(clip().path), 20);
    QCOMPARE(m_fixture->history->entries().size(), 1U);
}

void ClipRemakeTest::savesWhereTheUserSays()
{
    m_remake->keep(smallChanges(2), plain);
    m_fixture->blockClips();
    ClipRequest elsewhere = plain;
    elsewhere.path = m_fixture->home() + "/elsewhere.gif";
    support::writeFile(elsewhere.path.toStdString(), std::vector<std::uint8_t>{'?'}); // the user was asked
    make(elsewhere);
    QCOMPARE(clip().path, elsewhere.path);
    QCOMPARE(QFileInfo(elsewhere.path).size(), clip().byteCount);
    QVERIFY(m_fixture->history->entries().front().outputPath == elsewhere.path);
}

void ClipRemakeTest::knowsThatATooLargeFrameStaysSo()
{
    m_remake->keep({{test::gray(70000, 1)}}, plain);
    make(plain);
    QVERIFY(!std::get<ExportJob::Failure>(m_remake->outcome().value()).mayPass);
}

void ClipRemakeTest::movesTheRecordingToTheDiskOnceItIsAClip()
{
    const RGBAFrame frame = test::gray(300, 200).inBands(std::nullopt);
    const auto inMemory = [&frame] {
        return frame.ownBand(0)->memoryBytes();
    };
    m_remake->keep({{frame}}, plain);
    m_fixture->blockClips();
    make(plain);
    QVERIFY(inMemory() > 0); // it failed: there will soon be another attempt
    m_fixture->unblockClips();
    make(plain);
    QVERIFY(test::eventually([&] { return inMemory() == 0; }));
    make(precise);
    QCOMPARE(picturesIn(clip().path), 1);
}

void ClipRemakeTest::letsGoOfTheRecording()
{
    auto pixels = std::make_shared<const Bytes>(400, 1);
    const std::weak_ptr<const Bytes> watched = pixels;
    m_remake->keep({{RGBAFrame::sharing(10, 10, std::move(pixels))}}, plain);
    make(plain);
    QVERIFY(!watched.expired());
    m_remake->release();
    QVERIFY(test::eventually([&] { return watched.expired(); })); // the worker may be about to let go of its copy
    QVERIFY(!m_remake->hasRecording());
    QVERIFY(!m_remake->outcome());
}

void ClipRemakeTest::mayBeDestroyedMeanwhile()
{
    m_remake->keep(smallChanges(20), plain);
    connect(m_remake.get(), &ClipRemake::progressChanged, this, [this] { m_remake.reset(); });
    m_remake->make(precise);
    QVERIFY(test::eventually([this] { return !m_remake; }));
    QVERIFY(m_fixture->history->entries().empty());
}

namespace {
const test::Registration<ClipRemakeTest> registeredClipRemakeTest("ClipRemake");
} // namespace

} // namespace quillbox

#include "ClipRemakeTest.moc"
