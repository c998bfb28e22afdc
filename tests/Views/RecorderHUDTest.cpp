#include "Views/RecorderHUD.h"

#include "Find.h"
#include "ViewsFixture.h"

#include "support/QtTests.h"
#include "Views/ByteFormat.h"
#include "Views/Controls/Switch.h"
#include "Views/Recording/TimeLabel.h"

#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <cstdlib>

namespace quillbox {
namespace {

using namespace test;

/// What the status row shows.
struct Shown {
    QString text;
    Symbol symbol;
    Role role;
    Role symbolRole;
};

class RecorderHUDTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void showsItsPartsFromTopToBottom();
    void headsWithItsNameBesideAnAccentColouredSymbol();
    void offersThePresetsInTheirOrder();
    void startsWithTheCoordinatorsPreset();
    void describesTheChosenPreset();
    void hasThePickerSetThePreset();
    void followsAPresetSetElsewhere();
    void keepsThePickerEnabledInEveryPhase();
    void offersToKeepEveryChange();
    void tellsHowToStartWhileIdle();
    void showsNoNoticeOfWhatToBeginWithWhileAFlowIsUnderWay();
    void asksForADragWhileSelecting();
    void saysInRedThatItRecords();
    void showsBesideItHowLongItHasRecorded();
    void saysThatItProcesses();
    void saysInGreenWhatWasCopied();
    void showsOnlyTheNameOfTheFile();
    void showsAFailureInRedAsItStands();
    void goesBackToIdleWhenTheSelectionIsCancelled();
    void offersToRecordInEveryPhaseButRecording();
    void saysByItsLookThatTheButtonDoesNothingWhileProcessing();
    void offersToStopWhileRecording();
    void beginsAFlowByTheButton();
    void stopsByTheButton();
    void startsAfreshAfterAClip();
    void startsAfreshAfterAFailureAndKeepsThePreset();
    void checksForUpdatesByTheButton();
    void disablesTheUpdateButtonWhileNoCheckMayStart();
    void asksForTheSettings();
    void asksToQuit();
    void isWhollyReachableByTab();
    void choosesPresetsWithTheArrowKeys();
    void pressesButtonsWithReturnAndSpace();
    void showsItsTextsUnformatted();

private:
    [[nodiscard]] Shown status() const;
    [[nodiscard]] TextLabel* statusText() const;
    [[nodiscard]] FlatButton* mainButton() const;

    std::unique_ptr<ViewsFixture> m_fixture;
    std::unique_ptr<RecorderHUD> m_hud;
};

void RecorderHUDTest::init()
{
    m_fixture = std::make_unique<ViewsFixture>();
    m_hud = std::make_unique<RecorderHUD>(m_fixture->coordinator, m_fixture->updater);
    m_hud->resize(384, 300);
    m_hud->show();
    m_hud->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_hud.get()));
}

void RecorderHUDTest::cleanup()
{
    QTRY_VERIFY(!m_fixture->isIn<RecordingCoordinator::Processing>());
    m_hud.reset();
    m_fixture.reset();
}

TextLabel* RecorderHUDTest::statusText() const
{
    // Name, "Preset", subtitle, status.
    return visible<TextLabel>(*m_hud).at(3);
}

Shown RecorderHUDTest::status() const
{
    const TextLabel* text = statusText();
    const SymbolLabel* symbol = symbolBeside(text);
    return {text->text(), symbol->symbol(), text->role(), symbol->role()};
}

FlatButton* RecorderHUDTest::mainButton() const
{
    for (FlatButton* each : m_hud->findChildren<FlatButton*>())
        if (each->kind() == FlatButton::Kind::Prominent)
            return each;
    return nullptr;
}

#define COMPARE_STATUS(expectedText, expectedSymbol, expectedRole)                                                     \
    do {                                                                                                               \
        const Shown shown = status();                                                                                  \
        QCOMPARE(shown.text, QString(expectedText));                                                                   \
        QCOMPARE(shown.symbol, expectedSymbol);                                                                        \
        QCOMPARE(shown.role, expectedRole);                                                                            \
        QCOMPARE(shown.symbolRole, expectedRole);                                                                      \
    } while (false)

