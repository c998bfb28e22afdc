#include "Views/History/HistoryPanel.h"

#include "Find.h"
#include "ViewsFixture.h"
#include "ViewTests.h"

#include "Encoding/GIFOptimizer.h"
#include "Views/History/ClipPreview.h"
#include "Views/History/HistoryNotice.h"
#include "Views/History/HistoryRow.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QEnterEvent>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QMovie>
#include <QScrollArea>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <iterator>

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
    void offersToUndoClearingForAWhile();
    void asksBeforeAClipIsMovedToTheTrash();
    void doesNotMoveWhatTheUserKeeps();
    void hasAMenuOnEachRow();
    void copiesAClipByItsKey();
    void opensAClipByItsKey();
    void saysThatAClipCanNotBeRead();
    void showsCharactersThatMisleadAsReplaced();
    void showsTheClipThatThePointerRestsOn();
    void showsNoPreviewWhileItIsSwitchedOff();
    void isAsHighAsItsRows();

private:
    [[nodiscard]] QList<HistoryRow*> rows() const;
    /// Puts a GIF of 400 × 300 pixels into the folder and the history. @return its path
    [[nodiscard]] QString saveClip() const;
    void hover(int row) const;
    Q_INVOKABLE void open(const QUrl& url) { m_opened = url; }
    [[nodiscard]] FlatButton* revealButton(int row) const { return rows().at(row)->findChild<FlatButton*>(); }

    std::unique_ptr<ViewsFixture> m_fixture;
    std::unique_ptr<HistoryPanel> m_panel;
    QUrl m_opened;
};

void HistoryPanelTest::init()
{
    m_fixture = std::make_unique<ViewsFixture>();
    m_panel = std::make_unique<HistoryPanel>(*m_fixture->history, m_fixture->reveal);
    m_panel->resize(384, 240);
    m_panel->show();
    m_panel->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
}

void HistoryPanelTest::cleanup()
{
    m_panel.reset();
    m_fixture.reset();
}

QList<HistoryRow*> HistoryPanelTest::rows() const
{
    QCoreApplication::sendPostedEvents(); // lay out
    QList<HistoryRow*> result = visible<HistoryRow>(*m_panel);
    std::sort(result.begin(), result.end(), [](const HistoryRow* a, const HistoryRow* b) { return a->y() < b->y(); });
    return result;
}

void HistoryPanelTest::saysThatThereAreNoClipsYet()
{
    QCOMPARE(texts(*m_panel), QStringList({"Recent Clips", "No clips yet", "Your recorded clips will show up here."}));
    QCOMPARE(symbolBeside(label(*m_panel, "No clips yet"))->symbol(), Symbol::RectangleOnRectangleAngled);
}

void HistoryPanelTest::hasNoClearButtonWhileEmpty()
{
    QVERIFY(!button(*m_panel, "Clear"));
    m_fixture->history->record(clip("/clips/a.gif"));
    QVERIFY(button(*m_panel, "Clear"));
}

void HistoryPanelTest::showsARowForEachClipNewestFirst()
{
    for (const char* path : {"/clips/a.gif", "/clips/b.gif", "/clips/c.gif"})
        m_fixture->history->record(clip(path));
    QStringList titles;
    for (const HistoryRow* row : rows())
        titles.append(row->accessibleName());
    QCOMPARE(titles, QStringList({"c.gif", "b.gif", "a.gif"}));
    QVERIFY(!label(*m_panel, "No clips yet"));
}

void HistoryPanelTest::followsTheStore()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    m_fixture->history->clear();
    QVERIFY(rows().isEmpty());
    m_fixture->history->record(clip("/clips/b.gif"));
    QCOMPARE(rows().size(), 1);
    QVERIFY(label(*m_panel, "b.gif"));
}

void HistoryPanelTest::titlesARowWithTheFileName()
{
    m_fixture->history->record(clip("/home/anna/Videos/Quillbox/Quillbox 2026-11-16 at 09.05.07.gif"));
    QVERIFY(label(*m_panel, "Quillbox 2026-11-16 at 09.05.07.gif"));
}

