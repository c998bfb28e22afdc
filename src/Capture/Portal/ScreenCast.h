#pragma once

#include "Capture/Wayland/CastOutput.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace quillbox {

class ScreenCastPortal;

/// What the portal tells of a cast.
struct ScreenCast {
    std::uint32_t node = 0; ///< of the stream, on a connection that ScreenCastPortal::openRemote() gives
    CastFacts facts;        ///< of the monitor
};

/// A cast that the user has permitted. It ends with this object.
struct OpenCast {
    std::unique_ptr<ScreenCastPortal> portal;
    ScreenCast cast;
    std::optional<PixelSize> points; ///< of the monitor, as far as that is known
};

} // namespace quillbox
