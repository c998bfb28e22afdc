#include "Encoding/Pixels/PixelBand.h"

#include "Encoding/Precondition.h"

#include <utility>

namespace quillbox {

PixelBand::PixelBand(Bytes pixels)
    : PixelBand(std::make_shared<const Bytes>(std::move(pixels)))
{
}

PixelBand::PixelBand(std::shared_ptr<const Bytes> pixels, std::unique_ptr<const BackingStore> backing)
    : m_byteCount(pixels->size())
    , m_resident(std::move(pixels))
    , m_backing(std::move(backing))
{
}

PixelBand::PixelBand(std::size_t byteCount, std::unique_ptr<const BackingStore> backing)
    : m_byteCount(byteCount)
    , m_backing(std::move(backing))
{
    precondition(m_backing != nullptr, "evicted pixels come back from somewhere");
}

bool PixelBand::isBacked() const
{
    const std::scoped_lock lock(m_mutex);
    return m_backing != nullptr;
}

std::size_t PixelBand::memoryBytes() const
{
    const std::scoped_lock lock(m_mutex);
    return (m_resident ? m_byteCount : 0) + (m_backing ? m_backing->memoryBytes() : 0);
}

PixelView PixelBand::pixels() const
{
    std::shared_ptr<const BackingStore> backing;
    {
        const std::scoped_lock lock(m_mutex);
        if (m_resident)
            return PixelView(m_resident);
        if (auto held = m_held.lock())
            return PixelView(std::move(held));
        backing = m_backing;
    }
    // Not under the lock: several threads may read several bands at once, and one twice at the worst.
    auto pixels = backing->read();
    precondition(pixels->size() == m_byteCount, "evicted pixels come back whole");
    const std::scoped_lock lock(m_mutex);
    m_held = pixels;
    return PixelView(std::move(pixels));
}

void PixelBand::back(std::unique_ptr<const BackingStore> backing) const
{
    const std::scoped_lock lock(m_mutex);
    m_backing = std::move(backing);
}

void PixelBand::evict() const
{
    const std::scoped_lock lock(m_mutex);
    precondition(m_backing != nullptr, "evicted pixels come back from somewhere");
    if (m_resident)
        m_held = std::exchange(m_resident, nullptr);
    if (m_held.expired())
        m_held.reset(); // of pixels that nobody holds not even the count stays
}

void PixelBand::evict(std::unique_ptr<const BackingStore> backing) const
{
    back(std::move(backing));
    evict();
}

} // namespace quillbox
