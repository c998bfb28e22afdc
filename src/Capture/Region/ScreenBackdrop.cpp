#include "Capture/Region/ScreenBackdrop.h"

#include "Platform/X11/X11Queries.h"

#include <QScreen>

namespace quillbox {

/// @see Extended Window Manager Hints, "Compositing Managers": who composites screen 0 owns _NET_WM_CM_S0.
bool ScreenBackdrop::showsThrough()
{
    return X11Queries::isSelectionOwned("_NET_WM_CM_S0");
}

QPixmap ScreenBackdrop::picture(QScreen& screen)
{
    return screen.grabWindow(0);
}

void ScreenBackdrop::waitUntilApplied()
{
    X11Queries::finishRequests();
}

} // namespace quillbox
