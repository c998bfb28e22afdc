#pragma once

#include "PostCapture/Clipboard/ClipboardBytes.h"

#include <QObject>

#include <string>
#include <vector>

namespace quillbox {

/// One form of what is on the clipboard; a program that pastes picks one of several.
struct MimeItem {
    std::string type;    ///< MIME
    ClipboardBytes data; ///< as that type has it
};

/// Owns the clipboard of a window system on a connection of its own: a back end, without the state of a clip. What was
/// put there is given to whoever asks, however large, to several programs at a time. Thread: main.
class ClipboardOwner : public QObject {
    Q_OBJECT

public:
    /// Replaces what is on the clipboard; `owns()` tells whether it did. Nothing else is offered than `items`, in that
    /// order, and what the window system's conventions ask of every owner.
    virtual void own(std::vector<MimeItem> items) = 0;
    /// Empties the clipboard, if what is there is ours.
    virtual void disown() = 0;
    [[nodiscard]] virtual bool owns() const = 0;
    /// False once the display, or its clipboard, is gone: nothing works any more then.
    [[nodiscard]] virtual bool isConnected() const = 0;

Q_SIGNALS:
    /// Another program has put something there, or the connection is gone.
    void lost();
};

} // namespace quillbox
