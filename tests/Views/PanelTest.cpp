#include "Views/Panel.h"

#include "Find.h"
#include "Palettes.h"
#include "TextCheck.h"
#include "ViewsFixture.h"

#include "support/QtTests.h"
#include "Views/Controls/Scroller.h"
#include "Views/Controls/Switch.h"
#include "Views/History/HistoryPanel.h"
#include "Views/RecorderHUD.h"

#include <QAction>
#include <QApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

namespace quillbox {
namespace {

using namespace test;

constexpr QRect desktop(0, 0, 1280, 800);

class PanelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void stacksTheRecorderAboveTheHistory();
    void isHiddenUntilItIsOpened();
    void opensWhollyOnTheScreen();
    void hasNoWindowFrame();
    void givesTheMainButtonTheKeyboard();
    void showsNoFocusRingUntilTheKeyboardIsUsed();
    void closesOnEscape();
    void closesWhenAnotherWindowBecomesActive();
    void tellsThatItWasJustClosedByLosingTheFocus();
    void forgetsThatItWasJustClosed();
    void wasNotJustClosedOnEscape();
    void opensAgain();
    void hidesBeforeARegionIsSelected();
    void staysOpenWhileTheClipIsMade();
    void passesOnTheWishForTheSettings();
    void passesOnTheWishToQuit();
    void showsANoticeBelowTheStatus();
    void showsNoNoticeWhenItIsEmpty();
    void saysWhileTheClipIsPendingAndOffersToCopyIt();
    void hasASwitchForAnActionThatHasNoMenu();
    void showsTheIntroductionAboveEverything();
    void scrollsWhatDoesNotFit();
    void theEmptyListGivesWayFirst();
    void shrinksWhenTheIntroductionGoes();
    void growsWithALongMessage();
    void staysOnTheScreenWithAnEndlessMessage();
    void growsUpwardAboveABottomBar();
    void opensAsATitledWindow();
    void staysOpenAsAWindowWhenAnotherBecomesActive();
    void becomesAPopupAgain();
    void reachesEverythingByTab();
    void cutsNoTextOff();
    void drawsItselfInTheDesktopsColours();
    void hasAnOutlineWithoutACompositor();
    void hasTransparentCornersWhenRounded();

private:
    void open(const QRect& anchor = QRect()) { m_panel->openNear(anchor, desktop); }
    void openAndWait();