void RecorderHUDTest::showsItsPartsFromTopToBottom()
{
    const auto top = [this](const QWidget* part) {
        return part->mapTo(m_hud.get(), QPoint(0, 0)).y();
    };
    const std::vector<int> tops{top(label(*m_hud, "Quillbox")), top(segment(*m_hud, "Slack")),
        top(label(*m_hud, "Tiny GIF under 2 MB")), top(statusText()), top(mainButton()), top(button(*m_hud, "Quit"))};
    QVERIFY(std::is_sorted(tops.begin(), tops.end()));
    const auto left = [this](const QWidget* part) {
        return part->mapTo(m_hud.get(), QPoint(0, 0)).x();
    };
    const std::vector<int> lefts{
        left(button(*m_hud, "Check for Updates…")), left(button(*m_hud, "Settings")), left(button(*m_hud, "Quit"))};
    QVERIFY(std::is_sorted(lefts.begin(), lefts.end()));
}

void RecorderHUDTest::headsWithItsNameBesideAnAccentColouredSymbol()
{
    const SymbolLabel* symbol = symbolBeside(label(*m_hud, "Quillbox"));
    QVERIFY(symbol);
    QCOMPARE(symbol->symbol(), Symbol::RectangleDashedBadgeRecord);
    QCOMPARE(symbol->role(), Role::Accent);
}

void RecorderHUDTest::offersThePresetsInTheirOrder()
{
    QStringList names;
    for (const Segment* each : visible<Segment>(*m_hud))
        names.append(each->accessibleName());
    QCOMPARE(names, QStringList({"Slack", "GitHub", "Docs"}));
    QCOMPARE(m_hud->findChild<SegmentedPicker*>()->accessibleName(), QString("Preset"));
    QVERIFY(label(*m_hud, "Preset"));
}

void RecorderHUDTest::startsWithTheCoordinatorsPreset()
{
    m_fixture->coordinator.get().setPreset(ExportPreset::docs);
    const RecorderHUD later(m_fixture->coordinator, m_fixture->updater);
    QCOMPARE(later.findChild<SegmentedPicker*>()->choice(), 2);
}

void RecorderHUDTest::describesTheChosenPreset()
{
    for (const auto& [preset, subtitle] :
        {std::pair(ExportPreset::slack, "Tiny GIF under 2 MB"), std::pair(ExportPreset::github, "GIF under 10 MB"),
            std::pair(ExportPreset::docs, "Crisp, balanced quality")}) {
        m_fixture->coordinator.get().setPreset(preset);
        QVERIFY(label(*m_hud, QString::fromUtf8(subtitle)));
    }
}

void RecorderHUDTest::hasThePickerSetThePreset()
{
    QTest::mouseClick(segment(*m_hud, "GitHub"), Qt::LeftButton);
    QCOMPARE(m_fixture->coordinator.get().preset(), ExportPreset(ExportPreset::github));
}

void RecorderHUDTest::followsAPresetSetElsewhere()
{
    m_fixture->coordinator.get().setPreset(ExportPreset::docs);
    QVERIFY(segment(*m_hud, "Docs")->isChecked());
    QVERIFY(!segment(*m_hud, "Slack")->isChecked());
}

void RecorderHUDTest::keepsThePickerEnabledInEveryPhase()
{
    const auto choose = [this](const QString& name, ExportPreset preset) {
        QTest::mouseClick(segment(*m_hud, name), Qt::LeftButton);
        QCOMPARE(m_fixture->coordinator.get().preset(), preset);
    };
    m_fixture->select();
    choose("GitHub", ExportPreset::github);
    m_fixture->selector->finish(CaptureRegion{0, 0, 20, 10});
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Recording>());
    choose("Docs", ExportPreset::docs);
    m_fixture->coordinator.stop();
    QVERIFY(m_fixture->isIn<RecordingCoordinator::Processing>());
    choose("Slack", ExportPreset::slack);
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    choose("GitHub", ExportPreset::github);
}

void RecorderHUDTest::offersToKeepEveryChange()
{
    auto* const choice = m_hud->findChild<Switch*>();
    QCOMPARE(choice->text(), QString("Keep every change"));
    QVERIFY(!choice->isChecked());
    QTest::mouseClick(choice, Qt::LeftButton);
    QVERIFY(m_fixture->coordinator.keepsEveryChange());
    m_fixture->coordinator.setKeepsEveryChange(false);
    QVERIFY(!choice->isChecked());
    QTest::keyClick(choice, Qt::Key_Space);
    QVERIFY(m_fixture->coordinator.keepsEveryChange());
    const RecorderHUD later(m_fixture->coordinator, m_fixture->updater);
    QVERIFY(later.findChild<Switch*>()->isChecked());
}

void RecorderHUDTest::tellsHowToStartWhileIdle()
{
    COMPARE_STATUS("Press ⌘⇧2 or Record to capture a region.", Symbol::InfoCircle, Role::Secondary);
    QCOMPARE(statusText()->textStyle(), TextStyle::Caption);
}

