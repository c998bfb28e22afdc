#include "Platform/WindowSystem.h"

#include <QByteArray>
#include <QtGlobal>

namespace quillbox {

WindowSystem windowSystem()
{
    const bool isWayland = !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland";
    return isWayland ? WindowSystem::Wayland : WindowSystem::X11;
}

} // namespace quillbox
