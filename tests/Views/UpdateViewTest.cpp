#include "Views/UpdateView.h"

#include "Find.h"
#include "ScriptedUpdates.h"
#include "TextCheck.h"

#include "support/QtTests.h"
#include "Views/Controls/ProgressBar.h"

#include <QSignalSpy>
#include <QTest>

namespace quillbox {
namespace {

using namespace test;

const Update newer{.version = QStringLiteral("1.1"), .id = QStringLiteral("quillbox;1.1;amd64;stable")};

class UpdateViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void showsThatItLooks();
    void cancelsALook();
    void offersWhatWasFoundWithItsVersion();
    void offersAnUpdateWhoseVersionNobodyKnows();
    void putsAnOfferOff();
    void installsByTheButton();
    void showsHowFarTheInstallationIs();
    void offersARestartOnceItIsInstalled();
    void offersNoRestartWhileAClipIsMade();
    void saysThatThereIsNoNewerVersion();
    void saysWhyThereMayBeANewerOneStill();
    void saysWhatWentWrong();
    void offersTheSoftwareCenterWhereThatMayHelp_data();
    void offersTheSoftwareCenterWhereThatMayHelp();
    void letsAnInstallationGoOnWhenClosed();
    void closesOnEscape();
    void closesWhenThereIsNothingToShow();

private:
    /// Has the look that the test began find something.
    void find(const UpdateService::Finding& finding);
    [[nodiscard]] bool isLabelled(const QString& text) const { return label(*m_view, text) != nullptr; }
    [[nodiscard]] QStringList buttons() const;
    void press(const QString& name) { QTest::mouseClick(button(*m_view, name), Qt::LeftButton); }

