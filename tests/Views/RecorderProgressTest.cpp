// How the recorder's part of the panel shows a clip in the making.
#include "Find.h"
#include "support/HardClip.h"
#include "ViewsFixture.h"

#include "support/QtTests.h"
#include "Views/Controls/ProgressBar.h"
#include "Views/RecorderHUD.h"

#include <QAccessible>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include <algorithm>

namespace quillbox {
namespace {

using namespace test;
using namespace std::chrono_literals;

class RecorderProgressTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void showsNoProgressBeforeTheDelay();
    void showsABarAndAButtonAfterTheDelay();
    void waitsHalfASecondUnlessToldOtherwise();
    void showsNoProgressOfAClipThatEndedBeforeTheDelay();
    void showsNoProgressInOtherPhases();
    void keepsEverythingInItsPlaceWhenTheyCome();
    void keepsTheStatusOnItsLineInEveryPhase();
    void followsTheProgress();
    void startsAtNothingWithTheNextClip();
    void finishesByTheButton();
    void finishesByTheKeyboard();
    void offersToFinishTheNextClipAgain();
    void putsTheButtonBeforeTheMainOne();
    void tellsScreenReadersHowFarItIs();

private:
    void look(std::chrono::milliseconds delay);
    [[nodiscard]] ProgressBar* bar() const { return visible<ProgressBar>(*m_hud).value(0); }
    [[nodiscard]] FlatButton* finishButton() const { return button(*m_hud, "Finish now"); }
    /// On to a clip that stays in the making until the recorder is released, and whose progress is shown.
    void holdAClip();

    std::unique_ptr<ViewsFixture> m_fixture;
    std::unique_ptr<RecorderHUD> m_hud;
};

void RecorderProgressTest::init()
{
    m_fixture = std::make_unique<ViewsFixture>();
    look(0ms);
}

void RecorderProgressTest::cleanup()
{
    m_fixture->recorder->release();
    QTRY_VERIFY_WITH_TIMEOUT(!m_fixture->isIn<RecordingCoordinator::Processing>(), 30'000);
    m_hud.reset();
    m_fixture.reset();
}

void RecorderProgressTest::look(std::chrono::milliseconds delay)
{
    m_hud = std::make_unique<RecorderHUD>(m_fixture->coordinator, m_fixture->updater, nullptr, delay);
    m_hud->resize(384, 300);
    m_hud->show();
    m_hud->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_hud.get()));
}

void RecorderProgressTest::holdAClip()
{
    m_fixture->recorder->holdsStop = true;
    m_fixture->process();
    QTRY_VERIFY(bar());
}

void RecorderProgressTest::showsNoProgressBeforeTheDelay()
{
    look(1h);
    m_fixture->process();
    QVERIFY(!bar());
    QVERIFY(!finishButton());
    QCoreApplication::processEvents();
    QVERIFY(!bar());
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    QVERIFY(!bar());
}

void RecorderProgressTest::showsABarAndAButtonAfterTheDelay()
{
    holdAClip();
    QVERIFY(finishButton());
    QVERIFY(finishButton()->isEnabled());
    QVERIFY(label(*m_hud, "Optimizing GIF…"));
    QVERIFY(
        bar()->mapTo(m_hud.get(), QPoint()).y() > label(*m_hud, "Optimizing GIF…")->mapTo(m_hud.get(), QPoint()).y());
    m_fixture->recorder->release();
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    QVERIFY(!bar());
    QVERIFY(!finishButton());
}

void RecorderProgressTest::waitsHalfASecondUnlessToldOtherwise()
{
    QCOMPARE(RecorderHUD::usualProgressDelay, 500ms);
    RecorderHUD hud(m_fixture->coordinator, m_fixture->updater);
    hud.show();
    m_fixture->recorder->holdsStop = true;
    QElapsedTimer time;
    time.start();
    m_fixture->process();
    QTRY_VERIFY(!visible<ProgressBar>(hud).isEmpty());
    QVERIFY(std::chrono::milliseconds(time.elapsed()) >= 475ms); // the toolkit may be a twentieth early
}

void RecorderProgressTest::showsNoProgressOfAClipThatEndedBeforeTheDelay()
{
    m_fixture->recorder->frames.clear();
    m_fixture->record();
    m_fixture->coordinator.stop(); // fails before the event loop turns
    QVERIFY(m_fixture->isIn<RecordingCoordinator::Failed>());
    bool isOver = false;
    QTimer::singleShot(0ms, m_hud.get(), [&isOver] { isOver = true; }); // after the delay, which is as long
    QTRY_VERIFY(isOver);
    QVERIFY(!bar());
    QVERIFY(!finishButton());
}

void RecorderProgressTest::showsNoProgressInOtherPhases()
{
    const auto showsNone = [this] {
        QCoreApplication::processEvents();
        return !bar() && !finishButton();
    };
    QVERIFY(showsNone());
    m_fixture->select();
    QVERIFY(showsNone());
    m_fixture->selector->finish(CaptureRegion{0, 0, 20, 10});
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Recording>());
    QVERIFY(showsNone());
    m_fixture->coordinator.stop();
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    QVERIFY(showsNone());
    m_fixture->fail("no");
    QVERIFY(showsNone());
}

