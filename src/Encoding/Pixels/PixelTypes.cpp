#include "Encoding/Pixels/PixelTypes.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace quillbox {

RGBAFrame::RGBAFrame(std::int64_t width, std::int64_t height, Bytes pixels)
    : RGBAFrame(sharing(width, height, std::make_shared<const Bytes>(std::move(pixels))))
{
}

RGBAFrame RGBAFrame::sharing(std::int64_t width, std::int64_t height, std::shared_ptr<const Bytes> pixels)
{
    precondition(pixels != nullptr, "a frame has pixels, if only none");
    precondition(std::ssize(*pixels) == checkedMul(checkedMul(width, height), bytesPerPixel), "four bytes per pixel");
    return {std::make_shared<const Storage>(Storage{.whole = std::move(pixels), .bands = {}}), width, height};
}

RGBAFrame RGBAFrame::ofBands(std::int64_t width, std::int64_t height, std::vector<Band> bands)
{
    precondition(width > 0 && height > 0, "a frame made of bands has pixels");
    (void)checkedMul(checkedMul(width, height), bytesPerPixel); // every size below fits
    RGBAFrame frame(
        std::make_shared<const Storage>(Storage{.whole = nullptr, .bands = std::move(bands)}), width, height);
    const auto& made = frame.m_storage->bands;
    precondition(std::ssize(made) == frame.bandCount(), "a frame has all its bands");
    for (std::int64_t index = 0; index < frame.bandCount(); ++index) {
        const Band& band = made[static_cast<std::size_t>(index)];
        precondition(band && std::cmp_equal(band->byteCount(), width * frame.rowsOfBand(index) * bytesPerPixel),
            "a band has its rows");
    }
    return frame;
}

RGBAFrame::RGBAFrame(std::shared_ptr<const Storage> storage, std::int64_t width, std::int64_t height)
    : m_width(width)
    , m_height(height)
    , m_storage(std::move(storage))
{
}

PixelView RGBAFrame::pixels() const
{
    if (m_storage->whole)
        return PixelView(m_storage->whole);
    Bytes together;
    together.reserve(static_cast<std::size_t>(m_width * m_height * bytesPerPixel));
    for (const Band& band : m_storage->bands) {
        const PixelView rows = band->pixels();
        together.insert(together.end(), rows.begin(), rows.end());
    }
    return PixelView(std::make_shared<const Bytes>(std::move(together)));
}

PixelView RGBAFrame::band(std::int64_t index) const
{
    const auto number = static_cast<std::size_t>(index);
    if (!m_storage->whole)
        return m_storage->bands[number]->pixels();
    const auto rowBytes = static_cast<std::size_t>(m_width * bytesPerPixel);
    return PixelView(m_storage->whole)
        .part(number * bandBytes(), static_cast<std::size_t>(rowsOfBand(index)) * rowBytes);
}

RGBAFrame::Band RGBAFrame::ownBand(std::int64_t index) const
{
    return m_storage->whole ? nullptr : m_storage->bands[static_cast<std::size_t>(index)];
}

RGBAFrame RGBAFrame::inBands(const std::optional<RGBAFrame>& before) const
{
    if (!m_storage->whole || pixelCount() == 0)
        return *this;
    const bool isLikeBefore = before && before->m_width == m_width && before->m_height == m_height;
    std::vector<Band> bands;
    bands.reserve(static_cast<std::size_t>(bandCount()));
    for (std::int64_t index = 0; index < bandCount(); ++index) {
        const PixelView pixels = band(index);
        Band same = isLikeBefore ? before->ownBand(index) : nullptr;
        const bool isSame = same && same->pixels() == pixels;
        bands.push_back(isSame ? std::move(same) : std::make_shared<const PixelBand>(Bytes(pixels)));
    }
    return ofBands(m_width, m_height, std::move(bands));
}

bool RGBAFrame::isBacked() const
{
    return !m_storage->whole
        && std::ranges::all_of(m_storage->bands, [](const Band& band) { return band->isBacked(); });
}

void RGBAFrame::evict() const
{
    precondition(isBacked(), "evicted pixels come back from somewhere");
    for (const Band& band : m_storage->bands)
        band->evict();
}

std::vector<PixelView> RGBAFrame::pinned() const
{
    std::vector<PixelView> pixels;
    pixels.reserve(m_storage->bands.size());
    for (const Band& band : m_storage->bands)
        pixels.push_back(band->pixels());
    return pixels;
}

const void* RGBAFrame::bandIdentity(std::int64_t index) const
{
    const auto number = static_cast<std::size_t>(index);
    if (m_storage->whole)
        return m_storage->whole->data() + number * bandBytes();
    return m_storage->bands[number].get();
}

bool operator==(const RGBAFrame& a, const RGBAFrame& b)
{
    if (a.m_width != b.m_width || a.m_height != b.m_height)
        return false;
    if (a.sharesPixels(b))
        return true;
    for (std::int64_t index = 0; index < a.bandCount(); ++index) {
        if (!a.sharesBand(b, index) && !(a.band(index) == b.band(index)))
            return false;
    }
    return true;
}

} // namespace quillbox
