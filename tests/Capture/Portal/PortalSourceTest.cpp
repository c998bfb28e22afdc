#include "Capture/Portal/PortalSource.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QtGlobal>

#include <sys/socket.h>
#include <sys/un.h>

#include <chrono>
#include <cstring>

namespace quillbox {
namespace {

/// A compositor that takes connections and answers nothing.
class HungCompositor {
public:
    HungCompositor()
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const QByteArray path = QByteArray::fromStdString(m_folder.path().string()) + "/wayland";
        std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
        EXPECT_EQ(::bind(m_socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(m_socket.number(), 100), 0);
        qputenv("WAYLAND_DISPLAY", path);
    }
    ~HungCompositor() { qunsetenv("WAYLAND_DISPLAY"); }
    HungCompositor(const HungCompositor&) = delete;
    HungCompositor& operator=(const HungCompositor&) = delete;

private:
    support::TemporaryFolder m_folder;
    FileDescriptor m_socket{::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)};
};

TEST(PortalSource, WaitsForNoCompositorOnceItIsStopped)
{
    const HungCompositor compositor;
    const auto began = std::chrono::steady_clock::now();
    for (int time = 0; time < 10; ++time) { // one that is not stopped waits for two seconds
        const auto source = sourceOf({}, FileDescriptor(), std::nullopt);
        source.stop();
        source.connect();
        EXPECT_EQ(source.points({640, 480}), std::nullopt);
        source.repaint();
    }
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(10));
}

} // namespace
} // namespace quillbox
