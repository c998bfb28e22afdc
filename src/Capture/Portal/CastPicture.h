#pragma once

#include "Capture/Portal/ScreenCast.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <QCoro/QCoroTask>

#include <optional>

namespace quillbox {

class ScreenCastPortal;

/// What a monitor shows that is cast.
struct CastPicture {
    RGBAFrame picture;               ///< all of the monitor, in its own pixels
    std::optional<PixelSize> points; ///< of the monitor, as far as that is known
    std::optional<QPoint> position;  ///< of the monitor, points, as far as the portal tells it
};

/// Waits until the cast that `portal` has opened rests, though not for long, and gives what it shows then. If the
/// portal's object is destroyed meanwhile, the task ends with CaptureError::Stopped.
/// @throws CaptureError  as CaptureStream::start() does.
[[nodiscard]] QCoro::Task<CastPicture> firstPicture(ScreenCastPortal& portal, ScreenCast cast);

} // namespace quillbox