void RecorderProgressTest::keepsEverythingInItsPlaceWhenTheyCome()
{
    const auto places = [this] {
        QCoreApplication::processEvents();
        QList<QRect> all{QRect(QPoint(), m_hud->sizeHint())};
        for (const QWidget* each : m_hud->findChildren<QWidget*>())
            if (!qobject_cast<const ProgressBar*>(each) && each->isVisible() && each != finishButton())
                all.append(QRect(each->mapTo(m_hud.get(), QPoint()), each->size()));
        return all;
    };
    look(1h);
    m_fixture->recorder->holdsStop = true;
    m_fixture->process();
    const auto before = places();
    QVERIFY(!bar());
    look(0ms); // at the same clip
    QTRY_VERIFY(bar());
    QCOMPARE(places(), before);
}

void RecorderProgressTest::keepsTheStatusOnItsLineInEveryPhase()
{
    /// Where the line of a status is that begins so, and how high the whole is.
    const auto lines = [this](const QString& beginning) {
        QCoreApplication::processEvents();
        std::vector<int> result{m_hud->heightForWidth(m_hud->width())};
        m_hud->resize(m_hud->width(), result.front()); // as the panel does
        for (const TextLabel* each : visible<TextLabel>(*m_hud))
            if (each->text().startsWith(beginning))
                result.push_back(each->mapTo(m_hud.get(), each->rect().center()).y());
        return result;
    };
    m_fixture->record();
    const auto before = lines("Recording…");
    QCOMPARE(before.size(), 2U);
    m_fixture->recorder->holdsStop = true;
    m_fixture->coordinator.stop();
    QTRY_VERIFY(bar());
    QCOMPARE(lines("Optimizing GIF…"), before);
    m_fixture->recorder->release();
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    QCOMPARE(lines("Copied — ").back(), before.back()); // an offer below it needs more room
}

void RecorderProgressTest::followsTheProgress()
{
    m_fixture->recorder->frames = support::hardClip();
    m_fixture->process();
    const auto* const progress = m_hud->findChild<ProgressBar*>();
    std::vector<int> percents;
    connect(progress, &ProgressBar::valueChanged, this, [&](int percent) { percents.push_back(percent); });
    QTRY_VERIFY_WITH_TIMEOUT(m_fixture->isIn<RecordingCoordinator::Done>(), 30'000);
    QVERIFY(!percents.empty());
    QVERIFY(std::is_sorted(percents.begin(), percents.end()));
    QVERIFY(percents.back() > 93); // past the fifth attempt
}

void RecorderProgressTest::startsAtNothingWithTheNextClip()
{
    m_fixture->finish();
    QVERIFY(m_hud->findChild<ProgressBar*>()->value() > 0);
    holdAClip();
    QCOMPARE(bar()->value(), 0);
}

void RecorderProgressTest::finishesByTheButton()
{
    holdAClip();
    QTest::mouseClick(finishButton(), Qt::LeftButton);
    QVERIFY(m_fixture->coordinator.isFinishing());
    QVERIFY(!finishButton()->isEnabled());
    QVERIFY(m_fixture->isIn<RecordingCoordinator::Processing>());
}

void RecorderProgressTest::finishesByTheKeyboard()
{
    holdAClip();
    finishButton()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(finishButton(), Qt::Key_Space);
    QVERIFY(m_fixture->coordinator.isFinishing());
}

void RecorderProgressTest::offersToFinishTheNextClipAgain()
{
    holdAClip();
    QTest::mouseClick(finishButton(), Qt::LeftButton);
    m_fixture->recorder->release();
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    holdAClip();
    QVERIFY(finishButton()->isEnabled());
}

void RecorderProgressTest::putsTheButtonBeforeTheMainOne()
{
    holdAClip();
    finishButton()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(finishButton(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget()->accessibleName(), QString("Record Region"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), finishButton());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget()->accessibleName(), QString("Keep every change"));
}

void RecorderProgressTest::tellsScreenReadersHowFarItIs()
{
    holdAClip();
    bar()->setFraction(0.42);
    QAccessibleInterface* read = QAccessible::queryAccessibleInterface(bar());
    QCOMPARE(read->role(), QAccessible::ProgressBar);
    QCOMPARE(read->text(QAccessible::Name), QString("Progress"));
    QCOMPARE(read->text(QAccessible::Value), QString("42"));
    QCOMPARE(read->valueInterface()->currentValue().toInt(), 42);
    QCOMPARE(read->valueInterface()->maximumValue().toInt(), 100);
    QAccessibleInterface* finish = QAccessible::queryAccessibleInterface(finishButton());
    QCOMPARE(finish->role(), QAccessible::Button);
    QCOMPARE(finish->text(QAccessible::Name), QString("Finish now"));
    QVERIFY(!finish->text(QAccessible::Description).isEmpty());
}

const test::Registration<RecorderProgressTest> registeredRecorderProgressTest("RecorderProgress");

} // namespace
} // namespace quillbox

#include "RecorderProgressTest.moc"
