#include "Views/CutOffLine.h"

#include "CutOffJournal.h"
#include "Find.h"
#include "support/TemporaryFolder.h"
#include "TextCheck.h"
#include "ViewsFixture.h"

#include "App/Workflow/CutOffOffer.h"
#include "support/QtTests.h"
#include "Translation/Catalogues.h"
#include "Views/Panel.h"

#include <QTest>
#include <QTime>

#include <filesystem>

namespace quillbox {
namespace {

using namespace test;

class CutOffLineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void isHiddenWhereNothingWasCutOff();
    void tellsWhenARecordingBeganAndHowLongItIs();
    void makesTheClip();
    void offersNoClipWhileOneIsMade();
    void asksBeforeItDiscards();
    void tellsThatOneIsDamaged();
    void isPartOfThePanel();
    void cutsNoTextOffInAnyLanguage();

private:
    [[nodiscard]] std::filesystem::path folder() const { return m_folder->path() / "cache"; }
    [[nodiscard]] bool isLeft() const { return !std::filesystem::is_empty(folder()); }
    void leave(int frames)
    {
        leaveJournal(folder(), std::vector(static_cast<std::size_t>(frames), RGBAFrame(2, 1, Bytes(8, 90))));
        m_offer->look();
        QTRY_VERIFY(!m_line->isHidden());
    }
    [[nodiscard]] FlatButton* named(const char* label) const { return button(*m_line, label); }

    std::unique_ptr<support::TemporaryFolder> m_folder;
    std::unique_ptr<ViewsFixture> m_fixture;
    std::unique_ptr<CutOffOffer> m_offer;
    std::unique_ptr<CutOffLine> m_line;
};

void CutOffLineTest::init()
{
    m_folder = std::make_unique<support::TemporaryFolder>();
    m_fixture = std::make_unique<ViewsFixture>();
    m_offer = std::make_unique<CutOffOffer>(m_fixture->coordinator, folder());
    m_line = std::make_unique<CutOffLine>(*m_offer);
}

void CutOffLineTest::cleanup()
{
    QTRY_VERIFY(!m_fixture->coordinator.isBusy());
    m_line.reset();
    m_offer.reset();
    m_fixture.reset();
    m_folder.reset();
}

void CutOffLineTest::isHiddenWhereNothingWasCutOff()
{
    m_offer->look();
    QTest::qWait(0);
    QVERIFY(m_line->isHidden());
}

void CutOffLineTest::tellsWhenARecordingBeganAndHowLongItIs()
{
    const auto before = QTime::currentTime();
    leave(76);
    const auto after = QTime::currentTime();
    const auto told = [](QTime time) {
        return QStringLiteral("A recording from %1 was cut off (3 s).").arg(time.toString("HH:mm"));
    };
    const auto shown = texts(*m_line);
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown.at(0) == told(before) || shown.at(0) == told(after), qPrintable(shown.at(0)));
}

void CutOffLineTest::makesTheClip()
{
    leave(2);
    named("Make the clip")->click();
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    QTRY_VERIFY(m_line->isHidden());
    QVERIFY(!isLeft());
    QCOMPARE(m_fixture->history->entries().size(), 1U);
}

void CutOffLineTest::offersNoClipWhileOneIsMade()
{
    leave(2);
    m_fixture->record();
    QVERIFY(!named("Make the clip")->isEnabled());
    m_fixture->coordinator.stop();
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    QVERIFY(named("Make the clip")->isEnabled());
}

void CutOffLineTest::asksBeforeItDiscards()
{
    leave(2);
    named("Discard")->click();
    QVERIFY(!named("Make the clip"));
    named("Keep it")->click();
    QVERIFY(named("Make the clip"));
    QVERIFY(isLeft());
    named("Discard")->click();
    named("Discard for good")->click();
    QTRY_VERIFY(m_line->isHidden());
    QVERIFY(!isLeft());
}

void CutOffLineTest::tellsThatOneIsDamaged()
{
    std::filesystem::create_directories(folder());
    support::writeFile(folder() / "recording-1-2.journal", Bytes(1000, 1));
    m_offer->look();
    QTRY_VERIFY(!m_line->isHidden());
    QCOMPARE(texts(*m_line), QStringList("A recording was cut off and is damaged; nothing can be made of it."));
    QVERIFY(!named("Make the clip"));
    QVERIFY(named("Discard"));
}

void CutOffLineTest::isPartOfThePanel()
{
    Panel panel(m_fixture->coordinator, m_fixture->updater, *m_fixture->history, m_fixture->reveal);
    panel.showCutOff(*m_offer);
    QVERIFY(!button(panel, "Make the clip"));
    leave(2);
    QVERIFY(button(panel, "Make the clip"));
    const auto place = [&](const char* label) {
        return button(panel, label)->mapTo(&panel, QPoint()).y();
    };
    panel.openNear({}, {0, 0, 1280, 800});
    QVERIFY(place("Make the clip") > place("Record Region"));
}

void CutOffLineTest::cutsNoTextOffInAnyLanguage()
{
    leave(2);
    for (const QString& language : Catalogues::languages()) {
        Catalogues::use(language);
        Panel panel(m_fixture->coordinator, m_fixture->updater, *m_fixture->history, m_fixture->reveal);
        panel.showCutOff(*m_offer);
        panel.openNear({}, {0, 0, 1280, 800});
        QCOMPARE(clippedTexts(panel), QStringList());
        const auto buttons = visible<FlatButton>(*panel.findChild<CutOffLine*>());
        QCOMPARE(buttons.size(), 2);
        buttons.at(1)->click();
        QCoreApplication::processEvents();
        QCOMPARE(clippedTexts(panel), QStringList());
        QVERIFY2(panel.width() <= 440, qPrintable(language));
    }
    Catalogues::use("en");
}

const test::Registration<CutOffLineTest> registeredCutOffLineTest("CutOffLine");

} // namespace
} // namespace quillbox

#include "CutOffLineTest.moc"
