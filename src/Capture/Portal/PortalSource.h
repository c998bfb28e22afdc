#pragma once

#include "Capture/PipeWire/PipeWireStream.h"
#include "Capture/Portal/ScreenCast.h"

#include <optional>

namespace quillbox {

/// The PipeWire stream of a cast, and what only the compositor knows about it.
/// @param points  Of the monitor, where that is known already; none: the compositor is asked.
/// @throws CaptureError  Unreadable: there is no free file descriptor.
[[nodiscard]] PipeWireStream::Source sourceOf(
    const ScreenCast& cast, FileDescriptor remote, std::optional<PixelSize> points);

} // namespace quillbox
