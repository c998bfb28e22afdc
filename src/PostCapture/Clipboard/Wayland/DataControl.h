#pragma once

#include "PostCapture/Clipboard/MimeItem.h"

#include <QObject>

#include <memory>
#include <vector>

namespace quillbox {

/// The clipboard of a Wayland compositor that lets programs set it whether or not they have the focus. What was put
/// there is given to whoever asks, however large, to several programs at a time. Has a connection of its own. Of
/// several seats, it is the first one's clipboard. Thread: main.
/// @see Wayland protocols ext-data-control-v1, wlr-data-control-unstable-v1
class DataControl : public QObject {
    Q_OBJECT

public:
    /// The name of what the compositor that WAYLAND_DISPLAY names offers; null where there is none, or nobody who could
    /// paste. Waits for the answer, for at most two seconds. Thread: any.
    [[nodiscard]] static const char* offered();
    /// Connects to that compositor. @return null where offered() is
    [[nodiscard]] static std::unique_ptr<DataControl> open();
    ~DataControl() override;

    /// False once the compositor, or the seat, has gone: nothing works any more then.
    [[nodiscard]] bool isConnected() const;

    /// Replaces what is on the clipboard. Nothing else is offered than what `forms` names, in that order.
    void own(std::vector<MimeItem> forms);
    /// Empties the clipboard, if what is there is ours.
    void disown();
    [[nodiscard]] bool owns() const;

Q_SIGNALS:
    /// Another program has put something there, or the compositor is gone.
    void lost();

private:
    struct State;

    explicit DataControl(std::unique_ptr<State> state);
    void takeEvents();
    void send();

    std::unique_ptr<State> m_state;
};

} // namespace quillbox
