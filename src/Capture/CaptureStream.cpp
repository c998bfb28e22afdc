#include "Capture/CaptureStream.h"

#include "Capture/UnavailableStream.h"
#include "Capture/X11Stream.h"

#include <QByteArray>
#include <QtGlobal>

namespace quillbox {

std::unique_ptr<CaptureStream> makeCaptureStream()
{
    const QByteArray wanted = qgetenv("QUILLBOX_CAPTURE_BACKEND");
    if (wanted == "x11")
        return std::make_unique<X11Stream>();
    if (wanted == "none")
        return std::make_unique<UnavailableStream>("Screen capture is switched off by QUILLBOX_CAPTURE_BACKEND");
    if (!wanted.isEmpty())
        return std::make_unique<UnavailableStream>(
            "QUILLBOX_CAPTURE_BACKEND is \"" + wanted.toStdString() + "\", which is neither x11 nor none");
    // An X server on a Wayland desktop shows only the X programs' windows, and most often nothing at all.
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return std::make_unique<UnavailableStream>(
            "This is a Wayland desktop, and only X11 desktops can be recorded so far");
    return std::make_unique<X11Stream>();
}

} // namespace quillbox
