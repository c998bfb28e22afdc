#include "Views/SettingsView.h"

#include "Find.h"
#include "TextCheck.h"

#include "support/QtTests.h"
#include "Views/Controls/Card.h"

#include <QSignalSpy>
#include <QTabBar>
#include <QTest>

namespace quillbox {
namespace {

using namespace test;

class SettingsViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void isAWindowCalledSettings();
    void hasOneTabCalledGeneral();
    void showsEverythingFromTopToBottom();
    void showsTheShortcutInMonospacedType();
    void statesThePrivacyStanceBesideAShield();
    void wrapsThePrivacyStance();
    void showsTheFooterNoticeSmallAndFaint();
    void takesAnotherFooterNotice();
    void offersNothingToEdit();
    void closesOnEscape();
    void cutsNoTextOff();
    void isNotWidenedByThePrivacyStance();

private:
    std::unique_ptr<SettingsView> m_view;
};

void SettingsViewTest::init()
{
    m_view = std::make_unique<SettingsView>("A notice.");
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void SettingsViewTest::isAWindowCalledSettings()
{
    QVERIFY(m_view->isWindow());
    QCOMPARE(m_view->windowTitle(), QString("Settings"));
}

void SettingsViewTest::hasOneTabCalledGeneral()
{
    const auto* tabs = m_view->findChild<QTabBar*>();
    QCOMPARE(tabs->count(), 1);
    QCOMPARE(tabs->tabText(0), QString("General"));
    QVERIFY(!tabs->tabIcon(0).isNull());
}

void SettingsViewTest::showsEverythingFromTopToBottom()
{
    QList<TextLabel*> labels = visible<TextLabel>(*m_view);
    std::stable_sort(labels.begin(), labels.end(), [this](const TextLabel* a, const TextLabel* b) {
        const QPoint first = a->mapTo(m_view.get(), a->rect().center());
        const QPoint second = b->mapTo(m_view.get(), b->rect().center());
        return std::pair(first.y(), first.x()) < std::pair(second.y(), second.x());
    });
    QStringList shown;
    for (const TextLabel* each : labels)
        shown.append(each->text());
    QCOMPARE(shown,
        QStringList({"Capture", "Global hotkey", "⌘⇧2", "Privacy",
            "Everything stays on your Mac. No cloud, no telemetry, no account.", "A notice."}));
    QStringList cards;
    for (const Card* card : m_view->findChildren<Card*>())
        cards.append(card->accessibleName());
    QCOMPARE(cards, QStringList({"Capture", "Privacy"}));
}

void SettingsViewTest::showsTheShortcutInMonospacedType()
{
    const TextLabel* shortcut = label(*m_view, "⌘⇧2");
    QCOMPARE(shortcut->textStyle(), TextStyle::Monospaced);
    QCOMPARE(shortcut->role(), Role::Secondary);
    QCOMPARE(shortcut->textInteractionFlags(), Qt::TextInteractionFlags(Qt::LinksAccessibleByMouse)); // the default
}

void SettingsViewTest::statesThePrivacyStanceBesideAShield()
{
    const TextLabel* stance = label(*m_view, "Everything stays on your Mac. No cloud, no telemetry, no account.");
    QCOMPARE(stance->textStyle(), TextStyle::Callout);
    QCOMPARE(stance->role(), Role::Secondary);
    QCOMPARE(symbolBeside(stance)->symbol(), Symbol::LockShield);
}

void SettingsViewTest::wrapsThePrivacyStance()
{
    const TextLabel* stance = label(*m_view, "Everything stays on your Mac. No cloud, no telemetry, no account.");
    QCOMPARE(stance->overflow(), TextLabel::Overflow::Wrap);
    QVERIFY(stance->heightForWidth(120) >= 3 * stance->fontMetrics().height());
}

void SettingsViewTest::showsTheFooterNoticeSmallAndFaint()
{
    const TextLabel* notice = label(*m_view, "A notice.");
    QCOMPARE(notice->textStyle(), TextStyle::SmallCaption);
    QCOMPARE(notice->role(), Role::Tertiary);
}

void SettingsViewTest::takesAnotherFooterNotice()
{
    m_view->setFooterNotice("Another.");
    QVERIFY(label(*m_view, "Another."));
    QVERIFY(!label(*m_view, "A notice."));
}

void SettingsViewTest::offersNothingToEdit()
{
    for (const QWidget* each : visible<QWidget>(*m_view))
        QVERIFY(each->focusPolicy() == Qt::NoFocus || qobject_cast<const QTabBar*>(each));
}

void SettingsViewTest::closesOnEscape()
{
    QTest::keyClick(m_view.get(), Qt::Key_Escape);
    QVERIFY(!m_view->isVisible());
}

void SettingsViewTest::cutsNoTextOff()
{
    QCOMPARE(clippedTexts(*m_view), QStringList());
    m_view->setFooterNotice(QString("A long notice. ").repeated(20));
    QCoreApplication::processEvents();
    QCOMPARE(clippedTexts(*m_view), QStringList());
}

void SettingsViewTest::isNotWidenedByThePrivacyStance()
{
    const TextLabel* stance = label(*m_view, "Everything stays on your Mac. No cloud, no telemetry, no account.");
    QVERIFY(stance->minimumSizeHint().width() < stance->fontMetrics().horizontalAdvance(stance->text()));
}

const test::Registration<SettingsViewTest> registeredSettingsViewTest("SettingsView");

} // namespace
} // namespace quillbox

#include "SettingsViewTest.moc"
