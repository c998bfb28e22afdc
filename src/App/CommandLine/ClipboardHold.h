#pragma once

#include "App/CommandLine/TerminationSignals.h"
#include "App/Desktop/ClipboardHandOver.h"

#include <QFuture>
#include <QObject>
#include <QPromise>
#include <QString>

namespace quillbox {

/// Keeps a saved clip on the clipboard, which a program can do only as long as it runs: until another program puts
/// something there, or a signal ends it: then a clipboard manager is asked to keep it. Thread: main, with a
/// DesktopApplication.
class ClipboardHold : public QObject {
    Q_OBJECT

public:
    /// @param path  The saved clip, absolute.  @param gif  Its bytes.
    ClipboardHold(const QString& path, const QByteArray& gif);

    /// False once ended(), and from the beginning where the clip did not get onto the clipboard.
    [[nodiscard]] bool isHeld() const { return !m_promise.future().isFinished(); }
    [[nodiscard]] QFuture<void> ended() const { return m_promise.future(); }

private:
    void end();

    TerminationSignals m_signals;
    ClipboardHandOver m_handOver;
    QPromise<void> m_promise;
};

} // namespace quillbox
