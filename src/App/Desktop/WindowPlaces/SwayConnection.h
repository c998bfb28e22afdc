#pragma once

#include "Platform/FileDescriptor.h"

#include <QByteArray>
#include <QObject>

#include <cstdint>
#include <memory>

class QSocketNotifier;

namespace quillbox {

/// A conversation with sway over its socket; what is asked is answered in the same order. Thread: main.
/// @see sway-ipc(7)
class SwayConnection : public QObject {
    Q_OBJECT

public:
    enum class Kind : std::uint32_t { RunCommand = 0, Subscribe = 2, Tree = 4, WindowEvent = 0x80000003 };

    /// @param socket  Its path, as SWAYSOCK tells it.
    explicit SwayConnection(QByteArray socket);
    ~SwayConnection() override;

    /// Connects where it is not connected. @return false where sway takes nothing; there is no connection then.
    [[nodiscard]] bool send(Kind kind, const QByteArray& payload = {});
    /// Ends the connection; nothing is received any more.
    void close();

Q_SIGNALS:
    /// An answer or an event, JSON.
    void received(quillbox::SwayConnection::Kind kind, const QByteArray& payload);
    /// Sway has ended the connection, or says what makes no sense.
    void lost();

private:
    [[nodiscard]] bool connectToSway();
    void read();

    QByteArray m_path;
    FileDescriptor m_socket;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QByteArray m_received;
};

} // namespace quillbox
