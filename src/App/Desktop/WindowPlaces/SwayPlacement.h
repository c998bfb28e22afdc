#pragma once

#include "App/Desktop/WindowPlaces/PointerPlacement.h"
#include "App/Desktop/WindowPlaces/SwayConnection.h"

#include <QPoint>

#include <optional>

class QJsonObject;

namespace quillbox {

/// Has sway move a window to the pointer once it is there, and from there next to the bar.
class SwayPlacement : public PointerPlacement {
    Q_OBJECT

public:
    /// @param socket  The path of sway's socket, as SWAYSOCK tells it.
    explicit SwayPlacement(QByteArray socket);

    /// Where the top left corner of a window goes that sway has centred on the pointer, as far as its output allows.
    /// @param tree    All windows, as sway describes them.
    /// @param window  Sway's number of it. None where it is in no workspace.
    [[nodiscard]] static std::optional<QPoint> cornerIn(const QJsonObject& tree, qint64 window);

protected:
    void begin(const QString& title) override;

private:
    void take(SwayConnection::Kind kind, const QByteArray& payload);
    void noteWindow(const QJsonObject& event);
    void settle(const QJsonObject& tree);
    [[nodiscard]] QByteArray command(const QByteArray& what) const;

    SwayConnection m_sway;
    QString m_title;
    qint64 m_window = 0;      ///< sway's number of it; 0 until it is there
    bool m_isSettled = false; ///< the last command is on its way
};

} // namespace quillbox