void RecorderHUDTest::showsNoNoticeOfWhatToBeginWithWhileAFlowIsUnderWay()
{
    m_hud->setNotice("A notice.");
    QTRY_VERIFY(texts(*m_hud).contains("A notice."));
    m_fixture->record();
    QTRY_VERIFY(!texts(*m_hud).contains("A notice."));
    m_fixture->coordinator.stop();
    QTRY_VERIFY(texts(*m_hud).contains("A notice."));
}

void RecorderHUDTest::asksForADragWhileSelecting()
{
    m_fixture->select();
    COMPARE_STATUS("Drag to select a region…", Symbol::RectangleDashed, Role::Primary);
}

void RecorderHUDTest::saysInRedThatItRecords()
{
    m_fixture->record();
    COMPARE_STATUS("Recording…", Symbol::RecordCircle, Role::Red);
}

void RecorderHUDTest::showsBesideItHowLongItHasRecorded()
{
    const auto* const time = m_hud->findChild<TimeLabel*>();
    QVERIFY(!time->isVisible());
    m_fixture->record();
    QVERIFY(time->isVisible());
    QCOMPARE(time->text(), QString("0:00"));
    QCOMPARE(time->role(), Role::Red);
    const auto middle = [this](const QWidget* part) {
        return part->mapTo(m_hud.get(), part->rect().center()).y();
    };
    QVERIFY(std::abs(middle(time) - middle(statusText())) <= 1);
    m_fixture->coordinator.stop();
    QVERIFY(!time->isVisible());
}

void RecorderHUDTest::saysThatItProcesses()
{
    m_fixture->process();
    COMPARE_STATUS("Optimizing GIF…", Symbol::WandAndStars, Role::Primary);
}

void RecorderHUDTest::saysInGreenWhatWasCopied()
{
    m_fixture->finish();
    const auto done = std::get<RecordingCoordinator::Done>(m_fixture->phase());
    const QString size = QString::number(QFileInfo(done.path).size()) + " B"; // the clip has two pixels
    COMPARE_STATUS(
        "Copied — " + size + " · " + QFileInfo(done.path).fileName(), Symbol::CheckmarkCircleFill, Role::Green);
}

void RecorderHUDTest::showsOnlyTheNameOfTheFile()
{
    m_fixture->finish();
    QVERIFY(!status().text.contains('/'));
    QVERIFY(status().text.endsWith(".gif"));
}

void RecorderHUDTest::showsAFailureInRedAsItStands()
{
    m_fixture->fail("denied <b>by</b> & with %1");
    COMPARE_STATUS(
        "Couldn't start recording: denied <b>by</b> & with %1", Symbol::ExclamationmarkTriangleFill, Role::Red);
}

void RecorderHUDTest::goesBackToIdleWhenTheSelectionIsCancelled()
{
    m_fixture->select();
    m_fixture->selector->finish(RegionSelector::Cancelled{});
    COMPARE_STATUS("Press ⌘⇧2 or Record to capture a region.", Symbol::InfoCircle, Role::Secondary);
}

void RecorderHUDTest::offersToRecordInEveryPhaseButRecording()
{
    const auto offersToRecord = [this] {
        return mainButton()->isEnabled() && mainButton()->label() == "Record Region"
            && mainButton()->symbol() == Symbol::RectangleDashedBadgeRecord;
    };
    QVERIFY(offersToRecord());
    m_fixture->select();
    QVERIFY(offersToRecord());
    m_fixture->selector->finish(CaptureRegion{0, 0, 20, 10});
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Recording>());
    QVERIFY(!offersToRecord());
    m_fixture->coordinator.stop();
    QVERIFY(offersToRecord());
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    QVERIFY(offersToRecord());
    m_fixture->fail("no");
    QVERIFY(offersToRecord());
}

void RecorderHUDTest::saysByItsLookThatTheButtonDoesNothingWhileProcessing()
{
    const auto fill = [this] {
        return mainButton()->grab().toImage().pixelColor(8, mainButton()->height() / 2);
    };
    const QColor before = fill();
    QCOMPARE(before, Theme(m_hud->palette()).accentFill());
    m_fixture->process();
    QVERIFY(mainButton()->isEnabled());
    QCOMPARE(fill(), Theme(m_hud->palette()).sunken());
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    QCOMPARE(fill(), before);
}

void RecorderHUDTest::offersToStopWhileRecording()
{
    m_fixture->record();
    QCOMPARE(mainButton()->label(), QString("Stop & Copy"));
    QCOMPARE(mainButton()->symbol(), std::optional(Symbol::StopCircleFill));
}

