#include "Views/ClipOffers.h"

#include "Find.h"
#include "support/BusyWorkers.h"
#include "support/HardClip.h"
#include "Views/ByteFormat.h"
#include "ViewsFixture.h"

#include "support/QtTests.h"
#include "Translation/Catalogues.h"

#include <QLocale>
#include <QSignalSpy>
#include <QTest>

namespace quillbox {
namespace {

using namespace test;

class ClipOffersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void areHiddenBeforeThereIsAClip();
    void makeAClipSharper();
    void makeNothingSharperThatIsPrecise();
    void makeAClipForAnotherPreset();
    void makeItForAnotherPresetAsPreciselyAsBefore();
    void tellWhichPicturesAreMissing();
    void writeNumbersAsTheUserDoes();
    void tellHowMuchTooLargeAClipIs();
    void areHiddenWhileAClipIsMade();
    void tryAgainWhatCouldNotBeSaved();
    void askWhereElseItGoes();
    void offerNothingWithoutFrames();
    void areReachableByTab();

private:
    [[nodiscard]] FlatButton* offer(const char* label) const { return button(*m_offers, QString::fromUtf8(label)); }
    [[nodiscard]] const FinishedClip& clip() const { return *m_fixture->coordinator.finishedClip(); }

    std::unique_ptr<ViewsFixture> m_fixture;
    std::unique_ptr<ClipOffers> m_offers;
};

void ClipOffersTest::init()
{
    Catalogues::use("en"); // for plurals
    m_fixture = std::make_unique<ViewsFixture>();
    m_offers = std::make_unique<ClipOffers>(m_fixture->coordinator);
}

void ClipOffersTest::cleanup()
{
    QTRY_VERIFY(!m_fixture->coordinator.isBusy());
    QLocale::setDefault(QLocale::c());
    m_offers.reset();
    m_fixture.reset();
}

void ClipOffersTest::areHiddenBeforeThereIsAClip()
{
    QVERIFY(m_offers->isHidden());
}

void ClipOffersTest::makeAClipSharper()
{
    m_fixture->finish();
    QVERIFY(!m_offers->isHidden());
    QCOMPARE(texts(*m_offers), QStringList()); // nothing is missing
    const auto first = clip();
    offer("Make it sharper")->click();
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    QVERIFY(clip().request == (ClipRequest{.preset = ExportPreset::slack, .isPrecise = true}));
    QVERIFY(clip().path != first.path);
    QCOMPARE(m_fixture->history->entries().size(), 2U);
}

void ClipOffersTest::makeNothingSharperThatIsPrecise()
{
    m_fixture->coordinator.setKeepsEveryChange(true);
    m_fixture->finish();
    QVERIFY(m_offers->isHidden());
}

void ClipOffersTest::makeAClipForAnotherPreset()
{
    m_fixture->finish();
    m_fixture->coordinator.get().setPreset(ExportPreset::github);
    QVERIFY(!offer("Make it sharper"));
    offer("Again as GitHub")->click();
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    QVERIFY(clip().request == (ClipRequest{.preset = ExportPreset::github}));
    QVERIFY(offer("Make it sharper"));
    m_fixture->coordinator.get().setPreset(ExportPreset::docs);
    QVERIFY(offer("Again as Docs"));
}

void ClipOffersTest::makeItForAnotherPresetAsPreciselyAsBefore()
{
    m_fixture->coordinator.setKeepsEveryChange(true);
    m_fixture->finish();
    m_fixture->coordinator.setKeepsEveryChange(false);
    m_fixture->coordinator.get().setPreset(ExportPreset::docs);
    offer("Again as Docs")->click();
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    QVERIFY(clip().request == (ClipRequest{.preset = ExportPreset::docs, .isPrecise = true}));
}

void ClipOffersTest::tellWhichPicturesAreMissing()
{
    m_fixture->recorder->frames = smallChanges(30);
    m_fixture->finish();
    const auto size = QString::number(clip().byteCount) + " B";
    QCOMPARE(texts(*m_offers), QStringList(size + " of 2.0 MB · shows 1 of 30 recorded pictures"));
    offer("Make it sharper")->click();
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    QCOMPARE(clip().shownPictures, 30);
    QVERIFY(m_offers->isHidden());
}

void ClipOffersTest::writeNumbersAsTheUserDoes()
{
    QLocale::setDefault(QLocale(QLocale::German));
    m_fixture->recorder->frames = smallChanges(30);
    m_fixture->finish();
    QVERIFY(texts(*m_offers).at(0).contains(" of 2,0 MB · "));
}

void ClipOffersTest::tellHowMuchTooLargeAClipIs()
{
    m_fixture->recorder->frames = support::hardClip();
    {
        const support::BusyWorkers workers;
        m_fixture->process();
        m_fixture->coordinator.finishNow(); // with the first attempt
    }
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    QVERIFY(clip().exceedsBudget());
    const auto excess = ByteFormat::inLocale(clip().byteCount - 2'000'000);
    const auto* const line = visible<TextLabel>(*m_offers).at(0);
    QVERIFY2(line->text().startsWith(excess + " over the 2.0 MB budget of Slack · shows "), qPrintable(line->text()));
    QVERIFY(line->text().endsWith(" recorded pictures"));
    QCOMPARE(line->role(), Role::Amber);
}

void ClipOffersTest::areHiddenWhileAClipIsMade()
{
    m_fixture->finish();
    const support::BusyWorkers workers;
    offer("Make it sharper")->click();
    QVERIFY(m_fixture->isIn<RecordingCoordinator::Processing>());
    QVERIFY(m_offers->isHidden());
}

void ClipOffersTest::tryAgainWhatCouldNotBeSaved()
{
    {
        const ClipsFolderInTheWay obstacle;
        m_fixture->stopInVain();
        offer("Try again")->click();
        QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Failed>());
        QVERIFY(offer("Try again"));
    }
    offer("Try again")->click();
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    QVERIFY(!offer("Try again"));
    QVERIFY(!offer("Save elsewhere…"));
    QVERIFY(offer("Make it sharper"));
}

void ClipOffersTest::askWhereElseItGoes()
{
    const ClipsFolderInTheWay obstacle;
    m_fixture->stopInVain();
    const QSignalSpy requests(m_offers.get(), &ClipOffers::saveElsewhereRequested);
    offer("Save elsewhere…")->click();
    QCOMPARE(requests.size(), 1);
}

void ClipOffersTest::offerNothingWithoutFrames()
{
    m_fixture->recorder->frames.clear();
    m_fixture->stopInVain();
    QVERIFY(m_offers->isHidden());
}

void ClipOffersTest::areReachableByTab()
{
    m_fixture->finish();
    QCOMPARE(offer("Make it sharper")->focusPolicy(), Qt::StrongFocus);
    QCOMPARE(offer("Make it sharper")->kind(), FlatButton::Kind::Link);
}

const test::Registration<ClipOffersTest> registeredClipOffersTest("ClipOffers");

} // namespace
} // namespace quillbox

#include "ClipOffersTest.moc"
