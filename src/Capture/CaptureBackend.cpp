#include "Capture/CaptureBackend.h"

#include "Encoding/Precondition.h"
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

CaptureError captureObstacle(CaptureBackend backend)
{
    if (backend == CaptureBackend::None)
        return {CaptureError::Reason::Unavailable,
            translate("CaptureError", "Screen capture is switched off by QUILLBOX_CAPTURE_BACKEND")};
    const bool isUnknown = backend == CaptureBackend::Unknown;
    precondition(isUnknown, "what can capture is no obstacle");
    return {CaptureError::Reason::Unavailable,
        withArguments(
            translate("CaptureError", "QUILLBOX_CAPTURE_BACKEND is \"%1\", which is none of x11, portal and none"),
            {qgetenv("QUILLBOX_CAPTURE_BACKEND").toStdString()})};
}

} // namespace quillbox