void HistoryPanelTest::titlesARowWithoutAFileClip()
{
    ClipEntry entry = clip(QString());
    entry.outputPath.reset();
    m_fixture->history->record(entry);
    QVERIFY(label(*m_panel, "clip"));
}

void HistoryPanelTest::showsPresetSizeAndDuration()
{
    m_fixture->history->record(clip("/clips/a.gif", 1'234'567, 3.4));
    const TextLabel* details = label(*m_panel, "Slack · 1.2 MB · 3.4s");
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
    QVERIFY(label(*m_panel, "some preset"));
}

void HistoryPanelTest::leavesOutWhatIsNotKnown()
{
    ClipEntry entry = clip("/clips/a.gif", 999'999, 12.25);
    entry.byteCount.reset();
    m_fixture->history->record(entry);
    QVERIFY(label(*m_panel, "Slack · 12.2s"));
    entry.id = QUuid::createUuid();
    entry.byteCount = 999'999;
    entry.durationSeconds.reset();
    m_fixture->history->record(entry);
    QVERIFY(label(*m_panel, "Slack · 1000 KB"));
}

void HistoryPanelTest::showsAStackOfPhotosForAGIF()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    const auto* symbol = rows().first()->findChild<SymbolLabel*>();
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
    QCOMPARE(rows().first()->findChild<SymbolLabel*>()->symbol(), Symbol::Film);
}

void HistoryPanelTest::revealsTheFileOfTheRow()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    m_fixture->history->record(clip("/clips/b.gif"));
    QTest::mouseClick(revealButton(1), Qt::LeftButton);
    QCOMPARE(m_fixture->reveal.revealed, QStringList("/clips/a.gif"));
}

void HistoryPanelTest::revealsAFileThatIsGone()
{
    const QString path = m_fixture->folder.filePath("gone.gif");
    QVERIFY(!QFile::exists(path));
    m_fixture->history->record(clip(path));
    QTest::mouseClick(revealButton(0), Qt::LeftButton);
    QCOMPARE(m_fixture->reveal.revealed, QStringList(path));
}

void HistoryPanelTest::revealsNothingWithoutAFile()
{
    ClipEntry entry = clip(QString());
    entry.outputPath.reset();
    m_fixture->history->record(entry);
    QTest::mouseClick(revealButton(0), Qt::LeftButton);
    QVERIFY(m_fixture->reveal.revealed.isEmpty());
}

void HistoryPanelTest::namesTheRevealButton()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    const FlatButton* reveal = revealButton(0);
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
    QTest::mouseClick(button(*m_panel, "Clear"), Qt::LeftButton);
    QVERIFY(m_fixture->history->entries().empty());
    QVERIFY(label(*m_panel, "No clips yet"));
    QVERIFY(!button(*m_panel, "Clear"));
    QVERIFY(QFile::exists(path));
}

void HistoryPanelTest::elidesALongNameAndTellsItInTheToolTip()
{
    const QString name = QString(200, 'x') + ".gif";
    m_fixture->history->record(clip("/clips/" + name));
    const TextLabel* title = label(*m_panel, name);
    QVERIFY(title);
    QCOMPARE(title->overflow(), TextLabel::Overflow::ElideMiddle);
    QCOMPARE(title->toolTip(), name);
    QVERIFY(rows().first()->width() <= m_panel->width());
    QVERIFY(revealButton(0)->mapTo(m_panel.get(), revealButton(0)->rect().topRight()).x() < m_panel->width());
}

void HistoryPanelTest::showsMarkupInANameAsItStands()
{
    m_fixture->history->record(clip("/clips/<b>bold<b>.gif"));
    const TextLabel* title = label(*m_panel, "<b>bold<b>.gif");
    QVERIFY(title);
    QCOMPARE(title->textFormat(), Qt::PlainText);
    QCOMPARE(title->toolTip(), QString("<qt>&lt;b&gt;bold&lt;b&gt;.gif</qt>"));
}

