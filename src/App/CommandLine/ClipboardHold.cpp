#include "App/CommandLine/ClipboardHold.h"

#include "PostCapture/ClipboardExporter.h"
#include "PostCapture/Clipboard/Pasteboard.h"

namespace quillbox {

ClipboardHold::ClipboardHold(const QString& path, const QByteArray& gif)
{
    m_promise.start();
    ClipboardExporter::copyToPasteboard(QUrl::fromLocalFile(path), gif);
    connect(&m_stopRequest, &StopRequest::received, &m_handOver, &ClipboardHandOver::begin);
    connect(&m_handOver, &ClipboardHandOver::ended, this, &ClipboardHold::end);
    connect(&Pasteboard::general(), &Pasteboard::lost, this, &ClipboardHold::end);
    if (Pasteboard::general().state() != Pasteboard::State::Accepted)
        end();
}

void ClipboardHold::end()
{
    if (!m_promise.future().isFinished())
        m_promise.finish();
}

} // namespace quillbox