    std::chrono::steady_clock::time_point m_now{std::chrono::hours(1)};
    std::unique_ptr<ViewsFixture> m_fixture;
    std::unique_ptr<Panel> m_panel;
};

void PanelTest::init()
{
    m_fixture = std::make_unique<ViewsFixture>();
    m_panel = std::make_unique<Panel>(
        m_fixture->coordinator, m_fixture->updater, *m_fixture->history, m_fixture->reveal, [this] { return m_now; });
}

void PanelTest::cleanup()
{
    QTRY_VERIFY(!m_fixture->isIn<RecordingCoordinator::Processing>());
    m_panel.reset();
    m_fixture.reset();
    QApplication::setPalette(QPalette());
}

void PanelTest::openAndWait()
{
    open();
    QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
}

void PanelTest::stacksTheRecorderAboveTheHistory()
{
    open();
    const auto* hud = m_panel->findChild<RecorderHUD*>();
    const auto* history = m_panel->findChild<HistoryPanel*>();
    QVERIFY(hud->geometry().bottom() < history->geometry().top());
    QCOMPARE(history->geometry().top() - hud->geometry().bottom() - 1, 1); // the divider
}

void PanelTest::isHiddenUntilItIsOpened()
{
    QVERIFY(!m_panel->isVisible());
}

void PanelTest::opensWhollyOnTheScreen()
{
    for (const QPoint corner : {QPoint(0, 0), QPoint(1260, 0), QPoint(0, 780), QPoint(1260, 780), QPoint(600, 0)}) {
        open(QRect(corner, QSize(20, 20)));
        QVERIFY(desktop.contains(m_panel->geometry()));
    }
}

void PanelTest::hasNoWindowFrame()
{
    open();
    QVERIFY(m_panel->windowFlags().testFlag(Qt::FramelessWindowHint));
    QCOMPARE(m_panel->windowType(), Qt::Tool);
}

void PanelTest::givesTheMainButtonTheKeyboard()
{
    openAndWait();
    QCOMPARE(QApplication::focusWidget(), button(*m_panel, "Record Region"));
}

void PanelTest::showsNoFocusRingUntilTheKeyboardIsUsed()
{
    openAndWait();
    QVERIFY(!Theme::showsFocus(*QApplication::focusWidget()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(Theme::showsFocus(*QApplication::focusWidget()));
}

void PanelTest::closesOnEscape()
{
    openAndWait();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!m_panel->isVisible());
}

void PanelTest::closesWhenAnotherWindowBecomesActive()
{
    openAndWait();
    QWidget other;
    other.show();
    other.activateWindow();
    QTRY_VERIFY(!m_panel->isVisible());
}

void PanelTest::tellsThatItWasJustClosedByLosingTheFocus()
{
    QVERIFY(!m_panel->wasJustClosed());
    openAndWait();
    QVERIFY(!m_panel->wasJustClosed());
    QWidget other;
    other.show();
    other.activateWindow();
    QTRY_VERIFY(!m_panel->isVisible());
    QVERIFY(m_panel->wasJustClosed());
}

void PanelTest::forgetsThatItWasJustClosed()
{
    openAndWait();
    QWidget other;
    other.show();
    other.activateWindow();
    QTRY_VERIFY(!m_panel->isVisible());
    m_now += Panel::justNow - std::chrono::milliseconds(1);
    QVERIFY(m_panel->wasJustClosed());
    m_now += std::chrono::milliseconds(1);
    QVERIFY(!m_panel->wasJustClosed());
}

void PanelTest::wasNotJustClosedOnEscape()
{
    openAndWait();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QCoreApplication::processEvents();
    QVERIFY(!m_panel->wasJustClosed());
}

void PanelTest::opensAgain()
{
    openAndWait();
    m_panel->close();
    openAndWait();
    QVERIFY(m_panel->isVisible());
}

void PanelTest::hidesBeforeARegionIsSelected()
{
    openAndWait();
    bool hiddenBefore = false;
    connect(&m_fixture->coordinator, &CurrentCoordinator::phaseChanged, m_panel.get(),
        [&] { hiddenBefore = !m_panel->isVisible(); });
    QTest::mouseClick(button(*m_panel, "Record Region"), Qt::LeftButton);
    QVERIFY(m_fixture->selector->isPresented());
    QVERIFY(hiddenBefore);
    QVERIFY(!m_panel->isVisible());
}

void PanelTest::staysOpenWhileTheClipIsMade()
{
    m_fixture->record();
    openAndWait();
    QTest::mouseClick(button(*m_panel, "Stop & Copy"), Qt::LeftButton);
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    QVERIFY(m_panel->isVisible());
    QCOMPARE(m_fixture->history->entries().size(), std::size_t(1));
    QTRY_VERIFY(button(*m_panel, "Clear"));
}

void PanelTest::passesOnTheWishForTheSettings()
{
    open();
    const QSignalSpy requests(m_panel.get(), &Panel::settingsRequested);
    QTest::mouseClick(button(*m_panel, "Settings"), Qt::LeftButton);
    QCOMPARE(requests.count(), 1);
}

void PanelTest::passesOnTheWishToQuit()
{
    open();
    const QSignalSpy requests(m_panel.get(), &Panel::quitRequested);
    QTest::mouseClick(button(*m_panel, "Quit"), Qt::LeftButton);
    QCOMPARE(requests.count(), 1);
}

void PanelTest::showsANoticeBelowTheStatus()
{
    m_panel->setNotice("Another program uses <Super+Shift+2>.");
    open();
    const TextLabel* notice = label(*m_panel, "Another program uses <Super+Shift+2>.");
    QVERIFY(notice);
    const auto place = [this](const QWidget* widget) {
        return widget->mapTo(m_panel.get(), QPoint(0, 0)).y();
    };
    QVERIFY(place(notice) > place(label(*m_panel, "Press ⌘⇧2 or Record to capture a region.")));
    QVERIFY(place(notice) < place(button(*m_panel, "Record Region")));
}

void PanelTest::showsNoNoticeWhenItIsEmpty()
{
    open();
    const int before = m_panel->height();
    m_panel->setNotice("A notice.");
    QTRY_VERIFY(m_panel->height() > before);
    m_panel->setNotice(QString());
    QTRY_COMPARE(m_panel->height(), before);
}

void PanelTest::saysWhileTheClipIsPendingAndOffersToCopyIt()
{
    open();
    const QString pending = QStringLiteral("The clip is not on the clipboard yet.");
    const QSignalSpy wishes(m_panel.get(), &Panel::copyRequested);
    const QStringList before = texts(*m_panel);
    QVERIFY(!before.contains(pending));
    m_panel->setClipPending(true);
    QCoreApplication::processEvents();
    QCOMPARE(clippedTexts(*m_panel), QStringList());
    QCOMPARE(texts(*m_panel).count(pending), 1);
    QTest::mouseClick(button(*m_panel, "Copy"), Qt::LeftButton);
    QCOMPARE(wishes.count(), 1);
    m_panel->setClipPending(false);
    QCOMPARE(texts(*m_panel), before);
    QVERIFY(button(*m_panel, "Copy") == nullptr);
}

void PanelTest::hasASwitchForAnActionThatHasNoMenu()
{
    QAction action("Notices");
    action.setCheckable(true);
    action.setChecked(true);
    const auto find = [this]() -> Switch* {
        for (Switch* const each : visible<Switch>(*m_panel))
            if (each->accessibleName() == "Notices")
                return each;
        return nullptr;
    };
    open();
    QVERIFY(!find());
    m_panel->setSwitch(&action);
    QVERIFY(find());
    QVERIFY(find()->isChecked());
    QTest::mouseClick(find(), Qt::LeftButton);
    QVERIFY(!action.isChecked());
    action.setChecked(true);
    QVERIFY(find()->isChecked());
    m_panel->setSwitch(nullptr);
    QVERIFY(!find());
}

void PanelTest::scrollsWhatDoesNotFit()
{
    const QRect low(0, 0, 800, 200);
    m_panel->openNear(QRect(), low);
    QCoreApplication::processEvents();
    QVERIFY(low.contains(m_panel->geometry()));
    auto* const scroller = m_panel->findChild<Scroller*>();
    QVERIFY(scroller->isScrolling());
    QCOMPARE(clippedTexts(*m_panel), QStringList());
    auto* const quit = button(*m_panel, "Quit");
    const auto isInView = [&] {
        return scroller->viewport()->rect().contains(QRect(quit->mapTo(scroller->viewport(), QPoint()), quit->size()));
    };
    QVERIFY(!isInView());
    while (QApplication::focusWidget() != quit)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(isInView());
}

void PanelTest::theEmptyListGivesWayFirst()
{
    open();
    const auto height = m_panel->height();
    const auto placeholder = QStringLiteral("Your recorded clips will show up here.");
    QVERIFY(texts(*m_panel).contains(placeholder));
    m_panel->openNear(QRect(), QRect(0, 0, 800, height - 100));
    QCoreApplication::processEvents();
    QVERIFY(!m_panel->findChild<Scroller*>()->isScrolling());
    QVERIFY(!texts(*m_panel).contains(placeholder));
    QCOMPARE(clippedTexts(*m_panel), QStringList());
    open();
    QCoreApplication::processEvents();
    QVERIFY(texts(*m_panel).contains(placeholder));
}

void PanelTest::showsTheIntroductionAboveEverything()
{
    m_panel->setIntroduction(FirstUseCard::Facts{});
    open();
    const auto* card = m_panel->findChild<FirstUseCard*>();
    QVERIFY(card->isVisible());
    QVERIFY(card->mapTo(m_panel.get(), QPoint(0, card->height())).y() <= m_panel->findChild<RecorderHUD*>()->y());
    const QSignalSpy understood(m_panel.get(), &Panel::introductionUnderstood);
    QTest::mouseClick(button(*m_panel, "Got it"), Qt::LeftButton);
    QCOMPARE(understood.count(), 1);
}

void PanelTest::shrinksWhenTheIntroductionGoes()
{
    open();
    const int before = m_panel->height();
    m_panel->setIntroduction(FirstUseCard::Facts{});
    QTRY_VERIFY(m_panel->height() > before);
    m_panel->setIntroduction(std::nullopt);
    QTRY_COMPARE(m_panel->height(), before);
    QVERIFY(!button(*m_panel, "Got it"));
}

void PanelTest::growsWithALongMessage()
{
    m_fixture->fail("no");
    open();
    const int before = m_panel->height();
    m_fixture->fail(std::string(300, 'x') + " and more");
    open();
    QVERIFY(m_panel->height() > before);
    QCOMPARE(clippedTexts(*m_panel), QStringList());
}

void PanelTest::staysOnTheScreenWithAnEndlessMessage()
{
    std::string words;
    for (int i = 0; i < 2000; ++i)
        words += "word ";
    m_fixture->fail(words);
    open();
    QVERIFY(desktop.contains(m_panel->geometry()));
}

void PanelTest::growsUpwardAboveABottomBar()
{
    const QRect icon(600, 770, 20, 20);
    open(icon);
    const int height = m_panel->height();
    const int bottom = m_panel->geometry().bottom();
    QVERIFY(bottom < icon.top());
    m_panel->setNotice("A notice.");
    QTRY_VERIFY(m_panel->height() > height);
    QTRY_COMPARE(m_panel->geometry().bottom(), bottom);
}

void PanelTest::opensAsATitledWindow()
{
    m_panel->openAsWindow();
    QCOMPARE(m_panel->windowType(), Qt::Window);
    QVERIFY(!m_panel->windowFlags().testFlag(Qt::FramelessWindowHint));
    QCOMPARE(m_panel->windowTitle(), QString("Quillbox"));
}

void PanelTest::staysOpenAsAWindowWhenAnotherBecomesActive()
{
    m_panel->openAsWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QVERIFY(m_panel->isVisible());
    QVERIFY(!m_panel->wasJustClosed());
}

void PanelTest::becomesAPopupAgain()
{
    m_panel->openAsWindow();
    m_panel->close();
    open();
    QCOMPARE(m_panel->windowType(), Qt::Tool);
    QVERIFY(m_panel->isVisible());
}

void PanelTest::reachesEverythingByTab()
{
    m_fixture->history->record(clip("/clips/a.gif"));
    m_fixture->history->record(clip("/clips/b.gif"));
    m_panel->setClipPending(true);
    openAndWait();
    QStringList reached;
    for (int i = 0; i < 9; ++i) {
        const QWidget* focused = QApplication::focusWidget();
        reached.append(focused->accessibleName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(reached,
        QStringList({"Record Region", "Check for Updates…", "Settings", "Quit", "Copy", "Clear", "Reveal in Finder",
            "Reveal in Finder", "Slack"}));
}

void PanelTest::cutsNoTextOff()
{
    for (int i = 0; i < 6; ++i)
        m_fixture->history->record(clip("/clips/a.gif"));
    m_panel->setNotice(QString("A long notice. ").repeated(12));
    open();
    QCoreApplication::processEvents();
    QCOMPARE(clippedTexts(*m_panel), QStringList());
}

void PanelTest::drawsItselfInTheDesktopsColours()
{
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        QApplication::setPalette(palette);
        open();
        QCoreApplication::processEvents();
        const QImage picture = m_panel->grab().toImage();
        QCOMPARE(picture.pixelColor(picture.width() / 2, 8), Theme(palette).surface());
    }
}

void PanelTest::hasAnOutlineWithoutACompositor()
{
    m_panel->setCorners(Panel::Corners::Square);
    open();
    const QImage picture = m_panel->grab().toImage();
    const QColor border = Theme(QApplication::palette()).border();
    QCOMPARE(picture.pixelColor(0, 0), border);
    QCOMPARE(picture.pixelColor(picture.width() - 1, picture.height() - 1), border);
    QVERIFY(!m_panel->testAttribute(Qt::WA_TranslucentBackground));
}

void PanelTest::hasTransparentCornersWhenRounded()
{
    m_panel->setCorners(Panel::Corners::Rounded);
    open();
    QVERIFY(m_panel->testAttribute(Qt::WA_TranslucentBackground));
    QImage picture(m_panel->size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    m_panel->render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
    QCOMPARE(picture.pixelColor(0, 0).alpha(), 0);
    QCOMPARE(picture.pixelColor(picture.width() / 2, 8), Theme(QApplication::palette()).surface());
}

const test::Registration<PanelTest> registeredPanelTest("Panel");

} // namespace
} // namespace quillbox

#include "PanelTest.moc"
