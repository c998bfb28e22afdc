#include "Encoding/PixelTypes.h"

#include <cstring>
#include <utility>

namespace quillbox {

RGBAFrame::RGBAFrame(std::int64_t width, std::int64_t height, Bytes pixels)
    : RGBAFrame(std::make_shared<const Bytes>(std::move(pixels)), width, height)
{
}

RGBAFrame RGBAFrame::sharing(std::int64_t width, std::int64_t height, std::shared_ptr<const Bytes> pixels)
{
    return {std::move(pixels), width, height};
}

RGBAFrame::RGBAFrame(std::shared_ptr<const Bytes> pixels, std::int64_t width, std::int64_t height)
    : m_width(width)
    , m_height(height)
    , m_pixels(std::move(pixels))
{
    precondition(m_pixels != nullptr, "a frame has pixels, if only none");
    precondition(std::ssize(*m_pixels) == checkedMul(checkedMul(width, height), bytesPerPixel), "four bytes per pixel");
}

bool operator==(const RGBAFrame& a, const RGBAFrame& b)
{
    return a.m_width == b.m_width && a.m_height == b.m_height && (a.sharesPixels(b) || *a.m_pixels == *b.m_pixels);
}

} // namespace quillbox
