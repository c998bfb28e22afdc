#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <memory>

namespace quillbox {

/// Has the panel come up beside the tray icon on a Wayland desktop, where a program neither learns where its icon is
/// nor places its windows. But when the icon is clicked, the pointer is on it, and the compositor knows the pointer.
/// Thread: main.
class PointerPlacement : public QObject {
    Q_OBJECT

public:
    /// For a compositor that doesn't answer; it would hardly show the window sooner.
    static constexpr std::chrono::milliseconds patience{2000};

    PointerPlacement();

    /// Has the next window of that title come up beside the pointer, within what the desktop's panels leave free of the
    /// screen. It may be shown when ready() comes. While that is awaited, it does nothing.
    void prepare(const QString& title);

Q_SIGNALS:
    /// Once for what was prepared; also where the compositor refuses, and the window comes up anywhere.
    void ready();

protected:
    /// Asks the compositor, and calls becomeReady().
    virtual void begin(const QString& title) = 0;
    void becomeReady();

private:
    QTimer m_patience; // runs while ready() is awaited
};

/// For the compositor of this session: sway by its socket, KWin over the session bus. Null for those that let nobody
/// place windows, as mutter, and on X11, where windows place themselves.
[[nodiscard]] std::unique_ptr<PointerPlacement> makePointerPlacement();

} // namespace quillbox
