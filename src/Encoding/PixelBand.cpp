#include "Encoding/PixelBand.h"

#include "Encoding/Precondition.h"

#include <utility>

namespace quillbox {

PixelBand::PixelBand(Bytes pixels)
    : PixelBand(std::make_shared<const Bytes>(std::move(pixels)))
{
}

PixelBand::PixelBand(std::shared_ptr<const Bytes> pixels, std::shared_ptr<const PixelBand> elsewhere)
    : m_byteCount(pixels->size())
    , m_elsewhere(std::move(elsewhere))
    , m_resident(std::move(pixels))
{
    precondition(!m_elsewhere || m_elsewhere->byteCount() == m_byteCount, "a band elsewhere has the same pixels");
}

PixelBand::PixelBand(std::size_t byteCount, std::unique_ptr<const Source> source)
    : m_byteCount(byteCount)
    , m_source(std::move(source))
{
    precondition(m_source != nullptr, "parked pixels are somewhere");
}

PixelView PixelBand::pixels() const
{
    std::shared_ptr<const Source> source;
    {
        const std::scoped_lock lock(m_mutex);
        if (m_resident)
            return PixelView(m_resident);
        if (auto held = m_broughtBack.lock())
            return PixelView(std::move(held));
        source = m_source;
    }
    // Not under the lock: several threads may bring several bands back at once, and one twice at the worst.
    auto pixels = source->pixels();
    precondition(pixels->size() == m_byteCount, "parked pixels come back whole");
    const std::scoped_lock lock(m_mutex);
    m_broughtBack = pixels;
    return PixelView(std::move(pixels));
}

void PixelBand::park(std::unique_ptr<const Source> source) const
{
    precondition(source != nullptr, "parked pixels are somewhere");
    const std::scoped_lock lock(m_mutex);
    m_broughtBack = m_resident;
    m_resident.reset();
    m_source = std::move(source);
}

} // namespace quillbox
