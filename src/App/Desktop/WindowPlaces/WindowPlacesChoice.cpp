#include "App/Desktop/WindowPlaces/KWinPlacement.h"
#include "App/Desktop/WindowPlaces/KWinWindows.h"
#include "App/Desktop/WindowPlaces/SwayPlacement.h"
#include "App/Desktop/WindowPlaces/SwayWindows.h"
#include "App/Hotkey/KDEShortcuts.h"
#include "Platform/WindowSystem.h"

namespace quillbox {
namespace {

/// The one that knows the compositor of this session; null where it is neither sway nor KWin.
template <typename Interface, typename OfSway, typename OfKWin> std::unique_ptr<Interface> makeForCompositor()
{
    if (toolkitWindowSystem() != WindowSystem::Wayland)
        return nullptr;
    if (const QByteArray socket = qgetenv("SWAYSOCK"); !socket.isEmpty())
        return std::make_unique<OfSway>(socket);
    if (KDEShortcuts::isDesktop())
        return std::make_unique<OfKWin>();
    return nullptr;
}

} // namespace

std::unique_ptr<WindowPlaces> makeWindowPlaces()
{
    return makeForCompositor<WindowPlaces, SwayWindows, KWinWindows>();
}

std::unique_ptr<PointerPlacement> makePointerPlacement()
{
    return makeForCompositor<PointerPlacement, SwayPlacement, KWinPlacement>();
}

} // namespace quillbox
