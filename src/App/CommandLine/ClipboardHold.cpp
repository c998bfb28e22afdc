#include "App/CommandLine/ClipboardHold.h"

#include "PostCapture/Clipboard/Clipboard.h"
#include "PostCapture/ClipboardExporter.h"

namespace quillbox {

ClipboardHold::ClipboardHold(const QString& path, const QByteArray& gif)
{
    m_promise.start();
    ClipboardExporter::copyToPasteboard(QUrl::fromLocalFile(path), gif);
    connect(&m_signals, &TerminationSignals::received, &m_handOver, &ClipboardHandOver::begin);
    connect(&m_handOver, &ClipboardHandOver::ended, this, &ClipboardHold::end);
    connect(&Clipboard::general(), &Clipboard::lost, this, &ClipboardHold::end);
    if (Clipboard::general().state() != Clipboard::State::Accepted)
        end();
}

void ClipboardHold::end()
{
    if (!m_promise.future().isFinished())
        m_promise.finish();
}

} // namespace quillbox

#include "moc_ClipboardHold.cpp"
