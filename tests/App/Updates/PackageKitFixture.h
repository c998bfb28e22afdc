#pragma once

#include "App/Updates/PackageKitService.h"

#include "Find.h"
#include "support/Await.h"
#include "ViewsFixture.h"

#include "App/Updates/UpdateMessages.h"
#include "Views/RecorderHUD.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace quillbox::test {

using namespace std::chrono_literals;

/// The system's own PackageKit on a bus of its own, as tests/desktop/system-bus makes it, and an application that it
/// updates. Each test begins with version 1.0 installed.
class PackageKitFixture : public QObject {
protected:
    using Reason = UpdateError::Reason;

    void setUp();
    void tearDown();

    /// Starts the application. @param firstLook  When it looks by itself.
    void begin(std::chrono::milliseconds firstLook = 24h);
    /// Has the package source do something: tests/desktop/package-source.
    void source(const QStringList& arguments);
    void polkit(const QString& method, const QVariantList& arguments);
    [[nodiscard]] bool isPasswordAsked();
    /// The daemon's process; 0 while there is none.
    [[nodiscard]] qint64 daemon();
    void startDaemon();
    void signalDaemon(int number);
    void killDaemon();
    void check();
    void checkToTheEnd();
    /// Begins with version 1.1 offered, and finds it.
    void findUpdate();
    void waitForTheInstallation();
    template <typename P> [[nodiscard]] const P& phase() const { return std::get<P>(m_updater->phase()); }
    template <typename P> [[nodiscard]] bool isIn() const { return m_updater->isIn<P>(); }
    [[nodiscard]] bool fails(Reason reason) const;
    [[nodiscard]] FlatButton* updateButton() const { return button(*m_hud, "Check for Updates…"); }
    [[nodiscard]] QString installedVersion() const;

    QString m_folder = qEnvironmentVariable("PACKAGE_FOLDER");
    QDBusConnection m_bus = QDBusConnection::systemBus();
    std::unique_ptr<ViewsFixture> m_fixture;
    std::unique_ptr<UpdaterController> m_updater;
    std::unique_ptr<QSignalSpy> m_seen; // without being asked
    std::unique_ptr<RecorderHUD> m_hud;
};

/// Runs the tests of a class. @return the exit status
int runOnPackageKit(QObject& test, int argc, char** argv);

} // namespace quillbox::test
