#include "App/Desktop/DesktopApplication.h"

#include "Platform/DisplayError.h"
#include "Platform/QtArguments.h"
#include "Platform/WindowSystem.h"
#include "Platform/X11/X11Queries.h"
#include "Translation/Catalogues.h"
#include "Translation/Translate.h"

namespace quillbox {

namespace {

/// Without a display Qt ends the process; better to know before.
int& checked(int& count)
{
    if (!toolkitNeedsX11())
        return count;
    try {
        X11Queries::checkDisplay();
    } catch (const DisplayError& error) {
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
