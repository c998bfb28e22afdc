#include "App/FrameSources/FrameMaker.h"

#include <algorithm>
#include <utility>

namespace quillbox {

Bytes FrameMaker::takeBuffer(std::int64_t byteCount)
{
    return m_pool.take(byteCount);
}

RGBAFrame FrameMaker::frame(FrameSize size, Bytes pixels)
{
    if (std::ranges::equal(previousPixels(size), pixels))
        return repeatedFrame(std::move(pixels));
    return changedFrame(size, std::move(pixels));
}

std::span<const std::uint8_t> FrameMaker::previousPixels(FrameSize size) const
{
    if (!m_previous || m_previous->width() != size.width || m_previous->height() != size.height)
        return {};
    return m_previous->pixels();
}

RGBAFrame FrameMaker::repeatedFrame(Bytes pixels)
{
    m_pool.giveBack(std::move(pixels));
    return *m_previous;
}

RGBAFrame FrameMaker::changedFrame(FrameSize size, Bytes pixels)
{
    m_previous = m_pool.frame(size.width, size.height, std::move(pixels));
    return *m_previous;
}

} // namespace quillbox
