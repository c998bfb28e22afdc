#pragma once

#include "Encoding/Pixels/PixelSize.h"

#include <wayland-client.h>

#include <cstdint>
#include <memory>
#include <span>

namespace quillbox {

struct WaylandBufferDestroyer {
    void operator()(wl_buffer* buffer) const;
};
using WaylandBuffer = std::unique_ptr<wl_buffer, WaylandBufferDestroyer>;

/// A picture in memory that the compositor reads.
/// @param pixels  0xAARRGGBB with premultiplied colours, `size.width` × `size.height`, rows top-down; empty for a
///                transparent picture.
/// @param size    At least 1 × 1.
/// @return null where there is no memory for it
[[nodiscard]] WaylandBuffer waylandBuffer(wl_shm* memory, std::span<const std::uint32_t> pixels, PixelSize size);

} // namespace quillbox
