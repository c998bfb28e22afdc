#include "App/Desktop/WindowPlaces/SwayConnection.h"

#include <QSocketNotifier>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <utility>

namespace quillbox {
namespace {

const QByteArray magic("i3-ipc");
constexpr std::size_t headerBytes = 14;         // the magic, the payload's length, the kind; in the machine's order
constexpr std::uint32_t maxPayload = 1U << 24U; // more than the tree of any desktop

QByteArray bytesOf(std::uint32_t number)
{
    const auto bytes = std::bit_cast<std::array<char, sizeof number>>(number);
    return {bytes.data(), static_cast<qsizetype>(bytes.size())};
}

std::uint32_t numberAt(const QByteArray& bytes, qsizetype offset)
{
    std::uint32_t number = 0;
    std::memcpy(&number, bytes.constData() + offset, sizeof number);
    return number;
}

} // namespace

SwayConnection::SwayConnection(QByteArray socket)
    : m_path(std::move(socket))
{
}

SwayConnection::~SwayConnection() = default;

bool SwayConnection::send(Kind kind, const QByteArray& payload)
{
    const QByteArray message = magic + bytesOf(static_cast<std::uint32_t>(payload.size()))
        + bytesOf(static_cast<std::uint32_t>(kind)) + payload;
    if (connectToSway()
        && ::send(m_socket.number(), message.constData(), static_cast<std::size_t>(message.size()), MSG_NOSIGNAL)
            == message.size())
        return true;
    close();
    return false;
}

bool SwayConnection::connectToSway()
{
    if (m_notifier)
        return true;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (std::cmp_greater_equal(m_path.size(), sizeof address.sun_path))
        return false;
    std::ranges::copy(m_path, std::begin(address.sun_path));
    m_socket = FileDescriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (::connect(m_socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        return false;
    m_notifier = std::make_unique<QSocketNotifier>(m_socket.number(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &SwayConnection::read);
    return true;
}

void SwayConnection::close()
{
    if (m_notifier)
        m_notifier.release()->deleteLater(); // it may be what called
    m_socket = FileDescriptor();
    m_received.clear();
}

void SwayConnection::read()
{
    std::array<char, 1 << 16> buffer{};
    const ssize_t count = ::recv(m_socket.number(), buffer.data(), buffer.size(), 0);
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (count <= 0) {
        close();
        Q_EMIT lost();
        return;
    }
    m_received.append(buffer.data(), count);
    while (std::cmp_greater_equal(m_received.size(), headerBytes)) {
        const std::uint32_t length = numberAt(m_received, magic.size());
        if (!m_received.startsWith(magic) || length > maxPayload) {
            close();
            Q_EMIT lost();
            return;
        }
        const qsizetype end = static_cast<qsizetype>(headerBytes) + static_cast<qsizetype>(length);
        if (m_received.size() < end)
            return; // there is more to come
        const auto kind = static_cast<Kind>(numberAt(m_received, magic.size() + static_cast<qsizetype>(sizeof length)));
        const QByteArray payload = m_received.mid(static_cast<qsizetype>(headerBytes), static_cast<qsizetype>(length));
        m_received.remove(0, end);
        Q_EMIT received(kind, payload); // which may end the connection
    }
}

} // namespace quillbox

#include "moc_SwayConnection.cpp"
