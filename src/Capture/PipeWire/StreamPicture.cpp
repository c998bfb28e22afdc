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
    if (!m_plan || whole != m_whole) {
        plan(walk);
        m_whole = whole;
        (void)merge(buffer, walk, m_plan->source.intersected(whole));
        return true;
    }
    const PixelRect visible = m_plan->source.intersected(whole);
    if (!damage || buffer.transform != BufferTransform::None)
        return merge(buffer, walk, visible);
    bool changed = false;
    for (const PixelRect& part : *damage)
        changed = merge(buffer, walk, part.relativeTo(buffer.crop).intersected(visible)) || changed;
    return changed;
}

/// Fixes what is read once and for all; after a change of the stream's size it stays where it is, black at first.
void StreamPicture::plan(const UprightWalk& walk)
{
    if (!m_plan) {
        const FrameResampler::Size points = m_points.value_or(FrameResampler::Size{walk.width, walk.height});
        m_plan = planGrab(m_region, {0, 0, walk.width, walk.height}, points);
        if (!m_plan)
            throw CaptureError(CaptureError::Reason::OutsideDisplay,
                withArguments(translate("CaptureError", "The region lies outside the display, which is %1×%2"),
                    {std::to_string(points.width), std::to_string(points.height)}));
        m_isScaled = m_plan->output != FrameResampler::Size{m_plan->source.width, m_plan->source.height};
        m_changed.emplace(m_plan->source.height);
    }
    m_pixels.assign(static_cast<std::size_t>(m_plan->source.area() * RGBAFrame::bytesPerPixel), 0);
    for (std::size_t alpha = 3; alpha < m_pixels.size(); alpha += RGBAFrame::bytesPerPixel)
        m_pixels[alpha] = 255;
    m_row.resize(static_cast<std::size_t>(m_plan->source.width * RGBAFrame::bytesPerPixel));
    m_changed->markRows(0, m_plan->source.height);
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
