// Runs on a real desktop, X11 or Wayland, that the caller starts: see CMakeLists.txt beside it.
#include "PostCapture/Clipboard/Clipboard.h"

#include "Pasting.h"

#include <gtest/gtest.h>

#include <QGuiApplication>

#include <sys/socket.h>
#include <sys/un.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace quillbox {
namespace {

using State = Clipboard::State;
using test::pasted;

const QUrl file("file:///clip.gif");

/// How the path of the socket begins on which the display is reached.
std::string displaySockets()
{
    if (!test::isOnWayland())
        return "/tmp/.X11-unix/X";
    return (qgetenv("XDG_RUNTIME_DIR") + '/' + qgetenv("WAYLAND_DISPLAY")).toStdString();
}

/// Breaks what connects this process with the display, which goes on.
void breakConnections()
{
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        const int descriptor = std::stoi(entry.path().filename());
        sockaddr_un address{};
        socklen_t length = sizeof address;
        if (::getpeername(descriptor, reinterpret_cast<sockaddr*>(&address), &length) != 0)
            continue;
        const bool isAbstract = address.sun_path[0] == 0;
        if (std::string_view(&address.sun_path[isAbstract ? 1 : 0]).starts_with(displaySockets()))
            ::shutdown(descriptor, SHUT_RDWR);
    }
}

class ClipboardTest : public testing::Test {
protected:
    void SetUp() override
    {
        m_pasteboard.setClip(file, "GIF89a first");
        ASSERT_EQ(m_pasteboard.state(), State::Accepted);
        ASSERT_EQ(pasted("image/gif"), "GIF89a first");
    }
    void loseConnection()
    {
        breakConnections();
        ASSERT_TRUE(test::eventually([&] { return m_pasteboard.state() != State::Accepted; }));
    }

    Clipboard& m_pasteboard = Clipboard::general();
};

TEST_F(ClipboardTest, AClipIsPendingOnceTheConnectionHasBroken)
{
    int losses = 0;
    const auto counting = QObject::connect(&m_pasteboard, &Clipboard::lost, [&] { ++losses; });
    loseConnection();
    EXPECT_EQ(m_pasteboard.state(), State::Pending);
    EXPECT_EQ(losses, 1);
    EXPECT_EQ(pasted("image/gif"), "");
    QObject::disconnect(counting);
}

TEST_F(ClipboardTest, AnotherTryPutsThePendingClipBack)
{
    loseConnection();
    m_pasteboard.retry();
    EXPECT_EQ(m_pasteboard.state(), State::Accepted);
    EXPECT_EQ(pasted("image/gif"), "GIF89a first");
}

TEST_F(ClipboardTest, TheNextClipTakesTheWayThereIs)
{
    loseConnection();
    m_pasteboard.setClip(file, "GIF89a second");
    EXPECT_EQ(m_pasteboard.state(), State::Accepted);
    EXPECT_EQ(pasted("image/gif"), "GIF89a second");
}

} // namespace
} // namespace quillbox

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // the toolkit's own connection must not be the one that breaks
    qputenv("QUILLBOX_CLIPBOARD_BACKEND", quillbox::test::isOnWayland() ? "data-control" : "x11");
    QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
