#include "Capture/X11/ScreenPicture.h"

#include "Encoding/Precondition.h"

#include <cstring>

namespace quillbox {

namespace {

constexpr std::uint32_t allPlanes = ~std::uint32_t{0};

} // namespace

ScreenPicture::ScreenPicture(const X11Display& display, PixelRect source)
    : m_display(display)
    , m_source(source)
    , m_layout(display.layout())
    , m_stride(std::int64_t{source.width} * RGBAFrame::bytesPerPixel)
    , m_pictureBytes(checkedMul<std::int64_t>(m_stride, source.height))
    , m_row(static_cast<std::size_t>(m_stride))
    , m_changed(source.height)
{
    const std::int64_t rawBytes = checkedMul<std::int64_t>(m_layout.strideFor(source.width), source.height);
    const std::int64_t shared = m_layout.isBGRA() ? m_pictureBytes : 0;
    m_segment = SharedSegment::create(display, static_cast<std::size_t>(shared + rawBytes));
    if (m_segment && m_layout.isBGRA()) {
        m_rawOffset = static_cast<std::uint32_t>(m_pictureBytes); // create() refuses what is larger
        m_pixels = m_segment->data();
    } else {
        m_memory.resize(static_cast<std::size_t>(m_pictureBytes));
        m_pixels = m_memory.data();
    }
    blacken();
}

PixelBuffer ScreenPicture::buffer() const
{
    PixelBuffer buffer;
    buffer.base = m_pixels;
    buffer.width = m_source.width;
    buffer.height = m_source.height;
    buffer.stride = m_stride;
    buffer.alpha = m_layout.carriesAlpha ? PixelBuffer::Alpha::Carried : PixelBuffer::Alpha::Undefined;
    return buffer;
}

ScreenPicture::Outcome ScreenPicture::fetch(PixelRect box, bool mayOverwrite)
{
    precondition(!box.isEmpty() && box.intersected(m_source) == box, "a part of a picture lies within it");
    if (mayOverwrite && box == m_source && m_memory.empty()) {
        m_changed.markRows(0, m_source.height);
        return fetchInto(box, 0) ? Outcome::Updated : Outcome::Refused;
    }
    const std::uint8_t* const raw = fetchRaw(box);
    if (raw == nullptr)
        return Outcome::Refused;
    return merge(raw, box) ? Outcome::Updated : Outcome::Unchanged;
}

void ScreenPicture::blacken()
{
    m_changed.markRows(0, m_source.height);
    const std::uint32_t black = 0xFF000000; // its bytes are 0, 0, 0, 255 in the order of the picture
    for (std::int64_t offset = 0; offset < m_pictureBytes; offset += RGBAFrame::bytesPerPixel)
        for (int byte = 0; byte < 4; ++byte)
            m_pixels[offset + byte] = static_cast<std::uint8_t>(black >> (8 * byte));
}

/// The pixels of `box` as the server lays them out, rows of layout.strideFor(box.width); null if it refused. Valid
/// until the next call.
const std::uint8_t* ScreenPicture::fetchRaw(PixelRect box)
{
    if (m_segment)
        return fetchInto(box, m_rawOffset) ? m_segment->data() + m_rawOffset : nullptr;
    const auto cookie = xcb_get_image(m_display.connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_display.root(),
        static_cast<std::int16_t>(box.x), static_cast<std::int16_t>(box.y), static_cast<std::uint16_t>(box.width),
        static_cast<std::uint16_t>(box.height), allPlanes);
    m_reply.reset(xcb_get_image_reply(m_display.connection(), cookie, nullptr));
    const std::int64_t wanted = m_layout.strideFor(box.width) * box.height;
    if (!m_reply || xcb_get_image_data_length(m_reply.get()) < wanted)
        return nullptr;
    return xcb_get_image_data(m_reply.get());
}

bool ScreenPicture::fetchInto(PixelRect box, std::uint32_t offset)
{
    const auto cookie = xcb_shm_get_image(m_display.connection(), m_display.root(), static_cast<std::int16_t>(box.x),
        static_cast<std::int16_t>(box.y), static_cast<std::uint16_t>(box.width), static_cast<std::uint16_t>(box.height),
        allPlanes, XCB_IMAGE_FORMAT_Z_PIXMAP, m_segment->id(), offset);
    const XCBPointer<xcb_shm_get_image_reply_t> reply(xcb_shm_get_image_reply(m_display.connection(), cookie, nullptr));
    return reply != nullptr;
}

/// Takes over the rows that differ. @return whether any did.
bool ScreenPicture::merge(const std::uint8_t* raw, PixelRect box)
{
    const PixelRect place = box.relativeTo(m_source);
    const std::int64_t rawStride = m_layout.strideFor(box.width);
    const auto rowBytes = static_cast<std::size_t>(box.width) * RGBAFrame::bytesPerPixel;
    bool changed = false;
    for (std::int64_t y = 0; y < box.height; ++y) {
        const std::uint8_t* row = raw + y * rawStride;
        if (!m_layout.isBGRA()) {
            m_layout.unpack(row, m_row.data(), box.width);
            row = m_row.data();
        }
        std::uint8_t* const own
            = m_pixels + (place.y + y) * m_stride + std::int64_t{place.x} * RGBAFrame::bytesPerPixel;
        if (std::memcmp(own, row, rowBytes) == 0)
            continue;
        std::memcpy(own, row, rowBytes);
        m_changed.markRows(place.y + y, 1);
        changed = true;
    }
    return changed;
}

} // namespace quillbox
