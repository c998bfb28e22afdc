// On a bus that the test starts, with a portal that replies to every call, and answers some.
#include "Platform/Portal/PortalSession.h"

#include "Platform/Portal/DesktopPortal.h"
#include "support/Await.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusContext>
#include <QDBusObjectPath>
#include <QProcess>

#include <optional>

namespace quillbox {
namespace {

using namespace std::chrono_literals;

const auto interface = QStringLiteral("org.freedesktop.portal.ScreenCast");

class Portal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.ScreenCast")

public:
    explicit Portal(const QString& busAddress)
        : m_bus(QDBusConnection::connectToBus(busAddress, QStringLiteral("portal")))
    {
        EXPECT_TRUE(m_bus.registerObject(QLatin1String(DesktopPortal::path), this, QDBusConnection::ExportAllSlots));
        EXPECT_TRUE(m_bus.registerService(QLatin1String(DesktopPortal::service)));
    }
    ~Portal() override { QDBusConnection::disconnectFromBus(m_bus.name()); }
    Portal(const Portal&) = delete;
    Portal& operator=(const Portal&) = delete;

    bool opensSessions = true;

public Q_SLOTS:
    QDBusObjectPath CreateSession(const QVariantMap& options)
    {
        const QString sender = message().service().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
        const QString path = QLatin1String(DesktopPortal::path) + QStringLiteral("/request/") + sender
            + QLatin1Char('/') + options.value(QStringLiteral("handle_token")).toString();
        if (opensSessions) {
            auto response = QDBusMessage::createSignal(
                path, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
            response << 0U << QVariantMap{{QStringLiteral("session_handle"), QStringLiteral("/session")}};
            m_bus.send(response);
        }
        return QDBusObjectPath(path);
    }
    QDBusObjectPath Ask(const QDBusObjectPath&, const QVariantMap&)
    {
        return QDBusObjectPath(QStringLiteral("/request"));
    }

private:
    QDBusConnection m_bus;
};

class PortalSessionTest : public testing::Test {
protected:
    Portal& portal() { return m_portal; }

private:
    Portal m_portal{qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS")};
};

std::optional<PortalError::Reason> reasonOf(const test::Outcome<QVariantMap>& outcome)
{
    try {
        if (outcome.error)
            std::rethrow_exception(outcome.error);
    } catch (const PortalError& error) {
        return error.reason();
    }
    return std::nullopt;
}

TEST_F(PortalSessionTest, DoesNotWaitForeverForASessionThatThePortalPromised)
{
    portal().opensSessions = false;
    test::Outcome<QVariantMap> opening;
    PortalSession session(interface, 100ms);
    const auto following = test::follow(session.open(), opening);
    EXPECT_TRUE(test::eventually([&] { return opening.isDone; }));
    EXPECT_EQ(reasonOf(opening), PortalError::Reason::Gone);
}

TEST_F(PortalSessionTest, WaitsForTheUserButNotForThePortal)
{
    test::Outcome<QVariantMap> user; // told even at the session's end
    test::Outcome<QVariantMap> other;
    PortalSession session(interface, 100ms);
    test::await(session.open());
    const auto asking
        = test::follow(session.request(PortalSession::Answer::OfUser, QStringLiteral("Ask"), {}, {}), user);
    const auto next
        = test::follow(session.request(PortalSession::Answer::OfPortal, QStringLiteral("Ask"), {}, {}), other);
    EXPECT_TRUE(test::eventually([&] { return other.isDone; }));
    EXPECT_EQ(reasonOf(other), PortalError::Reason::Gone);
    EXPECT_FALSE(user.isDone) << "it was asked before the other";
}

} // namespace
} // namespace quillbox

int main(int argc, char* argv[])
{
    testing::InitGoogleTest(&argc, argv);
    const quillbox::support::TemporaryFolder folder;
    const auto address = QStringLiteral("unix:path=") + QString::fromStdString((folder.path() / "bus").string());
    qputenv("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
    const QCoreApplication application(argc, argv);
    QProcess daemon;
    daemon.start(QStringLiteral("dbus-daemon"),
        {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
            QStringLiteral("--print-address=1"), QStringLiteral("--address=") + address});
    if (!daemon.waitForReadyRead()) // it listens once it has printed its address
        return 1;
    const int status = RUN_ALL_TESTS();
    daemon.kill();
    daemon.waitForFinished();
    return status;
}

#include "PortalSessionTest.moc"
