#pragma once

#include <QObject>
#include <QSocketNotifier>

struct wl_display;

namespace quillbox {

/// Sends what is asked of a compositor, and takes what it tells, in the thread's event loop: nobody waits. Thread: one
/// with an event loop.
class WaylandDispatcher : public QObject {
    Q_OBJECT

public:
    /// @pre `display` outlives this object, and nobody else takes its events while the event loop runs.
    explicit WaylandDispatcher(wl_display* display, QObject* parent = nullptr);

    /// To be called after requests: sends them, as far as the compositor takes them now, and the rest once it can.
    void send();
    /// The connection broke: nothing is sent any more, and nothing comes.
    [[nodiscard]] bool isBroken() const { return m_isBroken; }

Q_SIGNALS:
    /// Listeners have been told what there was; or the connection broke.
    void dispatched();

private:
    void takeEvents();

    wl_display* m_display;
    QSocketNotifier m_readable;
    QSocketNotifier m_writable; // on while the compositor takes nothing more
    bool m_isBroken = false;
};

} // namespace quillbox
