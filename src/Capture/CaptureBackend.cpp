#include "Capture/CaptureStream.h"

#include "Capture/Portal/PortalStream.h"
#include "Capture/UnavailableStream.h"
#include "Capture/X11/X11Stream.h"
#include "Platform/WindowSystem.h"
#include "Translation/Translate.h"

#include <QByteArray>
#include <QtGlobal>

namespace quillbox {

CaptureBackend captureBackend()
{
    const QByteArray wanted = qgetenv("QUILLBOX_CAPTURE_BACKEND");
    if (wanted == "x11")
        return CaptureBackend::X11;
    if (wanted == "portal")
        return CaptureBackend::Portal;
    if (!wanted.isEmpty())
        return wanted == "none" ? CaptureBackend::None : CaptureBackend::Unknown;
    return sessionWindowSystem() == WindowSystem::Wayland ? CaptureBackend::Portal : CaptureBackend::X11;
}

std::unique_ptr<CaptureStream> makeCaptureStream()
{
    switch (captureBackend()) {
    case CaptureBackend::X11:
        return std::make_unique<X11Stream>();
    case CaptureBackend::Portal:
        return std::make_unique<PortalStream>();
    case CaptureBackend::None:
        return std::make_unique<UnavailableStream>(
            translate("CaptureError", "Screen capture is switched off by QUILLBOX_CAPTURE_BACKEND"));
    case CaptureBackend::Unknown:
        break;
    }
    return std::make_unique<UnavailableStream>(withArguments(
        translate("CaptureError", "QUILLBOX_CAPTURE_BACKEND is \"%1\", which is none of x11, portal and none"),
        {qgetenv("QUILLBOX_CAPTURE_BACKEND").toStdString()}));
}

} // namespace quillbox
