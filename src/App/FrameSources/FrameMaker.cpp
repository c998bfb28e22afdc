#include "App/FrameSources/FrameMaker.h"

#include <utility>

namespace quillbox {

Bytes FrameMaker::takeBuffer(std::int64_t byteCount)
{
    return m_pool.take(byteCount);
}

RGBAFrame FrameMaker::frame(PixelSize size, Bytes pixels)
{
    const bool isRepeat = m_previous && m_previous->width() == size.width && m_previous->height() == size.height
        && m_previous->pixels() == pixels;
    if (isRepeat)
        m_pool.giveBack(std::move(pixels));
    else
        m_previous = m_pool.frame(size.width, size.height, std::move(pixels));
    return *m_previous;
}

} // namespace quillbox
