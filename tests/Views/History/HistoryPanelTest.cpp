#include "Views/History/HistoryPanel.h"

#include "HistoryFixture.h"
#include "support/QtTests.h"

#include <QApplication>
#include <QEnterEvent>
#include <QFile>
#include <QLabel>
#include <QScrollArea>
#include <QTest>

#include <algorithm>

namespace quillbox {
namespace {

using namespace test;

class HistoryPanelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void saysThatThereAreNoClipsYet();
    void hasNoClearButtonWhileEmpty();
    void showsARowForEachClipNewestFirst();
    void followsTheStore();
    void titlesARowWithTheFileName();
    void titlesARowWithoutAFileClip();
    void showsPresetSizeAndDuration();
    void showsOnlyThePresetWhenNothingElseIsKnown();
    void leavesOutWhatIsNotKnown();
    void showsAStackOfPhotosForAGIF();
    void showsAFilmForAnyOtherFormat_data();
    void showsAFilmForAnyOtherFormat();
    void revealsTheFileOfTheRow();
    void revealsAFileThatIsGone();
    void revealsNothingWithoutAFile();
    void namesTheRevealButton();
    void clearsAtOnceAndKeepsTheFiles();
    void elidesALongNameAndTellsItInTheToolTip();
    void showsMarkupInANameAsItStands();
    void keepsTheKeyboardOnTheClipWhenAnotherComesIn();
    void reachesEveryRowByTab();
    void scrollsToTheRowThatHasTheKeyboard();
    void copesWithTwoClipsOfTheSameIdentity();
    void highlightsTheRowUnderThePointer();
    void showsCharactersThatMisleadAsReplaced();
    void isAsHighAsItsRows();

private:
    std::unique_ptr<HistoryFixture> m_fixture;
};

void HistoryPanelTest::init()
{
    m_fixture = std::make_unique<HistoryFixture>();
    QVERIFY(QTest::qWaitForWindowActive(&m_fixture->panel));
}

void HistoryPanelTest::cleanup()
{
    m_fixture.reset();
}

void HistoryPanelTest::saysThatThereAreNoClipsYet()
{
    QCOMPARE(texts(m_fixture->panel),
        QStringList({"Recent Clips", "No clips yet", "Your recorded clips will show up here."}));
    QCOMPARE(symbolBeside(label(m_fixture->panel, "No clips yet"))->symbol(), Symbol::RectangleOnRectangleAngled);
}

void HistoryPanelTest::hasNoClearButtonWhileEmpty()
{
    QVERIFY(!button(m_fixture->panel, "Clear"));
    m_fixture->history->record(clip("/clips/a.gif"));
    QVERIFY(button(m_fixture->panel, "Clear"));
}

void HistoryPanelTest::showsARowForEachClipNewestFirst()
{
    for (const char* path : {"/clips/a.gif", "/clips/b.gif", "/clips/c.gif"})
        m_fixture->history->record(clip(path));
    QStringList titles;
    for (const HistoryRow* row : m_fixture->rows())
        titles.append(row->accessibleName());
    QCOMPARE(titles, QStringList({"c.gif", "b.gif", "a.gif"}));
    QVERIFY(!label(m_fixture->panel, "No clips yet"));
}

void HistoryPanelTest::followsTheStore()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    m_fixture->history->clear();
    QVERIFY(m_fixture->rows().isEmpty());
    m_fixture->history->record(clip("/clips/b.gif"));
    QCOMPARE(m_fixture->rows().size(), 1);
    QVERIFY(label(m_fixture->panel, "b.gif"));
}

void HistoryPanelTest::titlesARowWithTheFileName()
{
    m_fixture->history->record(clip("/home/anna/Videos/Quillbox/Quillbox 2026-11-16 at 09.05.07.gif"));
    QVERIFY(label(m_fixture->panel, "Quillbox 2026-11-16 at 09.05.07.gif"));
}

void HistoryPanelTest::titlesARowWithoutAFileClip()
{
    ClipEntry entry = clip(QString());
    entry.outputPath.reset();
    m_fixture->history->record(entry);
    QVERIFY(label(m_fixture->panel, "clip"));
}

void HistoryPanelTest::showsPresetSizeAndDuration()
{
    m_fixture->history->record(clip("/clips/a.gif", 1'234'567, 3.4));
    const TextLabel* details = label(m_fixture->panel, "Slack · 1.2 MB · 3.4s");
    QVERIFY(details);
    QCOMPARE(details->textStyle(), TextStyle::Callout);
    QCOMPARE(details->role(), Role::Secondary);
}

