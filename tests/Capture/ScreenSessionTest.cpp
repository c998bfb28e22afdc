// Runs on a desktop without a portal that the caller starts, and brings one: see CMakeLists.txt beside it.
#include "Capture/ScreenSession.h"

#include "support/Await.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace quillbox {
namespace {

const QString portalName = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString sessionPath = portalPath + QStringLiteral("/session/test");

struct Stream {
    uint node = 0;
    QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Stream& stream)
{
    argument.beginStructure();
    argument << stream.node << stream.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Stream& stream)
{
    argument.beginStructure();
    argument >> stream.node >> stream.properties;
    argument.endStructure();
    return argument;
}

/// A portal that permits everything, and whose PipeWire says nothing at all.
class SilentPortal : public QDBusVirtualObject {
public:
    SilentPortal()
    {
        if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, m_sockets.data()) < 0
            || !m_bus.registerVirtualObject(portalPath, this, QDBusConnection::SubPath)
            || !m_bus.registerService(portalName))
            qFatal("there is no bus for the test");
    }
    ~SilentPortal() override
    {
        m_bus.unregisterService(portalName);
        m_bus.unregisterObject(portalPath, QDBusConnection::UnregisterTree);
        for (const int socket : m_sockets)
            ::close(socket);
    }
    SilentPortal(const SilentPortal&) = delete;
    SilentPortal& operator=(const SilentPortal&) = delete;

    [[nodiscard]] bool hasGivenPipeWire() const { return m_hasGivenPipeWire; }
    /// Whether somebody has begun to talk to PipeWire.
    [[nodiscard]] bool isWaitedFor() const
    {
        pollfd incoming{m_sockets.back(), POLLIN, 0};
        return ::poll(&incoming, 1, 0) == 1;
    }

    void closeSession()
    {
        (void)m_bus.send(QDBusMessage::createSignal(sessionPath, "org.freedesktop.portal.Session", "Closed"));
    }
    void leave() { m_bus.unregisterService(portalName); }

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
    {
        const QString member = message.member();
        if (member == QLatin1String("GetAll")) {
            (void)bus.send(message.createReply(
                QVariantMap{{"version", 4U}, {"AvailableSourceTypes", 1U}, {"AvailableCursorModes", 3U}}));
        } else if (member == QLatin1String("CreateSession")) {
            answer(message, bus, {{"session_handle", sessionPath}});
        } else if (member == QLatin1String("SelectSources")) {
            answer(message, bus, {});
        } else if (member == QLatin1String("Start")) {
            QVariantMap results;
            results.insert("streams", QVariant::fromValue(QList<Stream>{Stream{1, {}}}));
            answer(message, bus, results);
        } else if (member == QLatin1String("OpenPipeWireRemote")) {
            m_hasGivenPipeWire = true;
            (void)bus.send(message.createReply(QVariant::fromValue(QDBusUnixFileDescriptor(m_sockets.front()))));
        } else {
            return false;
        }
        return true;
    }

private:
    /// First the call, with the request's path, then by the request's signal.
    static void answer(const QDBusMessage& message, const QDBusConnection& bus, const QVariantMap& results)
    {
        QString sender = message.service().mid(1);
        sender.replace('.', '_');
        const auto options = qdbus_cast<QVariantMap>(message.arguments().constLast());
        const QString path = portalPath + "/request/" + sender + '/' + options.value("handle_token").toString();
        (void)bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(path))));
        auto response = QDBusMessage::createSignal(path, "org.freedesktop.portal.Request", "Response");
        response << 0U << results;
        (void)bus.send(response);
    }

    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "portal");
    std::array<int, 2> m_sockets{-1, -1};
    bool m_hasGivenPipeWire = false;
};

/// What the wait for the first picture fails with when `happens` as soon as it has begun.
template <typename Happening>
std::optional<CaptureError> failureWhen(
    SilentPortal& portal, std::unique_ptr<ScreenSession>& screen, const Happening& happens)
{
    test::Outcome<CastPicture> outcome;
    const auto following = test::follow(screen->openCast(), outcome);
    EXPECT_TRUE(test::eventually([&] { return outcome.isDone || portal.isWaitedFor(); }));
    happens();
    EXPECT_TRUE(test::eventually([&] { return outcome.isDone; }));
    try {
        if (outcome.error)
            std::rethrow_exception(outcome.error);
    } catch (const CaptureError& error) {
        return error;
    }
    return std::nullopt;
}

class ScreenSessionTest : public testing::Test {
protected:
    SilentPortal m_portal;
    std::unique_ptr<ScreenSession> m_screen = std::make_unique<ScreenSession>();

    void expectFailureWhen(
        const std::function<void()>& happens, CaptureError::Reason reason, const std::string& sentence)
    {
        const auto failure = failureWhen(m_portal, m_screen, happens);
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->reason(), reason);
        EXPECT_EQ(failure->what(), sentence);
    }
};

TEST_F(ScreenSessionTest, EndsWithThePortalsSessionWhileItWaitsForTheFirstPicture)
{
    expectFailureWhen([&] { m_portal.closeSession(); }, CaptureError::Reason::DisplayGone,
        "The desktop has ended the recording of its screen");
}

TEST_F(ScreenSessionTest, EndsWithThePortalWhileItWaitsForTheFirstPicture)
{
    expectFailureWhen([&] { m_portal.leave(); }, CaptureError::Reason::DisplayGone,
        "The desktop portal, which shows us the screen, went away");
}

TEST_F(ScreenSessionTest, MayBeDestroyedWhileItWaitsForTheFirstPicture)
{
    expectFailureWhen(
        [&] { m_screen.reset(); }, CaptureError::Reason::Stopped, "Screen capture was stopped before it began");
}

TEST_F(ScreenSessionTest, MayBeDestroyedWhileTheUserIsAsked)
{
    test::Outcome<CastPicture> outcome;
    const auto following = test::follow(m_screen->openCast(), outcome);
    m_screen.reset();
    EXPECT_TRUE(test::eventually([&] { return outcome.isDone; }));
    EXPECT_TRUE(outcome.error);
    EXPECT_FALSE(m_portal.hasGivenPipeWire());
}

TEST(ScreenSessionDeathTest, HasNothingSelectedOnACastThatIsNotOpen)
{
    ScreenSession screen;
    EXPECT_DEATH(screen.selectOnCast({640, 360}, nullptr), "a cast that is open");
}

} // namespace
} // namespace quillbox

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    qDBusRegisterMetaType<quillbox::Stream>();
    qDBusRegisterMetaType<QList<quillbox::Stream>>();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
