#include "App/Workflow/CutOffOffer.h"

#include "App/Workflow/CurrentCoordinator.h"
#include "CoordinatorFixture.h"
#include "CutOffJournal.h"
#include "support/BusyWorkers.h"
#include "support/QtTests.h"

#include <QFileInfo>
#include <QImageReader>
#include <QTest>

#include <filesystem>
#include <optional>

namespace quillbox {
namespace {

using Coordinator = RecordingCoordinator;

} // namespace

class CutOffOfferTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void hasNothingWhereNothingWasCutOff();
    void makesTheClipAndRemovesTheJournal();
    void makesItAsTheUserHasChosen();
    void offersTheNextOneAfterwards();
    void discardsOne();
    void canOnlyDiscardADamagedOne();
    void beginsNothingWhileARecordingRuns();
    void givesWayToARecordingThatBeginsMeanwhile();
    void keepsWhatCouldNotBeSaved();
    void tellsThatAnotherProgramHasIt();
    void mayBeDestroyedMeanwhile();

private:
    [[nodiscard]] std::filesystem::path folder() const { return m_fixture->home().toStdString() + "/cache"; }
    [[nodiscard]] std::size_t journals() const;
    void leave(int pictures) const { test::leaveJournal(folder(), test::smallChanges(pictures)); }
    [[nodiscard]] bool isOffered(std::int64_t frames) const
    {
        return test::eventually([&] { return m_offer->canDiscard() && m_offer->found()->frameCount == frames; });
    }
    [[nodiscard]] bool isNothingOffered() const
    {
        return test::eventually([this] { return m_offer->found() == nullptr; });
    }
    [[nodiscard]] bool isDone() const
    {
        return test::eventually([this] { return m_current->isIn<Coordinator::Done>(); });
    }

    std::unique_ptr<test::CoordinatorFixture> m_fixture;
    std::unique_ptr<CurrentCoordinator> m_current;
    std::unique_ptr<CutOffOffer> m_offer;
};

void CutOffOfferTest::init()
{
    m_fixture = std::make_unique<test::CoordinatorFixture>();
    m_current = std::make_unique<CurrentCoordinator>(std::move(m_fixture->coordinator));
    m_offer = std::make_unique<CutOffOffer>(*m_current, folder());
}

void CutOffOfferTest::cleanup()
{
    m_offer.reset();
    m_current.reset();
    m_fixture.reset();
}

std::size_t CutOffOfferTest::journals() const
{
    std::error_code none;
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(folder(), none), std::filesystem::directory_iterator()));
}

void CutOffOfferTest::hasNothingWhereNothingWasCutOff()
{
    int changes = 0;
    connect(m_offer.get(), &CutOffOffer::changed, this, [&changes] { ++changes; });
    m_offer->look();
    QVERIFY(test::eventually([&] { return changes > 0; }));
    QVERIFY(m_offer->found() == nullptr);
    m_offer->makeClip();
    m_offer->discard();
    QVERIFY(m_current->isIn<Coordinator::Idle>());
}

void CutOffOfferTest::makesTheClipAndRemovesTheJournal()
{
    leave(12);
    m_offer->look();
    QVERIFY(isOffered(12));
    m_offer->makeClip();
    QVERIFY(isDone());
    QCOMPARE(journals(), 0U);
    QVERIFY(isNothingOffered());
    const auto& entry = m_fixture->history->entries().at(0);
    QCOMPARE(*entry.width, 100);
    QCOMPARE(QFileInfo(*entry.outputPath).dir(), m_fixture->clips());
    QVERIFY(m_current->canMakeAgain());
}

void CutOffOfferTest::makesItAsTheUserHasChosen()
{
    leave(12);
    m_current->get().setPreset(ExportPreset::docs);
    m_current->setKeepsEveryChange(true);
    m_offer->look();
    QVERIFY(isOffered(12));
    m_offer->makeClip();
    QVERIFY(isDone());
    QVERIFY(m_current->finishedClip()->request == (ClipRequest{.preset = ExportPreset::docs, .isPrecise = true}));
    QCOMPARE(QImageReader(m_current->finishedClip()->path).imageCount(), 12);
}

void CutOffOfferTest::offersTheNextOneAfterwards()
{
    leave(3);
    QTest::qSleep(2); // named after the millisecond
    leave(5);
    m_offer->look();
    QVERIFY(isOffered(3));
    m_offer->makeClip();
    QVERIFY(isOffered(5));
    QVERIFY(isDone());
    QVERIFY(m_offer->canMakeClip());
    m_offer->makeClip();
    QVERIFY(isNothingOffered());
    QVERIFY(test::eventually([this] { return m_fixture->history->entries().size() == 2; }));
    QCOMPARE(journals(), 0U);
}

