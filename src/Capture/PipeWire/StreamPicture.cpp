#include "Capture/PipeWire/StreamPicture.h"

#include "Capture/CaptureError.h"
#include "Translation/Translate.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <string>
#include <utility>

namespace quillbox {

StreamPicture::StreamPicture(CaptureRegion region, PointsOf pointsOf)
    : m_region(region)
    , m_pointsOf(std::move(pointsOf))
{
}

bool StreamPicture::update(const StreamBuffer& buffer, const std::optional<std::vector<PixelRect>>& damage)
{
    const PixelStrides walk = walkUpright(buffer);
    const PixelRect whole{0, 0, walk.width, walk.height};
    // Damage tells where the memory has changed, not that another part of it, or the same turned, is the picture now.
    const bool isSameView = buffer.crop == m_crop && buffer.transform == m_transform;
    m_crop = buffer.crop;
    m_transform = buffer.transform;
    const bool isOfNewSize = whole != m_whole;
    if (isOfNewSize) {
        plan({walk.width, walk.height});
        m_whole = whole;
    }
    const PixelRect visible = m_plan.source.intersected(whole);
    if (isOfNewSize) {
        (void)merge(buffer, walk, visible);
        return true;
    }
    if (!damage || !isSameView || buffer.transform != BufferTransform::None)
        return merge(buffer, walk, visible);
    bool changed = false;
    for (const PixelRect& part : *damage)
        changed = merge(buffer, walk, part.relativeTo(buffer.crop).intersected(visible)) || changed;
    return changed;
}

/// Finds out what the frames show, and how large they are.
void StreamPicture::planFirst(PixelSize picture, PixelSize points)
{
    const PixelRect whole{0, 0, static_cast<std::int32_t>(picture.width), static_cast<std::int32_t>(picture.height)};
    const auto planned = captureGeometry(m_region, whole, points);
    if (!planned)
        throw CaptureError(CaptureError::Reason::OutsideDisplay,
            withArguments(translate("CaptureError", "The region lies outside the display, which is %1×%2"),
                {std::to_string(points.width), std::to_string(points.height)}));
    m_plan = *planned;
    m_region = {std::max<std::int64_t>(m_region.x, 0), std::max<std::int64_t>(m_region.y, 0), m_plan.output.width,
        m_plan.output.height};
    m_scale = scaleOf(picture, points);
}

/// Finds out what is read of pictures of this size.
void StreamPicture::plan(PixelSize picture)
{
    const auto points = m_pointsOf(picture);
    if (!m_scale) {
        planFirst(picture, points.value_or(picture));
    } else {
        if (points)
            m_scale = scaleOf(picture, *points);
        m_plan.source = devicePixelsOf(m_region, *m_scale);
    }
    m_isScaled = m_plan.output != PixelSize{m_plan.source.width, m_plan.source.height};
    m_changed.emplace(m_plan.source.height); // all of it
    m_pixels.assign(static_cast<std::size_t>(m_plan.source.area() * RGBAFrame::bytesPerPixel), 0);
    for (std::size_t alpha = RGBAFrame::bytesPerPixel - 1; alpha < m_pixels.size(); alpha += RGBAFrame::bytesPerPixel)
        m_pixels[alpha] = std::numeric_limits<std::uint8_t>::max();
    m_row.resize(static_cast<std::size_t>(m_plan.source.width * RGBAFrame::bytesPerPixel));
}

/// Takes over the rows of `box`, in pixels of the upright picture, that differ. @return whether any did.
bool StreamPicture::merge(const StreamBuffer& buffer, const PixelStrides& walk, PixelRect box)
{
    if (box.isEmpty())
        return false;
    const PixelRect place = box.relativeTo(m_plan.source);
    const std::int64_t ownStride = m_plan.source.width * RGBAFrame::bytesPerPixel;
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
    precondition(m_scale.has_value(), "there is a picture");
    const std::int64_t width = m_plan.source.width;
    if (m_isScaled) {
        m_changed->clear();
        const RGBAFrame source(width, m_plan.source.height, m_pixels);
        return m_bands.compared(scaledTo(source, m_plan.output));
    }
    return m_bands.remade(m_plan.output, *m_changed, [&](std::int64_t firstRow, std::int64_t rows) {
        const std::int64_t rowBytes = width * RGBAFrame::bytesPerPixel;
        const auto first = m_pixels.begin() + firstRow * rowBytes;
        return std::make_shared<const PixelBand>(Bytes(first, first + rows * rowBytes));
    });
}

} // namespace quillbox
