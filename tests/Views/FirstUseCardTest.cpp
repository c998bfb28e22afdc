#include "Find.h"

#include "support/QtTests.h"
#include "Views/FirstUseCard.h"

#include <QDir>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace quillbox {
namespace {

using test::button;
using test::label;

class FirstUseCardTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_card = std::make_unique<FirstUseCard>(); }

    void tellsWhereTheIconIs()
    {
        m_card->setFacts({.hasTray = true});
        QVERIFY(label(*m_card, "Quillbox waits in the tray of your desktop. Click its icon to open this panel."));
    }
    void tellsHowToOpenThePanelWithoutATray()
    {
        m_card->setFacts({.hasTray = false});
        QVERIFY(label(*m_card, "This desktop has no tray for an icon. Start Quillbox again to open this panel."));
    }
    void tellsTheKeys()
    {
        QVERIFY(label(*m_card, "Press Super + Shift + 2 (⌘⇧2) in any program and drag out a region to record it."));
    }
    void callsTheKeysWhatTheKeyboardCallsThem()
    {
        m_card->setFacts({.combination = "Super + Shift + É"});
        QVERIFY(label(*m_card, "Press Super + Shift + É (⌘⇧2) in any program and drag out a region to record it."));
    }
    void tellsWhatToDoWhereTheKeysDoNotWork()
    {
        m_card->setFacts({.keys = "Bind “quillbox toggle” to a key."});
        QVERIFY(label(*m_card, "Bind “quillbox toggle” to a key."));
        QVERIFY(!test::texts(*m_card).join(' ').contains("Super"));
    }
    void tellsWhereClipsGo()
    {
        m_card->setFacts({.clipsFolder = QDir::homePath() + "/Videos/Quillbox"});
        QVERIFY(plainTexts().contains("Clips are copied, ready to paste, and saved in ~/Videos/Quillbox."));
        m_card->setFacts({.clipsFolder = "/srv/%1/clips"});
        QVERIFY(plainTexts().contains("Clips are copied, ready to paste, and saved in /srv/%1/clips."));
    }
    void passesOnThatItHasBeenRead()
    {
        const QSignalSpy understood(m_card.get(), &FirstUseCard::understood);
        QTest::mouseClick(button(*m_card, "Got it"), Qt::LeftButton);
        QCOMPARE(understood.count(), 1);
    }
    void writesPathsFromHome()
    {
        const auto home = QDir::homePath();
        QCOMPARE(pathFromHome(home), QString("~"));
        QCOMPARE(pathFromHome(home + "/a b/"), QString("~/a b"));
        QCOMPARE(pathFromHome(home + "-other/a"), home + "-other/a");
        QCOMPARE(pathFromHome("/a/../b"), QString("/b"));
    }

private:
    /// Without the characters that only keep a path together.
    [[nodiscard]] QStringList plainTexts() const
    {
        return test::texts(*m_card).replaceInStrings(QString(QChar(0x2060)), QString());
    }

    std::unique_ptr<FirstUseCard> m_card;
};

const test::Registration<FirstUseCardTest> registeredFirstUseCardTest("FirstUseCard");

} // namespace
} // namespace quillbox

#include "FirstUseCardTest.moc"
