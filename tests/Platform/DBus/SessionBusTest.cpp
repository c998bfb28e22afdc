// On a bus that the test starts, ends and starts again.
#include "Platform/DBus/SessionBus.h"

#include "support/Await.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QDBusConnectionInterface>
#include <QProcess>

#include <memory>

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
        m_daemon = std::make_unique<QProcess>();
        m_daemon->setProgram("dbus-daemon");
        m_daemon->setArguments({"--session", "--nofork", "--nopidfile", "--print-address=1", "--address=" + address()});
        m_daemon->start();
        ASSERT_TRUE(m_daemon->waitForReadyRead()) << "it listens once it has printed its address";
    }
    void end()
    {
        m_daemon->kill();
        m_daemon->waitForFinished();
    }

private:
    [[nodiscard]] QString address() const
    {
        return "unix:path=" + QString::fromStdString((m_folder.path() / "bus").string());
    }

    support::TemporaryFolder m_folder;
    std::unique_ptr<QProcess> m_daemon;
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
