#pragma once

#include <wayland-client.h>

#include <cstdint>
#include <memory>

namespace quillbox {

/// The arrow of the user's cursor theme: a program that takes the pointer has to say how it looks. Used by one thread.
class LayerCursor {
public:
    /// @param scale  Pixels a point, at least 1. @pre Both outlive this object.
    LayerCursor(wl_compositor* compositor, wl_shm* memory, int scale);
    ~LayerCursor();
    LayerCursor(const LayerCursor&) = delete;
    LayerCursor& operator=(const LayerCursor&) = delete;

    /// @param serial  Of the event that told that the pointer has come.
    void show(wl_pointer* pointer, std::uint32_t serial) const;

private:
    struct Arrow;
    std::unique_ptr<Arrow> m_arrow; // null where there is none
};

} // namespace quillbox