void HistoryPanelTest::showsOnlyThePresetWhenNothingElseIsKnown()
{
    ClipEntry entry = clip("/clips/a.gif");
    entry.byteCount.reset();
    entry.durationSeconds.reset();
    entry.preset = "some preset";
    m_fixture->history->record(entry);
    QVERIFY(label(m_fixture->panel, "some preset"));
}

void HistoryPanelTest::leavesOutWhatIsNotKnown()
{
    ClipEntry entry = clip("/clips/a.gif", 999'999, 12.25);
    entry.byteCount.reset();
    m_fixture->history->record(entry);
    QVERIFY(label(m_fixture->panel, "Slack · 12.2s"));
    entry.id = QUuid::createUuid();
    entry.byteCount = 999'999;
    entry.durationSeconds.reset();
    m_fixture->history->record(entry);
    QVERIFY(label(m_fixture->panel, "Slack · 1000 KB"));
}

void HistoryPanelTest::showsAStackOfPhotosForAGIF()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    const auto* symbol = m_fixture->rows().first()->findChild<SymbolLabel*>();
    QCOMPARE(symbol->symbol(), Symbol::PhotoStack);
    QCOMPARE(symbol->role(), Role::Accent);
}

void HistoryPanelTest::showsAFilmForAnyOtherFormat_data()
{
    QTest::addColumn<QString>("format");
    for (const char* format : {"gif", "Gif", "GIF ", "MP4", ""})
        QTest::newRow(format) << QString(format);
}

void HistoryPanelTest::showsAFilmForAnyOtherFormat()
{
    QFETCH(const QString, format);
    ClipEntry entry = clip("/clips/a.gif");
    entry.format = format;
    m_fixture->history->record(entry);
    QCOMPARE(m_fixture->rows().first()->findChild<SymbolLabel*>()->symbol(), Symbol::Film);
}

void HistoryPanelTest::revealsTheFileOfTheRow()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    m_fixture->history->record(clip("/clips/b.gif"));
    QTest::mouseClick(m_fixture->revealButton(1), Qt::LeftButton);
    QCOMPARE(m_fixture->reveal.revealed, QStringList("/clips/a.gif"));
}

void HistoryPanelTest::revealsAFileThatIsGone()
{
    const QString path = m_fixture->folder.filePath("gone.gif");
    QVERIFY(!QFile::exists(path));
    m_fixture->history->record(clip(path));
    QTest::mouseClick(m_fixture->revealButton(0), Qt::LeftButton);
    QCOMPARE(m_fixture->reveal.revealed, QStringList(path));
}

void HistoryPanelTest::revealsNothingWithoutAFile()
{
    ClipEntry entry = clip(QString());
    entry.outputPath.reset();
    m_fixture->history->record(entry);
    QTest::mouseClick(m_fixture->revealButton(0), Qt::LeftButton);
    QVERIFY(m_fixture->reveal.revealed.isEmpty());
}

void HistoryPanelTest::namesTheRevealButton()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    const FlatButton* reveal = m_fixture->revealButton(0);
    QCOMPARE(reveal->toolTip(), QString("Reveal in Finder"));
    QCOMPARE(reveal->accessibleName(), QString("Reveal in Finder"));
    QCOMPARE(reveal->accessibleDescription(), QString("a.gif"));
    QCOMPARE(reveal->symbol(), std::optional(Symbol::MagnifyingglassCircle));
}

void HistoryPanelTest::clearsAtOnceAndKeepsTheFiles()
{
    const QString path = m_fixture->folder.filePath("a.gif");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    m_fixture->history->record(clip(path));
    QTest::mouseClick(button(m_fixture->panel, "Clear"), Qt::LeftButton);
    QVERIFY(m_fixture->history->entries().empty());
    QVERIFY(label(m_fixture->panel, "No clips yet"));
    QVERIFY(!button(m_fixture->panel, "Clear"));
    QVERIFY(QFile::exists(path));
}

void HistoryPanelTest::elidesALongNameAndTellsItInTheToolTip()
{
    const QString name = QString(200, 'x') + ".gif";
    m_fixture->history->record(clip("/clips/" + name));
    const TextLabel* title = label(m_fixture->panel, name);
    QVERIFY(title);
    QCOMPARE(title->overflow(), TextLabel::Overflow::ElideMiddle);
    QCOMPARE(title->toolTip(), name);
    QVERIFY(m_fixture->rows().first()->width() <= m_fixture->panel.width());
    QVERIFY(m_fixture->revealButton(0)->mapTo(&m_fixture->panel, m_fixture->revealButton(0)->rect().topRight()).x()
        < m_fixture->panel.width());
}

void HistoryPanelTest::showsMarkupInANameAsItStands()
{
    m_fixture->history->record(clip("/clips/<b>bold<b>.gif"));
    const TextLabel* title = label(m_fixture->panel, "<b>bold<b>.gif");
    QVERIFY(title);
    QCOMPARE(title->textFormat(), Qt::PlainText);
    QCOMPARE(title->toolTip(), QString("<qt>&lt;b&gt;bold&lt;b&gt;.gif</qt>"));
}

