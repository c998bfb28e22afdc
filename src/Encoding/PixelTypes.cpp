#include "Encoding/PixelTypes.h"

#include <cstring>
#include <utility>

namespace quillbox {

RGBAFrame::RGBAFrame(std::int64_t width, std::int64_t height, Bytes pixels)
    : m_width(width)
    , m_height(height)
{
    precondition(std::ssize(pixels) == checkedMul(checkedMul(width, height), bytesPerPixel), "four bytes per pixel");
    m_pixels = std::make_shared<const Bytes>(std::move(pixels));
}

bool operator==(const RGBAFrame& a, const RGBAFrame& b)
{
    return a.m_width == b.m_width && a.m_height == b.m_height && (a.sharesPixels(b) || *a.m_pixels == *b.m_pixels);
}

} // namespace quillbox
