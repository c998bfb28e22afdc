#pragma once

#include "Capture/CaptureGeometry.h"
#include "Capture/CaptureRegion.h"
#include "Capture/DirtyBands.h"
#include "Capture/IncrementalFrameBuilder.h"
#include "Capture/PipeWire/StreamBuffer.h"

#include <functional>
#include <optional>
#include <vector>

namespace quillbox {

/// Our own copy of a region of a stream, brought up to date buffer by buffer: only the region's pixels are read, and
/// frames share with those before what has not changed. All frames have one size, one pixel a point: when the pictures
/// change theirs, the region is still the same points of the output, and those that it has no longer are black. Not for
/// use from two threads at once.
class StreamPicture {
public:
    /// The size in points of what a picture of this size in pixels, upright, shows; none: it is not known.
    using PointsOf = std::function<std::optional<PixelSize>(PixelSize picture)>;

    /// @param region    Points of the output that is cast.
    /// @param pointsOf  Asked by update() at the first picture and when the pictures' size has changed. Where it knows
    ///                  nothing, a point of the first picture is a pixel, and of another as many as it was before.
    StreamPicture(CaptureRegion region, PointsOf pointsOf);

    /// Takes over what differs from the copy.
    /// @param damage  What alone may have changed in the memory since the buffer before, in pixels of the buffer; none:
    ///                anything. What a crop or a transform changes is noticed without it.
    /// @return whether the copy has changed.
    /// @throws CaptureError  OutsideDisplay: no part of the region lies on the first picture.
    /// @pre buffer.isWhole().
    bool update(const StreamBuffer& buffer, const std::optional<std::vector<PixelRect>>& damage);

    /// The frame of what update() has gathered. @pre update() has been called.
    [[nodiscard]] RGBAFrame frame();

private:
    void planFirst(PixelSize picture, PixelSize points);
    void plan(PixelSize picture);
    bool merge(const StreamBuffer& buffer, const PixelStrides& walk, PixelRect box);

    CaptureRegion m_region; // from the first picture on what of it is shown
    PointsOf m_pointsOf;
    std::optional<PointScale> m_scale;                   // none before the first picture
    CaptureGeometry m_plan;                              // the source may lie outside the picture
    PixelRect m_whole;                                   // of the upright picture
    PixelRect m_crop;                                    // of the latest buffer
    BufferTransform m_transform = BufferTransform::None; // likewise
    Bytes m_pixels;                                      // of the plan's source, RGBA
    std::optional<DirtyBands> m_changed;                 // since the last frame
    bool m_isScaled = false;
    Bytes m_row;
    IncrementalFrameBuilder m_bands;
};

} // namespace quillbox
