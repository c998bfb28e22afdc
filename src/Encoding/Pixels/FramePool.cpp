#include "Encoding/Pixels/FramePool.h"

#include <mutex>
#include <utility>
#include <vector>

namespace quillbox {

/// Buffers that wait to be used again.
class FramePool::Spares {
public:
    Bytes take()
    {
        const std::scoped_lock lock(m_mutex);
        if (m_buffers.empty())
            return {};
        Bytes buffer = std::move(m_buffers.back()); // the one most likely to be in the cache still
        m_buffers.pop_back();
        m_byteCount -= buffer.capacity();
        return buffer;
    }

    void put(Bytes buffer)
    {
        const std::scoped_lock lock(m_mutex);
        if (m_byteCount + buffer.capacity() > maxBytes)
            return;
        m_byteCount += buffer.capacity();
        m_buffers.push_back(std::move(buffer));
    }

private:
    static constexpr std::size_t maxBytes = 100'000'000; // a few pictures, as a reader and its consumer have under way

    std::mutex m_mutex;
    std::vector<Bytes> m_buffers;
    std::size_t m_byteCount = 0; ///< of all
};

FramePool::FramePool()
    : m_spares(std::make_shared<Spares>())
{
}

Bytes FramePool::take(std::int64_t byteCount) const
{
    constexpr std::int64_t worthAPage = 1 << 16;
    Bytes buffer = m_spares->take();
    if (byteCount >= worthAPage) // to where a page begins files are read faster; what is not needed stays untouched
        buffer.reserve(Bytes::allocator_type::smallestAlignedCount());
    buffer.resize(static_cast<std::size_t>(byteCount));
    return buffer;
}

RGBAFrame FramePool::frame(std::int64_t width, std::int64_t height, Bytes pixels) const
{
    return RGBAFrame::sharing(width, height, shared(std::move(pixels)));
}

std::shared_ptr<const Bytes> FramePool::shared(Bytes pixels) const
{
    auto giveBack = [spares = std::weak_ptr(m_spares)](Bytes* buffer) {
        const std::unique_ptr<Bytes> owned(buffer);
        if (const auto pool = spares.lock())
            pool->put(std::move(*owned));
    };
    return {new Bytes(std::move(pixels)), std::move(giveBack)};
}

void FramePool::giveBack(Bytes pixels) const
{
    m_spares->put(std::move(pixels));
}

} // namespace quillbox
