#pragma once

#include <QObject>
#include <QRect>
#include <QString>

#include <memory>
#include <optional>

namespace quillbox {

/// Where this program's windows are on a Wayland desktop, on which a window itself is not told. Thread: main.
class WindowPlaces : public QObject {
    Q_OBJECT

public:
    /// Asks where the window of that title is; told() brings the answer. While an answer is awaited, it does nothing.
    virtual void ask(const QString& title) = 0;

Q_SIGNALS:
    /// @param place  In the compositor's points; empty where the window is not on a screen, such as on a workspace that
    ///               is not shown. None where the compositor doesn't tell, or knows no such window, or not yet.
    void told(const std::optional<QRect>& place);
};

/// For the compositor of this session: sway by its socket, KWin over the session bus. Null for those that tell nobody,
/// as mutter, and on X11, where windows know their place.
[[nodiscard]] std::unique_ptr<WindowPlaces> makeWindowPlaces();

} // namespace quillbox
