#pragma once

#include "Capture/DirtyBands.h"
#include "Capture/PixelBufferAdapter.h"
#include "Capture/X11/SharedSegment.h"
#include "Platform/X11/X11Display.h"
#include "Platform/X11/X11PixelFormat.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace quillbox {

/// Our own BGRA copy of one rectangle of the screen, brought up to date part by part. Where the server shares memory
/// and has our layout it writes straight into the copy.
class ScreenPicture {
public:
    /// Black at first.
    /// @param display  Outlives the picture.
    /// @param source   In coordinates of the whole screen.
    /// @throws DisplayError  Unreadable.
    ScreenPicture(const X11Display& display, PixelRect source);

    [[nodiscard]] PixelRect source() const { return m_source; }
    [[nodiscard]] std::uint8_t* data() { return m_pixels; }
    [[nodiscard]] std::int64_t stride() const { return m_stride; }
    [[nodiscard]] PixelBuffer buffer() const;
    /// Marked wherever pixels have changed; whoever has taken note clears it.
    [[nodiscard]] DirtyBands& changedBands() { return m_changed; }

    enum class Outcome {
        Unchanged, ///< the pixels are what they were
        Updated,   ///< pixels changed, or were fetched without a comparison
        Refused,   ///< the server did not give the pixels, as when the screen has just become smaller
    };

    /// Fetches the pixels of `box` (in coordinates of the whole screen, within source()).
    /// @param mayOverwrite  Whether pixels may be fetched without a comparison with the present ones, which is faster.
    Outcome fetch(PixelRect box, bool mayOverwrite);

    void blacken();

private:
    [[nodiscard]] const std::uint8_t* fetchRaw(PixelRect box);
    bool merge(const std::uint8_t* raw, PixelRect box);
    bool fetchInto(PixelRect box, std::uint32_t offset);

    const X11Display& m_display;
    PixelRect m_source;
    X11PixelFormat m_layout;
    std::int64_t m_stride;
    std::int64_t m_pictureBytes;
    std::unique_ptr<SharedSegment> m_segment; // the picture, if the layout is ours; then room for one raw picture
    std::uint32_t m_rawOffset = 0;
    std::vector<std::uint8_t> m_memory;        // the picture, where the segment does not hold it
    std::uint8_t* m_pixels = nullptr;          // the picture
    XCBPointer<xcb_get_image_reply_t> m_reply; // the latest raw picture without a segment
    std::vector<std::uint8_t> m_row;
    DirtyBands m_changed;
};

} // namespace quillbox
