#include "App/FrameSources/FrameMaker.h"

#include <algorithm>
#include <cstdint>
#include <sys/mman.h>
#include <utility>

namespace quillbox {
namespace {

/// Asks the system to back the part of `buffer` that covers huge pages whole by such: they are cheaper to fill and to
/// look up, and these buffers are used over and over.
void preferHugePages(Bytes& buffer)
{
    constexpr std::uintptr_t hugePageBytes = std::uintptr_t{1} << 21U;
    const auto begin = reinterpret_cast<std::uintptr_t>(buffer.data());
    const auto first = (begin + hugePageBytes - 1) / hugePageBytes * hugePageBytes;
    const auto end = (begin + buffer.size()) / hugePageBytes * hugePageBytes;
    if (first < end) // where it is refused, all works as well, only slower
        (void)::madvise(buffer.data() + (first - begin), end - first, MADV_HUGEPAGE);
}

} // namespace

Bytes FrameMaker::takeBuffer(std::int64_t byteCount)
{
    Bytes buffer = m_pool.take(byteCount);
    preferHugePages(buffer);
    return buffer;
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
