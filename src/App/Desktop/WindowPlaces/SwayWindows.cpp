#include "App/Desktop/WindowPlaces/SwayWindows.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSocketNotifier>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

const QByteArray magic("i3-ipc");
constexpr std::size_t headerBytes = 14;         // the magic, the payload's length, the kind; in the machine's order
constexpr std::uint32_t maxPayload = 1U << 24U; // more than the tree of any desktop
constexpr std::uint32_t treeKind = 4;           // GET_TREE

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

QRect rectOf(const QJsonObject& object)
{
    return {object.value(QLatin1String("x")).toInt(), object.value(QLatin1String("y")).toInt(),
        object.value(QLatin1String("width")).toInt(), object.value(QLatin1String("height")).toInt()};
}

} // namespace

SwayWindows::SwayWindows(QByteArray socket)
    : m_path(std::move(socket))
{
}

SwayWindows::~SwayWindows() = default;

void SwayWindows::ask(const QString& title)
{
    if (!m_title.isEmpty() || title.isEmpty())
        return;
    const QByteArray question = magic + bytesOf(0) + bytesOf(treeKind);
    if (!connectToSway()
        || ::send(m_socket.number(), question.constData(), static_cast<std::size_t>(question.size()), MSG_NOSIGNAL)
            != question.size()) {
        disconnectFromSway();
        Q_EMIT told(std::nullopt);
        return;
    }
    m_title = title;
}

bool SwayWindows::connectToSway()
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
    m_received.clear();
    m_notifier = std::make_unique<QSocketNotifier>(m_socket.number(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &SwayWindows::read);
    return true;
}

void SwayWindows::disconnectFromSway()
{
    if (m_notifier)
        m_notifier.release()->deleteLater(); // it may be what called
    m_socket = FileDescriptor();
    m_received.clear();
}

void SwayWindows::read()
{
    std::array<char, 1 << 16> buffer{};
    const ssize_t count = ::recv(m_socket.number(), buffer.data(), buffer.size(), 0);
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (count > 0)
        m_received.append(buffer.data(), count);
    const bool hasHeader = std::cmp_greater_equal(m_received.size(), headerBytes);
    const bool isSway
        = !hasHeader || (m_received.startsWith(magic) && numberAt(m_received, magic.size()) <= maxPayload);
    std::optional<QRect> place;
    if (count > 0 && isSway) {
        if (!hasHeader || std::cmp_less(m_received.size(), headerBytes + numberAt(m_received, magic.size())))
            return; // there is more to come
        const auto tree = QJsonDocument::fromJson(m_received.mid(static_cast<qsizetype>(headerBytes)));
        m_received.clear();
        place = placeIn(tree.object(), m_title, QCoreApplication::applicationPid());
    } else {
        disconnectFromSway();
    }
    m_title.clear();
    Q_EMIT told(place);
}

std::optional<QRect> SwayWindows::placeIn(const QJsonObject& tree, const QString& title, qint64 process)
{
    std::vector<QJsonObject> containers{tree};
    while (!containers.empty()) {
        const QJsonObject container = std::move(containers.back());
        containers.pop_back();
        if (container.value(QLatin1String("pid")).toInteger() == process
            && container.value(QLatin1String("name")).toString() == title)
            return container.value(QLatin1String("visible")).toBool()
                ? rectOf(container.value(QLatin1String("rect")).toObject())
                : QRect();
        for (const char* const kind : {"nodes", "floating_nodes"}) {
            const QJsonArray children = container.value(QLatin1String(kind)).toArray();
            for (const auto& child : children)
                containers.push_back(child.toObject());
        }
    }
    return std::nullopt;
}

} // namespace quillbox

#include "moc_SwayWindows.cpp"
