#include "Find.h"
#include "ViewsFixture.h"

#include "support/QtTests.h"
#include "Views/Panel.h"
#include "Views/SettingsView.h"

#include <QAccessible>
#include <QTest>

namespace quillbox {
namespace {

using namespace test;

/// Every object that a screen reader finds below `object`, in its order.
void collect(QAccessibleInterface* object, QList<QAccessibleInterface*>& found)
{
    for (int i = 0; i < object->childCount(); ++i) {
        QAccessibleInterface* child = object->child(i);
        if (!child || child->state().invisible)
            continue;
        found.append(child);
        collect(child, found);
    }
}

QStringList names(QWidget& window, QAccessible::Role role)
{
    QList<QAccessibleInterface*> all;
    collect(QAccessible::queryAccessibleInterface(&window), all);
    QStringList result;
    for (QAccessibleInterface* each : all)
        if (each->role() == role)
            result.append(each->text(QAccessible::Name));
    return result;
}

class AccessibilityTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void namesTheWindows();
    void namesEveryButton();
    void namesThePresetsAndTellsTheChosenOne();
    void readsEveryText();
    void pressesAButton();
    void choosesAPreset();
    void tellsThatAButtonIsDisabled();
    void leavesNothingThatTakesTheKeyboardUnnamed();
    void readsTheSettings();

private:
    std::unique_ptr<ViewsFixture> m_fixture;
    std::unique_ptr<Panel> m_panel;
};

void AccessibilityTest::init()
{
    QAccessible::setActive(true);
    m_fixture = std::make_unique<ViewsFixture>();
    m_fixture->history->record(clip("/clips/a.gif"));
    m_panel
        = std::make_unique<Panel>(m_fixture->coordinator, m_fixture->updater, *m_fixture->history, m_fixture->reveal);
    m_panel->openNear(QRect(), QRect(0, 0, 1280, 800));
    QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
}

void AccessibilityTest::cleanup()
{
    m_panel.reset();
    m_fixture.reset();
}

void AccessibilityTest::namesTheWindows()
{
    QCOMPARE(QAccessible::queryAccessibleInterface(m_panel.get())->text(QAccessible::Name), QString("Quillbox"));
    SettingsView settings("A notice.");
    QCOMPARE(QAccessible::queryAccessibleInterface(&settings)->text(QAccessible::Name), QString("Settings"));
}

void AccessibilityTest::namesEveryButton()
{
    QStringList buttons = names(*m_panel, QAccessible::Button);
    buttons.sort();
    QCOMPARE(
        buttons, QStringList({"Check for Updates…", "Clear", "Quit", "Record Region", "Reveal in Finder", "Settings"}));
    m_fixture->record();
    m_panel->openNear(QRect(), QRect(0, 0, 1280, 800));
    QVERIFY(names(*m_panel, QAccessible::Button).contains("Stop & Copy"));
}

void AccessibilityTest::namesThePresetsAndTellsTheChosenOne()
{
    QCOMPARE(names(*m_panel, QAccessible::RadioButton), QStringList({"Slack", "GitHub", "Docs"}));
    const auto checked = [this](const char* name) -> bool {
        return QAccessible::queryAccessibleInterface(segment(*m_panel, name))->state().checked;
    };
    QVERIFY(checked("Slack"));
    QVERIFY(!checked("Docs"));
    m_fixture->coordinator.get().setPreset(ExportPreset::docs);
    QVERIFY(checked("Docs"));
}

void AccessibilityTest::readsEveryText()
{
    const QStringList read = names(*m_panel, QAccessible::StaticText);
    for (const char* text : {"Quillbox", "Preset", "Tiny GIF under 2 MB", "Press ⌘⇧2 or Record to capture a region.",
             "Recent Clips", "a.gif", "Slack · 1.2 MB · 3.4s"})
        QVERIFY2(read.contains(QString::fromUtf8(text)), text);
}

void AccessibilityTest::pressesAButton()
{
    QAccessibleInterface* record = QAccessible::queryAccessibleInterface(button(*m_panel, "Record Region"));
    record->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTRY_VERIFY(m_fixture->isIn<RecordingCoordinator::SelectingRegion>());
}

void AccessibilityTest::choosesAPreset()
{
    QAccessibleInterface* docs = QAccessible::queryAccessibleInterface(segment(*m_panel, "Docs"));
    docs->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QTRY_COMPARE(m_fixture->coordinator.get().preset(), ExportPreset(ExportPreset::docs));
}

void AccessibilityTest::tellsThatAButtonIsDisabled()
{
    m_fixture->updates->setAvailable(false);
    QVERIFY(QAccessible::queryAccessibleInterface(button(*m_panel, "Check for Updates…"))->state().disabled);
}

void AccessibilityTest::leavesNothingThatTakesTheKeyboardUnnamed()
{
    for (QWidget* each : m_panel->findChildren<QWidget*>())
        if (each->focusPolicy() != Qt::NoFocus)
            QVERIFY(!QAccessible::queryAccessibleInterface(each)->text(QAccessible::Name).isEmpty());
}

void AccessibilityTest::readsTheSettings()
{
    SettingsView settings("A notice.");
    settings.show();
    QVERIFY(QTest::qWaitForWindowExposed(&settings));
    const QStringList read = names(settings, QAccessible::StaticText);
    for (const char* text : {"Capture", "Global hotkey", "⌘⇧2", "Privacy",
             "Everything stays on your Mac. No cloud, no telemetry, no account.", "A notice."})
        QVERIFY2(read.contains(QString::fromUtf8(text)), text);
    QCOMPARE(names(settings, QAccessible::PageTab), QStringList("General"));
}

const test::Registration<AccessibilityTest> registeredAccessibilityTest("Accessibility");

} // namespace
} // namespace quillbox

#include "AccessibilityTest.moc"
