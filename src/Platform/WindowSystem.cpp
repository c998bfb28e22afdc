#include "Platform/WindowSystem.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QString>

namespace quillbox {
namespace {

bool hasWaylandDisplay()
{
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

} // namespace

WindowSystem sessionWindowSystem()
{
    if (hasWaylandDisplay() || qgetenv("XDG_SESSION_TYPE") == "wayland")
        return WindowSystem::Wayland;
    return qEnvironmentVariableIsEmpty("DISPLAY") ? WindowSystem::None : WindowSystem::X11;
}

WindowSystem toolkitWindowSystem()
{
    const std::string name = toolkitPlatform();
    if (name.empty())
        return WindowSystem::None;
    if (name == "xcb")
        return WindowSystem::X11;
    return name.starts_with("wayland") ? WindowSystem::Wayland : WindowSystem::Other;
}

std::string toolkitPlatform()
{
    if (const QString name = QGuiApplication::platformName(); !name.isEmpty())
        return name.toStdString();
    if (const QString wanted = qEnvironmentVariable("QT_QPA_PLATFORM"); !wanted.isEmpty())
        return wanted.section(QLatin1Char(';'), 0, 0).section(QLatin1Char(':'), 0, 0).toStdString();
    if (hasWaylandDisplay())
        return "wayland";
    return qEnvironmentVariableIsEmpty("DISPLAY") ? "" : "xcb";
}

bool toolkitNeedsX11()
{
    // A platform that was asked for by name, or a Wayland desktop, is the toolkit's to find.
    const QByteArray wanted = qgetenv("QT_QPA_PLATFORM");
    return !hasWaylandDisplay() && (wanted.isEmpty() || wanted == "xcb");
}

} // namespace quillbox
