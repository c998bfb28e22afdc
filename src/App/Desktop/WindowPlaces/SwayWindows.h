#pragma once

#include "App/Desktop/WindowPlaces/SwayConnection.h"
#include "App/Desktop/WindowPlaces/WindowPlaces.h"

#include <QByteArray>

class QJsonObject;

namespace quillbox {

/// Asks sway.
class SwayWindows : public WindowPlaces {
    Q_OBJECT

public:
    /// @param socket  The path of sway's socket, as SWAYSOCK tells it.
    explicit SwayWindows(QByteArray socket);

    void ask(const QString& title) override;

    /// Where, in a tree of windows as sway describes it, the window of that title and process is; see told().
    [[nodiscard]] static std::optional<QRect> placeIn(const QJsonObject& tree, const QString& title, qint64 process);

    /// The member "rect" of what sway describes.
    [[nodiscard]] static QRect rectOf(const QJsonObject& container);

private:
    void tell(const std::optional<QRect>& place);

    QString m_title; ///< empty while no answer is awaited
    SwayConnection m_sway;
};

} // namespace quillbox
