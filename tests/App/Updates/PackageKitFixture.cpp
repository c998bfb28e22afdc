#include "PackageKitFixture.h"

#include <QApplication>
#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>

namespace quillbox::test {
namespace {

const auto packageKit = QStringLiteral("org.freedesktop.PackageKit");

} // namespace

void PackageKitFixture::setUp()
{
    QVERIFY2(!m_folder.isEmpty(), "run by tests/desktop/system-bus");
    source({"install", "quillbox", "1.0"});
    m_fixture = std::make_unique<ViewsFixture>();
}

void PackageKitFixture::tearDown()
{
    m_hud.reset();
    m_updater.reset();
    m_fixture.reset();
    QCoreApplication::processEvents(); // what was cut off ends
    killDaemon();
    polkit("SimulateHang", {false});
    polkit("ReleaseHangingCalls", {});
    polkit("SetAllowed", {QStringList()});
    polkit("AllowUnknown", {true});
}

void PackageKitFixture::begin(std::chrono::milliseconds firstLook)
{
    const PackageKitService::Options options{.bus = m_bus, .package = "quillbox", .firstLook = firstLook, .quiet = 0ms};
    m_updater = std::make_unique<UpdaterController>(std::make_unique<PackageKitService>(options));
    m_seen = std::make_unique<QSignalSpy>(m_updater.get(), &UpdaterController::updateSeen);
    m_hud = std::make_unique<RecorderHUD>(m_fixture->coordinator, *m_updater);
    m_hud->show();
    QVERIFY(eventually([this] { return m_updater->canCheckForUpdates(); }));
    QVERIFY(updateButton()->isEnabled());
}

void PackageKitFixture::source(const QStringList& arguments)
{
    QCOMPARE(QProcess::execute(PACKAGE_SOURCE, QStringList(m_folder) + arguments), 0);
}

void PackageKitFixture::polkit(const QString& method, const QVariantList& arguments)
{
    auto call = QDBusMessage::createMethodCall(
        "org.freedesktop.PolicyKit1", "/org/freedesktop/PolicyKit1/Authority", "org.freedesktop.DBus.Mock", method);
    call.setArguments(arguments);
    QCOMPARE(m_bus.call(call).type(), QDBusMessage::ReplyMessage);
}

bool PackageKitFixture::isPasswordAsked()
{
    const QDBusReply<bool> reply = m_bus.call(QDBusMessage::createMethodCall("org.freedesktop.PolicyKit1",
        "/org/freedesktop/PolicyKit1/Authority", "org.freedesktop.DBus.Mock", "HaveHangingCalls"));
    return reply.value();
}

qint64 PackageKitFixture::daemon()
{
    const auto reply = m_bus.interface()->servicePid(packageKit);
    return reply.isValid() ? qint64{reply.value()} : 0;
}

void PackageKitFixture::startDaemon()
{
    QVERIFY(m_bus.interface()->startService(packageKit).isValid());
    QVERIFY(daemon() != 0);
}

void PackageKitFixture::signalDaemon(int number)
{
    const auto process = daemon();
    QVERIFY(process != 0);
    QCOMPARE(::kill(static_cast<pid_t>(process), number), 0);
}

void PackageKitFixture::killDaemon()
{
    if (daemon() == 0)
        return;
    signalDaemon(SIGKILL);
    QVERIFY(eventually([this] { return daemon() == 0; }));
}

/// The user presses the button, which then can't be pressed any more.
void PackageKitFixture::check()
{
    QTest::mouseClick(updateButton(), Qt::LeftButton);
    QVERIFY(isIn<UpdaterController::Looking>());
    QVERIFY(!updateButton()->isEnabled());
}

void PackageKitFixture::checkToTheEnd()
{
    check();
    QVERIFY(eventually([this] { return !isIn<UpdaterController::Looking>(); }));
}

void PackageKitFixture::findUpdate()
{
    source({"offer", "quillbox", "1.1"});
    begin();
    checkToTheEnd();
    QVERIFY(isIn<UpdaterController::Available>());
}

void PackageKitFixture::waitForTheInstallation()
{
    QVERIFY(eventually([this] { return !isIn<UpdaterController::Installing>(); }));
}

bool PackageKitFixture::fails(Reason reason) const
{
    const auto* const failure = std::get_if<UpdaterController::Failed>(&m_updater->phase());
    return failure && failure->message == UpdateMessages::describe(UpdateError(reason));
}

QString PackageKitFixture::installedVersion() const
{
    QFile file(QDir(m_folder).filePath("root/usr/share/quillbox/version")); // it was really unpacked
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
}

int runOnPackageKit(QObject& test, int argc, char** argv)
{
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return QTest::qExec(&test, argc, argv);
}

} // namespace quillbox::test
