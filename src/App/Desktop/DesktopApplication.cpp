#include "App/Desktop/DesktopApplication.h"

#include "Platform/CaptureError.h"
#include "Platform/QtArguments.h"
#include "Platform/X11/X11Queries.h"
#include "Translation/Catalogues.h"
#include "Translation/Translate.h"

#include <QByteArray>
#include <QtGlobal>

namespace quillbox {

namespace {

/// Without a display Qt ends the process; better to know before.
int& checked(int& count)
{
    // A platform that was asked for by name, or a Wayland desktop, is Qt's to find.
    const bool isX11 = qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
        && (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || qgetenv("QT_QPA_PLATFORM") == "xcb");
    if (!isX11)
        return count;
    try {
        X11Queries::checkDisplay();
    } catch (const CaptureError& error) {
        throw NoDesktopError(withArguments(
            translate("DesktopApplication", "%1. quillbox record and encode work from a terminal"), {error.what()}));
    }
    return count;
}

} // namespace

DesktopApplication::DesktopApplication()
    : m_application(checked(QtArguments::count), QtArguments::values)
{
    Catalogues::install();
    QCoreApplication::setApplicationName(QStringLiteral("quillbox"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUILLBOX_VERSION));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Quillbox"));
    QGuiApplication::setDesktopFileName(QStringLiteral(QUILLBOX_APP_ID));
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

} // namespace quillbox
