#pragma once

#include "Capture/Wayland/CastOutput.h"

#include <cstdint>

namespace quillbox {

/// What the portal tells of a cast.
struct ScreenCast {
    std::uint32_t node = 0; ///< of the stream, on a connection that ScreenCastPortal::openRemote() gives
    CastFacts facts;        ///< of the monitor
};

} // namespace quillbox