void HistoryPanelTest::keepsTheKeyboardOnTheClipWhenAnotherComesIn()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    QWidget* focused = m_fixture->revealButton(0);
    focused->setFocus();
    m_fixture->history->record(clip("/clips/b.gif"));
    QCOMPARE(QApplication::focusWidget(), focused);
    QCOMPARE(focused->accessibleDescription(), QString("a.gif"));
    QTest::keyClick(focused, Qt::Key_Return);
    QCOMPARE(m_fixture->reveal.revealed, QStringList("/clips/a.gif"));
}

void HistoryPanelTest::reachesEveryRowByTab()
{
    for (const char* path : {"/clips/a.gif", "/clips/b.gif", "/clips/c.gif"})
        m_fixture->history->record(clip(path));
    button(m_fixture->panel, "Clear")->setFocus();
    QStringList reached;
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        reached.append(QApplication::focusWidget()->accessibleDescription());
    }
    QCOMPARE(reached, QStringList({"c.gif", "b.gif", "a.gif"}));
}

void HistoryPanelTest::scrollsToTheRowThatHasTheKeyboard()
{
    for (int i = 0; i < HistoryStore::cap; ++i)
        m_fixture->history->record(clip(QString("/clips/%1.gif").arg(i)));
    QCOMPARE(m_fixture->rows().size(), HistoryStore::cap);
    button(m_fixture->panel, "Clear")->setFocus();
    for (int i = 0; i < HistoryStore::cap; ++i)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    const auto* list = m_fixture->panel.findChild<QScrollArea*>();
    const QWidget* last = m_fixture->rows().last();
    QCOMPARE(QApplication::focusWidget()->parentWidget(), last);
    const QRect seen(last->mapTo(list->viewport(), QPoint(0, 0)), last->size());
    QVERIFY(list->viewport()->rect().contains(seen));
}

void HistoryPanelTest::copesWithTwoClipsOfTheSameIdentity()
{
    ClipEntry first = clip("/clips/a.gif");
    ClipEntry second = clip("/clips/b.gif");
    second.id = first.id;
    m_fixture->history->record(first);
    m_fixture->history->record(second);
    QCOMPARE(m_fixture->rows().size(), 2);
    QTest::mouseClick(m_fixture->revealButton(0), Qt::LeftButton);
    QTest::mouseClick(m_fixture->revealButton(1), Qt::LeftButton);
    QCOMPARE(m_fixture->reveal.revealed, QStringList({"/clips/b.gif", "/clips/a.gif"}));
}

void HistoryPanelTest::highlightsTheRowUnderThePointer()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    HistoryRow* row = m_fixture->rows().first();
    const QPoint blank(3, row->height() / 2);
    const QColor before = row->grab().toImage().pixelColor(blank);
    QEnterEvent enter(blank, blank, row->mapToGlobal(blank));
    QCoreApplication::sendEvent(row, &enter);
    const QColor hovered = row->grab().toImage().pixelColor(blank);
    QCOMPARE(hovered, Theme(QApplication::palette()).hovered());
    QVERIFY(hovered != before);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(row, &leave);
    QCOMPARE(row->grab().toImage().pixelColor(blank), before);
}

void HistoryPanelTest::showsCharactersThatMisleadAsReplaced()
{
    m_fixture->history->record(clip(QString("/clips/a\u202Efig.exe\n\u200B\u2066\u0007.gif")));
    QVERIFY(label(m_fixture->panel, QString("a\uFFFDfig.exe\uFFFD\uFFFD\uFFFD\uFFFD.gif")));
    const QString spelt("شما می\u200Cروید ✓.gif"); // with a non-joiner, as it has to be
    m_fixture->history->record(clip("/clips/" + spelt));
    QVERIFY(label(m_fixture->panel, spelt));
}

void HistoryPanelTest::isAsHighAsItsRows()
{
    for (int i = 0; i < 6; ++i)
        m_fixture->history->record(clip(QString("/clips/%1.gif").arg(i)));
    const int six = m_fixture->panel.sizeHint().height();
    const int row = m_fixture->rows().first()->sizeHint().height();
    QCOMPARE(m_fixture->panel.spareHeight(), row * 3 / 2);
    m_fixture->history->record(clip("/clips/7.gif"));
    QCOMPARE(m_fixture->panel.sizeHint().height(), six + row);
}

const test::Registration<HistoryPanelTest> registeredHistoryPanelTest("HistoryPanel");

} // namespace
} // namespace quillbox

#include "HistoryPanelTest.moc"