    ScriptedUpdates* m_service = nullptr;
    std::unique_ptr<UpdaterController> m_updater;
    std::unique_ptr<UpdateView> m_view;
};

void UpdateViewTest::init()
{
    auto service = std::make_unique<ScriptedUpdates>();
    m_service = service.get();
    m_updater = std::make_unique<UpdaterController>(std::move(service));
    m_view = std::make_unique<UpdateView>(*m_updater);
    m_updater->checkForUpdates();
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void UpdateViewTest::cleanup()
{
    QCoreApplication::processEvents(); // the layout follows the texts
    QCOMPARE(clippedTexts(*m_view), QStringList());
    m_view.reset();
    m_updater.reset();
}

void UpdateViewTest::find(const UpdateService::Finding& finding)
{
    m_service->answer(finding);
    QTRY_VERIFY(!m_updater->isIn<UpdaterController::Looking>());
}

QStringList UpdateViewTest::buttons() const
{
    QStringList names;
    for (const FlatButton* each : visible<FlatButton>(*m_view))
        names.append(each->label());
    return names;
}

void UpdateViewTest::showsThatItLooks()
{
    QVERIFY(isLabelled("Looking for updates…"));
    QCOMPARE(buttons(), QStringList({"Cancel"}));
    auto* const bar = m_view->findChild<ProgressBar*>();
    QVERIFY(bar->isVisible());
    Q_EMIT m_service->progressed(40);
    QCOMPARE(bar->value(), 40);
    Q_EMIT m_service->progressed(10); // the next step has begun
    QCOMPARE(bar->value(), 40);
}

void UpdateViewTest::cancelsALook()
{
    press("Cancel");
    QCOMPARE(m_service->cancels, 1);
    QVERIFY(!m_view->isVisible());
    QVERIFY(m_updater->isIn<UpdaterController::Idle>());
}

void UpdateViewTest::offersWhatWasFoundWithItsVersion()
{
    find({.update = newer});
    QVERIFY(isLabelled("Quillbox 1.1 is available"));
    QCOMPARE(buttons(), QStringList({"Later", "Install"}));
    QVERIFY(!m_view->findChild<ProgressBar*>()->isVisible());
}

void UpdateViewTest::offersAnUpdateWhoseVersionNobodyKnows()
{
    find({.update = Update{.version = {}, .id = QStringLiteral("f00")}});
    QVERIFY(isLabelled("A new version of Quillbox is available"));
}

void UpdateViewTest::putsAnOfferOff()
{
    find({.update = newer});
    press("Later");
    QVERIFY(!m_view->isVisible());
    QVERIFY(m_updater->isIn<UpdaterController::Idle>());
    QCOMPARE(m_service->installed, QStringList());
}

void UpdateViewTest::installsByTheButton()
{
    find({.update = newer});
    press("Install");
    QCOMPARE(m_service->installed, QStringList(newer.id));
    QVERIFY(isLabelled("Installing Quillbox 1.1…"));
    QCOMPARE(buttons(), QStringList({"Hide"}));
}

void UpdateViewTest::showsHowFarTheInstallationIs()
{
    Q_EMIT m_service->progressed(100); // of the look
    find({.update = newer});
    press("Install");
    auto* const bar = m_view->findChild<ProgressBar*>();
    QVERIFY(bar->isVisible());
    QCOMPARE(bar->value(), 0);
    Q_EMIT m_service->progressed(20);
    QCOMPARE(bar->value(), 20);
}

void UpdateViewTest::offersARestartOnceItIsInstalled()
{
    find({.update = newer});
    press("Install");
    m_service->answer();
    QTRY_VERIFY(isLabelled("Quillbox 1.1 is installed"));
    QCOMPARE(buttons(), QStringList({"Later", "Restart Quillbox"}));
    const QSignalSpy restarts(m_view.get(), &UpdateView::restartRequested);
    press("Restart Quillbox");
    QCOMPARE(restarts.count(), 1);
}

void UpdateViewTest::offersNoRestartWhileAClipIsMade()
{
    find({.update = newer});
    press("Install");
    m_service->answer();
    QTRY_VERIFY(isLabelled("Quillbox 1.1 is installed"));
    m_view->setBusy(true);
    QCOMPARE(buttons(), QStringList({"Later"}));
    QVERIFY(isLabelled("It can be restarted once your clip is done."));
    m_view->setBusy(false);
    QCOMPARE(buttons(), QStringList({"Later", "Restart Quillbox"}));
    QVERIFY(!isLabelled("It can be restarted once your clip is done."));
}

void UpdateViewTest::saysThatThereIsNoNewerVersion()
{
    find({.installedVersion = QStringLiteral("1.0")});
    QVERIFY(isLabelled("Quillbox is up to date"));
    QVERIFY(isLabelled("1.0 is the newest version on offer."));
    QCOMPARE(buttons(), QStringList({"Close"}));
}

void UpdateViewTest::saysWhyThereMayBeANewerOneStill()
{
    find({.installedVersion = QStringLiteral("1.0"), .staleness = UpdateError(UpdateError::Reason::NoNetwork)});
    QVERIFY(isLabelled("No newer version is known"));
    QVERIFY(!isLabelled("Quillbox is up to date"));
    QVERIFY(isLabelled("The package sources can't be reached, so there may be a newer version still."));
}

void UpdateViewTest::saysWhatWentWrong()
{
    m_service->answer(UpdateError(UpdateError::Reason::Vanished));
    QTRY_VERIFY(isLabelled("Couldn't look for updates"));
    QVERIFY(isLabelled("The system's software service ended while it was working."));
    QCOMPARE(buttons(), QStringList({"Close"}));
}

void UpdateViewTest::offersTheSoftwareCenterWhereThatMayHelp_data()
{
    QTest::addColumn<UpdateError::Reason>("reason");
    QTest::addColumn<bool>("isThere");
    QTest::addColumn<bool>("isOffered");
    QTest::newRow("refused") << UpdateError::Reason::Refused << true << true;
    QTest::newRow("refused, but there is none") << UpdateError::Reason::Refused << false << false;
    QTest::newRow("no network") << UpdateError::Reason::NoNetwork << true << false;
}

void UpdateViewTest::offersTheSoftwareCenterWhereThatMayHelp()
{
    QFETCH(UpdateError::Reason, reason);
    QFETCH(bool, isThere);
    QFETCH(bool, isOffered);
    m_view->setSoftwareCenter(isThere);
    m_service->answer(UpdateError(reason));
    QTRY_VERIFY(isLabelled("Couldn't look for updates"));
    QCOMPARE(buttons().contains("Show in Software Center"), isOffered);
    if (!isOffered)
        return;
    const QSignalSpy requests(m_view.get(), &UpdateView::softwareCenterRequested);
    press("Show in Software Center");
    QCOMPARE(requests.count(), 1);
}

void UpdateViewTest::letsAnInstallationGoOnWhenClosed()
{
    find({.update = newer});
    press("Install");
    press("Hide");
    QVERIFY(!m_view->isVisible());
    QVERIFY(m_updater->isIn<UpdaterController::Installing>());
}

void UpdateViewTest::closesOnEscape()
{
    find({.update = newer});
    QTest::keyClick(m_view.get(), Qt::Key_Escape);
    QVERIFY(!m_view->isVisible());
    QVERIFY(m_updater->isIn<UpdaterController::Idle>());
}

void UpdateViewTest::closesWhenThereIsNothingToShow()
{
    find({.isCancelled = true}); // by somebody else
    QVERIFY(!m_view->isVisible());
}

const Registration<UpdateViewTest> registeredUpdateViewTest("UpdateView");

} // namespace
} // namespace quillbox

#include "UpdateViewTest.moc"
