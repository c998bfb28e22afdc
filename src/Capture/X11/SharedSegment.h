#pragma once

#include "Platform/X11/X11Display.h"

#include <xcb/shm.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace quillbox {

/// Memory that this process and the X server both see. It has no name: nothing is left behind however the process ends.
class SharedSegment {
public:
    /// Null when the server can't share memory with us, or there is none.
    /// @param display  Outlives the segment.
    [[nodiscard]] static std::unique_ptr<SharedSegment> create(const X11Display& display, std::size_t bytes);

    ~SharedSegment();
    SharedSegment(const SharedSegment&) = delete;
    SharedSegment& operator=(const SharedSegment&) = delete;

    [[nodiscard]] std::uint8_t* data() const { return m_data; }
    [[nodiscard]] xcb_shm_seg_t id() const { return m_id; }

private:
    SharedSegment(const X11Display& display, std::uint8_t* data, std::size_t bytes);

    const X11Display& m_display;
    std::uint8_t* m_data;
    std::size_t m_bytes;
    xcb_shm_seg_t m_id = XCB_NONE;
};

} // namespace quillbox