void HistoryPanelTest::keepsTheKeyboardOnTheClipWhenAnotherComesIn()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    QWidget* focused = revealButton(0);
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
    button(*m_panel, "Clear")->setFocus();
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
    QCOMPARE(rows().size(), HistoryStore::cap);
    button(*m_panel, "Clear")->setFocus();
    for (int i = 0; i < HistoryStore::cap; ++i)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    const auto* list = m_panel->findChild<QScrollArea*>();
    const QWidget* last = rows().last();
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
    QCOMPARE(rows().size(), 2);
    QTest::mouseClick(revealButton(0), Qt::LeftButton);
    QTest::mouseClick(revealButton(1), Qt::LeftButton);
    QCOMPARE(m_fixture->reveal.revealed, QStringList({"/clips/b.gif", "/clips/a.gif"}));
}

void HistoryPanelTest::highlightsTheRowUnderThePointer()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    HistoryRow* row = rows().first();
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

QString HistoryPanelTest::saveClip() const
{
    const std::vector<RGBAFrame> frames(1, RGBAFrame(400, 300, Bytes(std::size_t{400} * 300 * 4, 99)));
    const auto gif = GIFOptimizer::optimize(frames, {});
    const QString path = m_fixture->folder.filePath("a.gif");
    QFile file(path);
    const auto* const bytes = reinterpret_cast<const char*>(gif.data.data());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes, std::ssize(gif.data)) < 0)
        qFatal("the clip can't be saved");
    m_fixture->history->record(clip(path));
    return path;
}

void HistoryPanelTest::hover(int row) const
{
    const QPoint blank(3, 3);
    QEnterEvent enter(blank, blank, rows().at(row)->mapToGlobal(blank));
    QCoreApplication::sendEvent(rows().at(row), &enter);
}

void HistoryPanelTest::offersToUndoClearingForAWhile()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    m_fixture->history->record(clip("/clips/b.gif"));
    const auto before = m_fixture->history->entries();
    QTest::mouseClick(button(*m_panel, "Clear"), Qt::LeftButton);
    m_fixture->history->record(clip("/clips/c.gif")); // meanwhile
    QTest::mouseClick(button(*m_panel, "Undo"), Qt::LeftButton);
    QCOMPARE(m_fixture->history->entries().size(), 3U);
    QVERIFY(std::equal(before.begin(), before.end(), m_fixture->history->entries().begin() + 1));
    QVERIFY(!button(*m_panel, "Undo"));

    QTest::mouseClick(button(*m_panel, "Clear"), Qt::LeftButton);
    auto* const end = m_panel->findChild<HistoryNotice*>()->findChild<QTimer*>();
    QCOMPARE(end->interval(), 10'000);
    QVERIFY(button(*m_panel, "Undo"));
    end->start(0);
    QTRY_VERIFY(!button(*m_panel, "Undo"));
    QVERIFY(m_fixture->history->entries().empty());
}

void HistoryPanelTest::asksBeforeAClipIsMovedToTheTrash()
{
    const QString path = saveClip();
    QTest::keyClick(revealButton(0), Qt::Key_Delete);
    QVERIFY(label(*m_panel, "Move “a.gif” to the trash?"));
    QVERIFY(QFile::exists(path));
    QTest::mouseClick(button(*m_panel, "Move to Trash"), Qt::LeftButton);
    QVERIFY(!QFile::exists(path));
    const auto data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    QVERIFY(QFile::exists(data + "/Trash/files/a.gif"));
    QVERIFY(m_fixture->history->entries().empty());
    QVERIFY(!button(*m_panel, "Move to Trash"));
}

