#include "App/Desktop/WindowPlaces/WindowPlaces.h"

#include "App/Desktop/WindowPlaces/KWinWindows.h"
#include "App/Desktop/WindowPlaces/SwayWindows.h"
#include "App/Hotkey/KDEShortcuts.h"
#include "Platform/WindowSystem.h"

namespace quillbox {

std::unique_ptr<WindowPlaces> makeWindowPlaces()
{
    if (toolkitWindowSystem() != WindowSystem::Wayland)
        return nullptr;
    if (const QByteArray socket = qgetenv("SWAYSOCK"); !socket.isEmpty())
        return std::make_unique<SwayWindows>(socket);
    if (KDEShortcuts::isDesktop())
        return std::make_unique<KWinWindows>();
    return nullptr;
}

} // namespace quillbox
