#pragma once

#include <QRect>
#include <QSize>

/// Where the panel goes. Global coordinates, device-independent pixels.
namespace quillbox::PanelPlacement {

/// A panel of `size` next to `anchor`, the tray icon: below it in the upper half of the screen, else above it, centred
/// on it as far as the screen allows. Without an anchor: the right corner of the side, top or bottom, where the
/// screen's own panels take more; the top if they take nothing. Always within `available`; a panel that is larger keeps
/// its top-left corner there.
/// @param available  What the screen's panels leave free.
/// @param screen     All of the screen.
[[nodiscard]] QRect place(const QSize& size, const QRect& anchor, const QRect& available, const QRect& screen);

inline constexpr int gap = 8;             ///< to the icon and to the edges of the available area
inline constexpr int titleBarHeight = 40; ///< of a window, about: desktops tell it only once there is a window

} // namespace quillbox::PanelPlacement