void HistoryPanelTest::doesNotMoveWhatTheUserKeeps()
{
    const QString path = saveClip();
    QTest::keyClick(revealButton(0), Qt::Key_Delete);
    QCOMPARE(QApplication::focusWidget(), button(*m_panel, "Cancel"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(!button(*m_panel, "Move to Trash"));
    QVERIFY(QFile::exists(path));
    QCOMPARE(m_fixture->history->entries().size(), 1U);
}

void HistoryPanelTest::hasAMenuOnEachRow()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
    QCoreApplication::sendEvent(revealButton(0), &event);
    const auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QStringList items;
    for (const QAction* each : menu->actions())
        items.append(each->text());
    QCOMPARE(items, QStringList({"Copy", "Open", "Show", "", "Move to Trash…"}));
    menu->actions().at(2)->trigger();
    QCOMPARE(m_fixture->reveal.revealed, QStringList("/clips/a.gif"));
    QApplication::activePopupWidget()->close();
}

void HistoryPanelTest::copiesAClipByItsKey()
{
    const QString path = saveClip();
    QTest::keyClick(revealButton(0), Qt::Key_C, Qt::ControlModifier);
    const auto pasted = [] {
        const auto* const contents = QApplication::clipboard()->mimeData(); // null at first
        return contents == nullptr ? QList<QUrl>() : contents->urls();
    };
    QTRY_COMPARE(pasted(), QList<QUrl>{QUrl::fromLocalFile(path)});
    QVERIFY(QApplication::clipboard()->mimeData()->data("image/gif").startsWith("GIF89a"));
}

void HistoryPanelTest::opensAClipByItsKey()
{
    QDesktopServices::setUrlHandler("file", this, "open");
    m_fixture->history->record(clip("/clips/a.gif"));
    QTest::keyClick(revealButton(0), Qt::Key_O, Qt::ControlModifier);
    QDesktopServices::unsetUrlHandler("file");
    QCOMPARE(m_opened, QUrl("file:///clips/a.gif"));
}

void HistoryPanelTest::saysThatAClipCanNotBeRead()
{
    m_fixture->history->record(clip("/dev/zero"));
    QTest::keyClick(revealButton(0), Qt::Key_C, Qt::ControlModifier);
    QTRY_VERIFY(label(*m_panel, "The clip can't be read."));
}

void HistoryPanelTest::showsCharactersThatMisleadAsReplaced()
{
    m_fixture->history->record(clip(QString("/clips/a\u202Efig.exe\n\u200B\u2066\u0007.gif")));
    QVERIFY(label(*m_panel, QString("a\uFFFDfig.exe\uFFFD\uFFFD\uFFFD\uFFFD.gif")));
    const QString spelt("شما می\u200Cروید ✓.gif"); // with a non-joiner, as it has to be
    m_fixture->history->record(clip("/clips/" + spelt));
    QVERIFY(label(*m_panel, spelt));
}

void HistoryPanelTest::showsTheClipThatThePointerRestsOn()
{
    (void)saveClip();
    auto* const preview = m_panel->findChild<ClipPreview*>();
    hover(0);
    QVERIFY(!preview->isVisible());
    preview->findChild<QTimer*>()->start(0);
    QTRY_VERIFY(preview->isVisible());
    QVERIFY(label(*preview, "400 × 300 pixels"));
    const auto* const picture = preview->findChild<QLabel*>();
    QCOMPARE(picture->size(), QSize(288, 216));
    QCOMPARE(picture->movie()->state(), QMovie::Running);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(rows().first(), &leave);
    QVERIFY(!preview->isVisible());
    hover(0);
    preview->findChild<QTimer*>()->start(0);
    QTRY_VERIFY(preview->isVisible());
    m_panel->hide();
    QVERIFY(!preview->isVisible());
}

void HistoryPanelTest::showsNoPreviewWhileItIsSwitchedOff()
{
    (void)saveClip();
    const auto* const rest = m_panel->findChild<ClipPreview*>()->findChild<QTimer*>();
    hover(0);
    QVERIFY(rest->isActive());
    m_panel->setPreviewing(false);
    QVERIFY(!rest->isActive());
    hover(0);
    QVERIFY(!rest->isActive());
}

void HistoryPanelTest::isAsHighAsItsRows()
{
    for (int i = 0; i < 6; ++i)
        m_fixture->history->record(clip(QString("/clips/%1.gif").arg(i)));
    const int six = m_panel->sizeHint().height();
    const int row = rows().first()->sizeHint().height();
    QCOMPARE(m_panel->spareHeight(), row * 3 / 2);
    m_fixture->history->record(clip("/clips/7.gif"));
    QCOMPARE(m_panel->sizeHint().height(), six + row);
}

const test::Registration<HistoryPanelTest> registeredHistoryPanelTest("HistoryPanel");

} // namespace
} // namespace quillbox

#include "HistoryPanelTest.moc"
