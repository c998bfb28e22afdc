// On a bus that the test starts, ends and starts again.
#include "Platform/DBus/SessionBus.h"

#include "support/Await.h"
#include "support/Subprocess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QDBusConnectionInterface>

#include <csignal>
#include <string>
#include <sys/types.h>

namespace quillbox {
namespace {

/// The session bus of this process, at one address. Before anything else asks for it.
class Bus {
public:
    Bus()
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", address().toUtf8());
        start();
    }
    ~Bus() { end(); }
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;

    void start()
    {
        const auto daemon = support::runProcess({"dbus-daemon", "--session", "--fork", "--nopidfile", "--print-pid=1",
            "--address=" + address().toStdString()});
        ASSERT_EQ(daemon.exitStatus, 0) << daemon.errors; // it listens once its parent has ended
        m_daemon = std::stoi(daemon.output);
    }
    void end() const { ASSERT_EQ(::kill(m_daemon, SIGKILL), 0); }

private:
    [[nodiscard]] QString address() const
    {
        return "unix:path=" + QString::fromStdString((m_folder.path() / "bus").string());
    }

    support::TemporaryFolder m_folder;
    pid_t m_daemon = 0;
};

const auto name = QStringLiteral("org.quillbox.test");

bool takeName()
{
    auto bus = SessionBus::connection();
    return bus.registerService(name) && bus.interface()->isServiceRegistered(name);
}

TEST(SessionBus, ConnectsAgainEachTimeTheBusIsRestarted)
{
    Bus bus;
    SessionBus connection;
    QTimer unheard;
    int times = 0;
    QObject::connect(&connection, &SessionBus::restored, &connection, [&] { ++times; });
    ASSERT_TRUE(takeName());
    for (int restart = 1; restart <= 2; ++restart) {
        bus.end();
        ASSERT_TRUE(test::eventually([] { return !SessionBus::connection().isConnected(); }));
        SessionBus::listen(
            QStringLiteral("/"), name, QStringLiteral("Signal"), &unheard, SLOT(start())); // ends nothing
        bus.start();
        ASSERT_TRUE(test::eventually([&] { return times == restart; }));
        EXPECT_TRUE(SessionBus::connection().isConnected());
        EXPECT_TRUE(takeName());
    }
}

} // namespace
} // namespace quillbox

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
