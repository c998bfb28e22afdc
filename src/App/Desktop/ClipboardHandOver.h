#pragma once

#include <QObject>
#include <QTimer>

#include <memory>

namespace quillbox {

class SelectionRequest;

/// Before this program ends, has the desktop's clipboard manager keep what the program has on the clipboard, however
/// large: the event loop goes on, so that the manager can fetch it in pieces. For one program's end, once. Thread:
/// main.
/// @see freedesktop.org, "Clipboard Manager"
class ClipboardHandOver : public QObject {
    Q_OBJECT

public:
    explicit ClipboardHandOver(QObject* parent = nullptr);
    ~ClipboardHandOver() override;

    /// Asks. A second call does nothing.
    void begin();

Q_SIGNALS:
    /// The manager has it, or there is none, or nothing to keep, or no answer has come in time: the clipboard is empty
    /// then. Once; may come from within begin().
    void ended();

private:
    void endWhenDone();
    void giveUp();
    void end();

    std::unique_ptr<SelectionRequest> m_request;
    QTimer m_patience;
    bool m_hasBegun = false;
    bool m_isAnswered = false;
    bool m_isOver = false;
};

} // namespace quillbox
