#pragma once

#include "App/Desktop/WindowPlaces/WindowPlaces.h"
#include "Platform/FileDescriptor.h"

#include <QByteArray>

class QJsonObject;
class QSocketNotifier;

namespace quillbox {

/// Asks sway. @see sway-ipc(7)
class SwayWindows : public WindowPlaces {
    Q_OBJECT

public:
    /// @param socket  The path of sway's socket, as SWAYSOCK tells it.
    explicit SwayWindows(QByteArray socket);
    ~SwayWindows() override;

    void ask(const QString& title) override;

    /// Where, in a tree of windows as sway describes it, the window of that title and process is; see told().
    [[nodiscard]] static std::optional<QRect> placeIn(const QJsonObject& tree, const QString& title, qint64 process);

private:
    [[nodiscard]] bool connectToSway();
    void read();
    void disconnectFromSway();

    QByteArray m_path;
    QString m_title; ///< empty while no answer is awaited
    FileDescriptor m_socket;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QByteArray m_received;
};

} // namespace quillbox
