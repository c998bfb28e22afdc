// What happens without being asked for.
#include "PackageKitFixture.h"

namespace quillbox {
namespace {

using namespace test;

class PackageKitSilenceTest : public PackageKitFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void doesNotStartTheDaemonSilently();
    void looksSilentlyWhenAnotherProgramStartsTheDaemon();
    void asksNobodyForAPasswordSilently();
    void looksAgainWhenTheUpdatesHaveChanged();
    void canNotCheckOnceItKnowsThatItIsNotInstalled();
};

void PackageKitSilenceTest::doesNotStartTheDaemonSilently()
{
    PackageKitTransaction transaction(m_bus);
    const PackageKitTransaction::Request request{
        .method = "GetUpdates", .arguments = {QVariant::fromValue(PackageKit::filterNone)}};
    const auto outcome = transaction.run(request, PackageKitTransaction::Manner::Silent);
    QVERIFY(eventually([&] { return outcome.isFinished(); }));
    QVERIFY(outcome.result().error);
    QCOMPARE(outcome.result().error->reason(), Reason::Unreachable);
    QCOMPARE(daemon(), 0);
}

void PackageKitSilenceTest::looksSilentlyWhenAnotherProgramStartsTheDaemon()
{
    source({"offer", "quillbox", "1.1"});
    begin();
    checkToTheEnd(); // somebody has read the source meanwhile
    m_hud.reset();
    m_updater.reset();
    killDaemon();

    begin(0ms);
    startDaemon();
    QVERIFY(eventually([this] { return !m_seen->isEmpty(); }));
    QCOMPARE(m_seen->first()[0].value<Update>().version, QString("1.1"));
    QVERIFY(isIn<UpdaterController::Idle>());
    QVERIFY(eventually([this] { return updateButton()->isEnabled(); }));
}

void PackageKitSilenceTest::asksNobodyForAPasswordSilently()
{
    findUpdate();
    m_hud.reset();
    m_updater.reset();

    polkit("SimulateHang", {true}); // a question would never be answered
    begin(0ms);
    QVERIFY(eventually([this] { return !m_seen->isEmpty(); }));
    QVERIFY(!isPasswordAsked());
}

void PackageKitSilenceTest::looksAgainWhenTheUpdatesHaveChanged()
{
    source({"offer", "quillbox", "1.0"});
    begin(0ms);
    checkToTheEnd();
    QVERIFY(isIn<UpdaterController::UpToDate>());
    source({"offer", "quillbox", "1.1"});
    PackageKitTransaction another(m_bus); // as the desktop's own updater does it
    const auto refreshed
        = another.run({.method = "RefreshCache", .arguments = {false}}, PackageKitTransaction::Manner::Interactive);
    QVERIFY(eventually([this] { return !m_seen->isEmpty(); }));
    QVERIFY(refreshed.isFinished());
    QCOMPARE(m_seen->first()[0].value<Update>().version, QString("1.1"));
}

void PackageKitSilenceTest::canNotCheckOnceItKnowsThatItIsNotInstalled()
{
    source({"remove"});
    begin(0ms);
    startDaemon();
    QVERIFY(eventually([this] { return !m_updater->obstacle().isEmpty(); }));
    QCOMPARE(m_updater->obstacle(), UpdateMessages::describe(UpdateError(Reason::NotPackaged)));
    QVERIFY(!updateButton()->isEnabled());
}

} // namespace
} // namespace quillbox

int main(int argc, char** argv)
{
    quillbox::PackageKitSilenceTest test;
    return quillbox::test::runOnPackageKit(test, argc, argv);
}

#include "PackageKitSilenceTest.moc"
