#include "Views/History/ClipActions.h"

#include "HistoryFixture.h"

#include "Encoding/GIFOptimizer.h"
#include "support/QtTests.h"
#include "Views/History/ClipPreview.h"
#include "Views/History/HistoryNotice.h"

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
#include <QStandardPaths>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <iterator>

namespace quillbox {
namespace {

using namespace test;

/// What can be done with the clips of the history.
class ClipActionsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void offersToUndoClearingForAWhile();
    void asksBeforeAClipIsMovedToTheTrash();
    void doesNotMoveWhatTheUserKeeps();
    void hasAMenuOnEachRow();
    void copiesAClipByItsKey();
    void opensAClipByItsKey();
    void saysThatAClipCanNotBeRead();
    void showsTheClipThatThePointerRestsOn();
    void showsNoPreviewWhileItIsSwitchedOff();

private:
    /// Puts a GIF of 400 × 300 pixels into the folder and the history. @return its path
    [[nodiscard]] QString saveClip() const;
    void hover(int row) const;
    Q_INVOKABLE void open(const QUrl& url) { m_opened = url; }

    QUrl m_opened;
    std::unique_ptr<HistoryFixture> m_fixture;
};

void ClipActionsTest::init()
{
    m_fixture = std::make_unique<HistoryFixture>();
    QVERIFY(QTest::qWaitForWindowActive(&m_fixture->panel));
}

void ClipActionsTest::cleanup()
{
    m_fixture.reset();
}

QString ClipActionsTest::saveClip() const
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

void ClipActionsTest::hover(int row) const
{
    const QPoint blank(3, 3);
    QEnterEvent enter(blank, blank, m_fixture->rows().at(row)->mapToGlobal(blank));
    QCoreApplication::sendEvent(m_fixture->rows().at(row), &enter);
}

void ClipActionsTest::offersToUndoClearingForAWhile()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    m_fixture->history->record(clip("/clips/b.gif"));
    const auto before = m_fixture->history->entries();
    QTest::mouseClick(button(m_fixture->panel, "Clear"), Qt::LeftButton);
    m_fixture->history->record(clip("/clips/c.gif")); // meanwhile
    QTest::mouseClick(button(m_fixture->panel, "Undo"), Qt::LeftButton);
    QCOMPARE(m_fixture->history->entries().size(), 3U);
    QVERIFY(std::equal(before.begin(), before.end(), m_fixture->history->entries().begin() + 1));
    QVERIFY(!button(m_fixture->panel, "Undo"));

    QTest::mouseClick(button(m_fixture->panel, "Clear"), Qt::LeftButton);
    auto* const end = m_fixture->panel.findChild<HistoryNotice*>()->findChild<QTimer*>();
    QCOMPARE(end->interval(), 10'000);
    QVERIFY(button(m_fixture->panel, "Undo"));
    end->start(0);
    QTRY_VERIFY(!button(m_fixture->panel, "Undo"));
    QVERIFY(m_fixture->history->entries().empty());
}

void ClipActionsTest::asksBeforeAClipIsMovedToTheTrash()
{
    const QString path = saveClip();
    QTest::keyClick(m_fixture->revealButton(0), Qt::Key_Delete);
    QVERIFY(label(m_fixture->panel, "Move “a.gif” to the trash?"));
    QVERIFY(QFile::exists(path));
    QTest::mouseClick(button(m_fixture->panel, "Move to Trash"), Qt::LeftButton);
    QVERIFY(!QFile::exists(path));
    const auto data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    QVERIFY(QFile::exists(data + "/Trash/files/a.gif"));
    QVERIFY(m_fixture->history->entries().empty());
    QVERIFY(!button(m_fixture->panel, "Move to Trash"));
}

void ClipActionsTest::doesNotMoveWhatTheUserKeeps()
{
    const QString path = saveClip();
    QTest::keyClick(m_fixture->revealButton(0), Qt::Key_Delete);
    QCOMPARE(QApplication::focusWidget(), button(m_fixture->panel, "Cancel"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(!button(m_fixture->panel, "Move to Trash"));
    QVERIFY(QFile::exists(path));
    QCOMPARE(m_fixture->history->entries().size(), 1U);
}

void ClipActionsTest::hasAMenuOnEachRow()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
    QCoreApplication::sendEvent(m_fixture->revealButton(0), &event);
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

void ClipActionsTest::copiesAClipByItsKey()
{
    const QString path = saveClip();
    QTest::keyClick(m_fixture->revealButton(0), Qt::Key_C, Qt::ControlModifier);
    const auto pasted = [] {
        const auto* const contents = QApplication::clipboard()->mimeData(); // null at first
        return contents == nullptr ? QList<QUrl>() : contents->urls();
    };
    QTRY_COMPARE(pasted(), QList<QUrl>{QUrl::fromLocalFile(path)});
    QVERIFY(QApplication::clipboard()->mimeData()->data("image/gif").startsWith("GIF89a"));
}

void ClipActionsTest::opensAClipByItsKey()
{
    QDesktopServices::setUrlHandler("file", this, "open");
    m_fixture->history->record(clip("/clips/a.gif"));
    QTest::keyClick(m_fixture->revealButton(0), Qt::Key_O, Qt::ControlModifier);
    QDesktopServices::unsetUrlHandler("file");
    QCOMPARE(m_opened, QUrl("file:///clips/a.gif"));
}

void ClipActionsTest::saysThatAClipCanNotBeRead()
{
    m_fixture->history->record(clip("/dev/zero"));
    QTest::keyClick(m_fixture->revealButton(0), Qt::Key_C, Qt::ControlModifier);
    QTRY_VERIFY(label(m_fixture->panel, "The clip can't be read."));
}

void ClipActionsTest::showsTheClipThatThePointerRestsOn()
{
    (void)saveClip();
    auto* const preview = m_fixture->panel.findChild<ClipPreview*>();
    hover(0);
    QVERIFY(!preview->isVisible());
    preview->findChild<QTimer*>()->start(0);
    QTRY_VERIFY(preview->isVisible());
    QVERIFY(label(*preview, "400 × 300 pixels"));
    const auto* const picture = preview->findChild<QLabel*>();
    QCOMPARE(picture->size(), QSize(288, 216));
    QCOMPARE(picture->movie()->state(), QMovie::Running);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_fixture->rows().first(), &leave);
    QVERIFY(!preview->isVisible());
    hover(0);
    preview->findChild<QTimer*>()->start(0);
    QTRY_VERIFY(preview->isVisible());
    m_fixture->panel.hide();
    QVERIFY(!preview->isVisible());
}

void ClipActionsTest::showsNoPreviewWhileItIsSwitchedOff()
{
    (void)saveClip();
    const auto* const rest = m_fixture->panel.findChild<ClipPreview*>()->findChild<QTimer*>();
    hover(0);
    QVERIFY(rest->isActive());
    m_fixture->panel.setPreviewing(false);
    QVERIFY(!rest->isActive());
    hover(0);
    QVERIFY(!rest->isActive());
}

const test::Registration<ClipActionsTest> registeredClipActionsTest("ClipActions");

} // namespace
} // namespace quillbox

#include "ClipActionsTest.moc"
