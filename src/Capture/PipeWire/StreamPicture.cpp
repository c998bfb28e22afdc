#include "Capture/PipeWire/StreamPicture.h"

#include "Capture/CaptureError.h"
#include "Translation/Translate.h"

#include <cstring>
#include <string>

namespace quillbox {

StreamPicture::StreamPicture(CaptureRegion region, std::optional<FrameResampler::Size> points)
    : m_region(region)
    , m_points(points)
{
}

bool StreamPicture::update(const StreamBuffer& buffer, const std::optional<std::vector<PixelRect>>& damage)
{
    const UprightWalk walk = walkUpright(buffer);
    const PixelRect whole{0, 0, walk.width, walk.height};
    // Damage tells where the memory has changed, not that another part of it, or the same turned, is the picture now.
    const bool isSameView = buffer.crop == m_crop && buffer.transform == m_transform;
    m_crop = buffer.crop;
    m_transform = buffer.transform;
    if (!m_plan || whole != m_whole) {
        plan(walk);
        m_whole = whole;
        (void)merge(buffer, walk, m_plan->source);
        return true;
    }
    if (!damage || !isSameView || buffer.transform != BufferTransform::None)
        return merge(buffer, walk, m_plan->source);
    bool changed = false;
    for (const PixelRect& part : *damage)
        changed = merge(buffer, walk, part.relativeTo(buffer.crop).intersected(m_plan->source)) || changed;
    return changed;
}

/// Finds out what is read of pictures of this size. The points, and with them the frames' size, are fixed by the first.
void StreamPicture::plan(const UprightWalk& walk)
{
    if (!m_points)
        m_points = FrameResampler::Size{walk.width, walk.height};
    const auto planned = planGrab(m_region, {0, 0, walk.width, walk.height}, *m_points);
    if (!planned)
        throw CaptureError(CaptureError::Reason::OutsideDisplay,
            withArguments(translate("CaptureError", "The region lies outside the display, which is %1×%2"),
                {std::to_string(m_points->width), std::to_string(m_points->height)}));
    m_plan = planned;
    m_isScaled = m_plan->output != FrameResampler::Size{m_plan->source.width, m_plan->source.height};
    m_changed.emplace(m_plan->source.height); // all of it
    m_pixels.assign(static_cast<std::size_t>(m_plan->source.area() * RGBAFrame::bytesPerPixel), 0);
    m_row.resize(static_cast<std::size_t>(m_plan->source.width * RGBAFrame::bytesPerPixel));
}

/// Takes over the rows of `box`, in pixels of the upright picture, that differ. @return whether any did.
bool StreamPicture::merge(const StreamBuffer& buffer, const UprightWalk& walk, PixelRect box)
{
    if (box.isEmpty())
        return false;
    const PixelRect place = box.relativeTo(m_plan->source);
    const std::int64_t ownStride = m_plan->source.width * RGBAFrame::bytesPerPixel;
    const auto rowBytes = static_cast<std::size_t>(box.width * RGBAFrame::bytesPerPixel);
    bool changed = false;
    for (std::int32_t y = 0; y < box.height; ++y) {
        const std::uint8_t* const source
            = buffer.bytes.data() + walk.origin + box.x * walk.stepX + (box.y + y) * walk.stepY;
        unpack(buffer.order, source, walk.stepX, m_row.data(), box.width);
        std::uint8_t* const own = m_pixels.data() + (place.y + y) * ownStride + place.x * RGBAFrame::bytesPerPixel;
        if (std::memcmp(own, m_row.data(), rowBytes) == 0)
            continue;
        std::memcpy(own, m_row.data(), rowBytes);
        m_changed->markRows(place.y + y, 1);
        changed = true;
    }
    return changed;
}

RGBAFrame StreamPicture::frame()
{
    precondition(m_plan.has_value(), "there is a picture");
    const std::int64_t width = m_plan->source.width;
    if (m_isScaled) {
        m_changed->clear();
        const RGBAFrame source(width, m_plan->source.height, m_pixels);
        return m_bands.compared(scaledTo(source, m_plan->output));
    }
    return m_bands.remade(m_plan->output, *m_changed, [&](std::int64_t firstRow, std::int64_t rows) {
        const std::int64_t rowBytes = width * RGBAFrame::bytesPerPixel;
        const auto first = m_pixels.begin() + firstRow * rowBytes;
        return std::make_shared<const PixelBand>(Bytes(first, first + rows * rowBytes));
    });
}

} // namespace quillbox