void CutOffOfferTest::discardsOne()
{
    leave(3);
    m_offer->look();
    QVERIFY(isOffered(3));
    m_offer->discard();
    QVERIFY(!m_offer->canDiscard()); // it is at it
    m_offer->makeClip();
    QVERIFY(isNothingOffered());
    QCOMPARE(journals(), 0U);
    QVERIFY(m_current->isIn<Coordinator::Idle>());
}

void CutOffOfferTest::canOnlyDiscardADamagedOne()
{
    std::filesystem::create_directories(folder());
    support::writeFile(folder() / "recording-1-2.journal", Bytes(1000, 1));
    m_offer->look();
    QVERIFY(isOffered(0));
    QVERIFY(!m_offer->canMakeClip());
    m_offer->discard();
    QVERIFY(isNothingOffered());
    QCOMPARE(journals(), 0U);
}

void CutOffOfferTest::beginsNothingWhileARecordingRuns()
{
    leave(3);
    m_offer->look();
    QVERIFY(isOffered(3));
    m_current->begin();
    QVERIFY(!m_offer->canMakeClip());
    m_offer->makeClip();
    m_fixture->selector->select(test::someRegion);
    QVERIFY(m_current->isIn<Coordinator::Recording>());
    m_current->stop();
    QVERIFY(isDone());
    QVERIFY(m_offer->canMakeClip());
}

void CutOffOfferTest::givesWayToARecordingThatBeginsMeanwhile()
{
    leave(3);
    m_offer->look();
    QVERIFY(isOffered(3));
    {
        const support::BusyWorkers workers;
        m_offer->makeClip();
        m_current->begin();
    }
    QVERIFY(isOffered(3));
    QVERIFY(m_current->isIn<Coordinator::SelectingRegion>());
    m_fixture->selector->select(RegionSelector::Cancelled{});
    QVERIFY(m_offer->canMakeClip());
    QCOMPARE(journals(), 1U);
}

void CutOffOfferTest::keepsWhatCouldNotBeSaved()
{
    leave(3);
    m_fixture->blockClips();
    m_offer->look();
    QVERIFY(isOffered(3));
    m_offer->makeClip();
    QVERIFY(test::eventually([this] { return m_current->isIn<Coordinator::Failed>(); }));
    QCOMPARE(journals(), 1U);
    QVERIFY(m_current->canTryAgain());
    QVERIFY(isNothingOffered()); // but for that
    m_current->begin();
    m_fixture->selector->select(test::someRegion); // the coordinator lets go of it
    m_fixture->unblockClips();
    m_current->stop();
    QVERIFY(isDone());
    QVERIFY(isOffered(3));
    m_offer->makeClip();
    QVERIFY(test::eventually([this] { return m_fixture->history->entries().size() == 2; }));
    QCOMPARE(journals(), 0U);
}

void CutOffOfferTest::tellsThatAnotherProgramHasIt()
{
    leave(3);
    m_offer->look();
    QVERIFY(isOffered(3));
    auto other = std::optional(CutOffRecordings::take(*m_offer->found()));
    QStringList problems;
    connect(m_offer.get(), &CutOffOffer::changed, this, [&] { problems << m_offer->problem(); });
    m_offer->makeClip();
    QVERIFY(test::eventually([&] { return problems.contains("Another program has this recording, or it is gone"); }));
    QVERIFY(isNothingOffered());
    QVERIFY(m_current->isIn<Coordinator::Idle>());
    other.reset();
    m_offer->look();
    QVERIFY(isOffered(3));
    QCOMPARE(m_offer->problem(), QString());
}

void CutOffOfferTest::mayBeDestroyedMeanwhile()
{
    leave(3);
    m_offer->look();
    QVERIFY(isOffered(3));
    {
        const support::BusyWorkers workers;
        m_offer->makeClip();
        m_offer.reset();
    }
    QVERIFY(QThreadPool::globalInstance()->waitForDone());
    QCoreApplication::processEvents();
    QVERIFY(m_current->isIn<Coordinator::Idle>());
    QCOMPARE(journals(), 1U);
}

namespace {
const test::Registration<CutOffOfferTest> registeredCutOffOfferTest("CutOffOffer");
} // namespace

} // namespace quillbox

#include "CutOffOfferTest.moc"