void RecorderHUDTest::beginsAFlowByTheButton()
{
    QTest::mouseClick(mainButton(), Qt::LeftButton);
    QVERIFY(m_fixture->isIn<RecordingCoordinator::SelectingRegion>());
    QVERIFY(m_fixture->selector->isPresented());
}

void RecorderHUDTest::stopsByTheButton()
{
    m_fixture->record();
    QTest::mouseClick(mainButton(), Qt::LeftButton);
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::Done>());
    QCOMPARE(m_fixture->recorder->stops, 1);
}

void RecorderHUDTest::startsAfreshAfterAClip()
{
    m_fixture->finish();
    QTest::mouseClick(mainButton(), Qt::LeftButton);
    QVERIFY(m_fixture->isIn<RecordingCoordinator::SelectingRegion>());
    COMPARE_STATUS("Drag to select a region…", Symbol::RectangleDashed, Role::Primary);
}

void RecorderHUDTest::startsAfreshAfterAFailureAndKeepsThePreset()
{
    m_fixture->coordinator.get().setPreset(ExportPreset::docs);
    m_fixture->fail("no");
    QTest::mouseClick(mainButton(), Qt::LeftButton);
    QVERIFY(m_fixture->isIn<RecordingCoordinator::SelectingRegion>());
    QVERIFY(segment(*m_hud, "Docs")->isChecked());
    QVERIFY(label(*m_hud, "Crisp, balanced quality"));
}

void RecorderHUDTest::checksForUpdatesByTheButton()
{
    QTest::mouseClick(button(*m_hud, "Check for Updates…"), Qt::LeftButton);
    QCOMPARE(m_fixture->updates->checks, 1);
}

void RecorderHUDTest::disablesTheUpdateButtonWhileNoCheckMayStart()
{
    m_fixture->updates->setAvailable(false);
    QVERIFY(!button(*m_hud, "Check for Updates…")->isEnabled());
    m_fixture->updates->setAvailable(true);
    QVERIFY(button(*m_hud, "Check for Updates…")->isEnabled());
}

void RecorderHUDTest::asksForTheSettings()
{
    const QSignalSpy requests(m_hud.get(), &RecorderHUD::settingsRequested);
    QTest::mouseClick(button(*m_hud, "Settings"), Qt::LeftButton);
    QCOMPARE(requests.count(), 1);
}

void RecorderHUDTest::asksToQuit()
{
    const QSignalSpy requests(m_hud.get(), &RecorderHUD::quitRequested);
    QTest::mouseClick(button(*m_hud, "Quit"), Qt::LeftButton);
    QCOMPARE(requests.count(), 1);
}

void RecorderHUDTest::isWhollyReachableByTab()
{
    segment(*m_hud, "Slack")->setFocus();
    QStringList reached;
    for (int i = 0; i < 6; ++i) {
        reached.append(QApplication::focusWidget()->accessibleName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(Theme::showsFocus(*QApplication::focusWidget()));
    }
    QCOMPARE(reached,
        QStringList({"Slack", "Keep every change", "Record Region", "Check for Updates…", "Settings", "Quit"}));
}

void RecorderHUDTest::choosesPresetsWithTheArrowKeys()
{
    segment(*m_hud, "Slack")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QCOMPARE(m_fixture->coordinator.get().preset(), ExportPreset(ExportPreset::github));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QCOMPARE(m_fixture->coordinator.get().preset(), ExportPreset(ExportPreset::docs));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    QCOMPARE(m_fixture->coordinator.get().preset(), ExportPreset(ExportPreset::github));
    QVERIFY(Theme::showsFocus(*segment(*m_hud, "GitHub")));
}

void RecorderHUDTest::pressesButtonsWithReturnAndSpace()
{
    const QSignalSpy requests(m_hud.get(), &RecorderHUD::quitRequested);
    FlatButton* quit = button(*m_hud, "Quit");
    quit->setFocus();
    QTest::keyClick(quit, Qt::Key_Return);
    QTest::keyClick(quit, Qt::Key_Space);
    QCOMPARE(requests.count(), 2);
}

void RecorderHUDTest::showsItsTextsUnformatted()
{
    for (const TextLabel* each : m_hud->findChildren<TextLabel*>())
        QCOMPARE(each->textFormat(), Qt::PlainText);
}

const test::Registration<RecorderHUDTest> registeredRecorderHUDTest("RecorderHUD");

} // namespace
} // namespace quillbox

#include "RecorderHUDTest.moc"
