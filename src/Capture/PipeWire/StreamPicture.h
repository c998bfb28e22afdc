#pragma once

#include "Capture/BandSequence.h"
#include "Capture/CaptureRegion.h"
#include "Capture/ChangedBands.h"
#include "Capture/GrabPlan.h"
#include "Capture/PipeWire/StreamBuffer.h"

#include <optional>
#include <vector>

namespace quillbox {

/// Our own copy of a region of a stream, brought up to date buffer by buffer: only the region's pixels are read, and
/// frames share with those before what has not changed. All frames have one size, one pixel a point: when the pictures
/// change theirs, the output has still as many points, and the region is the same part of it. Not for use from two
/// threads at once.
class StreamPicture {
public:
    /// @param region  Points of the output that is cast.
    /// @param points  The output's size in points; none: a point is a pixel of the first picture.
    StreamPicture(CaptureRegion region, std::optional<FrameResampler::Size> points);

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
    void plan(const UprightWalk& walk);
    bool merge(const StreamBuffer& buffer, const UprightWalk& walk, PixelRect box);

    CaptureRegion m_region;
    std::optional<FrameResampler::Size> m_points;        // known from the first picture on
    std::optional<GrabPlan> m_plan;                      // none before the first picture
    PixelRect m_whole;                                   // of the upright picture
    PixelRect m_crop;                                    // of the latest buffer
    BufferTransform m_transform = BufferTransform::None; // likewise
    Bytes m_pixels;                                      // of the plan's source, RGBA
    std::optional<ChangedBands> m_changed;               // since the last frame
    bool m_isScaled = false;
    Bytes m_row;
    BandSequence m_bands;
};

} // namespace quillbox
