#pragma once

#include "PostCapture/Clipboard/ClipboardBytes.h"

#include <QObject>
#include <QUrl>

#include <optional>

namespace quillbox {

/// The desktop's clipboard. Thread: main, of a program with a display.
class Clipboard : public QObject {
    Q_OBJECT

public:
    /// How what was last set stands.
    enum class State {
        Empty,   ///< nothing was set, or it is on the clipboard no longer
        Pending, ///< the desktop has not accepted it, or can't be reached any more; it is set again as soon as a window
                 ///< of ours has the focus
        Accepted, ///< on the clipboard
    };

    /// The clipboard of this desktop, as `ClipboardChoice` has it; lives as long as the application object. Defined
    /// where the back ends are known, in GeneralClipboard.cpp.
    [[nodiscard]] static Clipboard& general();

    /// Replaces what is on it by a list of exactly one file URL and, if given, the bytes as image/gif, in that order.
    /// They stay until another program puts something there, or this one ends and no clipboard manager takes them over.
    virtual void setClip(const QUrl& fileURL, const std::optional<ClipboardBytes>& gifData) = 0;
    /// Sets what is pending again: after a click, which is what desktops want to see. Ignored in the other states.
    virtual void retry() { }
    /// Empties it, if what is there is this program's, and forgets what is pending.
    virtual void clear() = 0;

    [[nodiscard]] State state() const { return m_state; }

Q_SIGNALS:
    void stateChanged();
    /// What was accepted is there no longer: another program has put something there, or the display is gone or can't
    /// be reached any more.
    void lost();

protected:
    /// Announces it if it is another one.
    void setState(State state);

private:
    State m_state = State::Empty;
};

} // namespace quillbox
