#include "App/FrameSources/BandReader.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace quillbox {
namespace {

constexpr std::int64_t smallestSharedBytes = 1 << 20; // below, waking a thread costs more than it saves
constexpr std::int64_t bytesAtOnce = 16 << 20;        // the more, the less do two threads wait for each other

/// Pixels of a picture in a file.
class InExtract final : public PixelBand::Source {
public:
    InExtract(std::shared_ptr<const FileExtract> file, std::int64_t offset, std::size_t byteCount, FramePool pool)
        : m_file(std::move(file))
        , m_offset(offset)
        , m_byteCount(byteCount)
        , m_pool(std::move(pool))
    {
    }
    [[nodiscard]] std::shared_ptr<const Bytes> pixels() const override
    {
        Bytes bytes = m_pool.take(static_cast<std::int64_t>(m_byteCount));
        m_file->read(m_offset, bytes);
        return m_pool.shared(std::move(bytes));
    }

private:
    std::shared_ptr<const FileExtract> m_file;
    std::int64_t m_offset;
    std::size_t m_byteCount;
    FramePool m_pool;
};

bool holds(const PixelBand& band, const Bytes& pixels)
{
    const PixelView held = band.pixels();
    return std::memcmp(held.data(), pixels.data(), pixels.size()) == 0;
}

bool isMadeOf(const RGBAFrame& frame, const std::vector<RGBAFrame::Band>& bands)
{
    for (std::size_t index = 0; index < bands.size(); ++index) {
        if (frame.ownBand(static_cast<std::int64_t>(index)) != bands[index])
            return false;
    }
    return true;
}

} // namespace

BandReader::BandReader(ByteSource& source, PixelSize size)
    : m_source(source)
    , m_size(size)
    , m_pictureBytes(size.width * size.height * RGBAFrame::bytesPerPixel)
    , m_bandCount((size.height + RGBAFrame::rowsPerBand - 1) / RGBAFrame::rowsPerBand)
    , m_bandBytes(size.width * RGBAFrame::rowsPerBand * RGBAFrame::bytesPerPixel)
    , m_again(source.extract())
{
    if (source.canReadAhead() && ForkJoinThread::isWorthIt() && m_bandCount > 1
        && m_pictureBytes >= smallestSharedBytes)
        m_side = std::make_unique<ForkJoinThread>();
}

BandReader::Outcome BandReader::read()
{
    if (m_waiting.empty())
        readPictures();
    Outcome next = std::move(m_waiting.front());
    m_waiting.pop_front();
    return next;
}

void BandReader::readPictures()
{
    std::vector<Bands> pictures(static_cast<std::size_t>(picturesAtOnce()));
    for (Bands& bands : pictures)
        bands.resize(static_cast<std::size_t>(m_bandCount));
    Part upper{.first = 0, .last = m_bandCount};
    Part lower{.first = m_bandCount, .last = m_bandCount};
    if (m_side) {
        upper.last = lower.first = m_bandCount / 2;
        const auto readAhead = [this](std::int64_t distance, Bytes& buffer) {
            return m_source.readAhead(distance, buffer);
        };
        m_side->runBoth([&] { readPart(pictures, lower, readAhead); }, [&] { readPart(pictures, upper, readAhead); });
        m_source.skip(upper.byteCount + lower.byteCount);
    } else {
        readPart(pictures, upper, [this](std::int64_t /*distance*/, Bytes& buffer) { return m_source.read(buffer); });
    }

    std::int64_t left = upper.byteCount + lower.byteCount;
    m_offset += left;
    for (Bands& bands : pictures) {
        if (left < m_pictureBytes) {
            m_waiting.push_back({.frame = std::nullopt, .byteCount = left});
            return;
        }
        left -= m_pictureBytes;
        if (!m_previous || !isMadeOf(*m_previous, bands))
            m_previous = RGBAFrame::ofBands(m_size.width, m_size.height, std::move(bands));
        m_waiting.push_back({.frame = m_previous, .byteCount = m_pictureBytes});
    }
}

std::int64_t BandReader::picturesAtOnce() const
{
    const std::int64_t left = m_side ? m_source.remaining().value_or(0) / m_pictureBytes : 0;
    return std::max<std::int64_t>(std::min(left, bytesAtOnce / m_pictureBytes), 1);
}

template <typename ReadBytes> void BandReader::readPart(std::vector<Bands>& pictures, Part& part, ReadBytes readBytes)
{
    Bytes buffer; // the same one until its contents are kept
    for (std::size_t number = 0; number < pictures.size(); ++number) {
        for (std::int64_t index = part.first; index < part.last; ++index) {
            const auto place = static_cast<std::size_t>(index);
            const std::int64_t distance = static_cast<std::int64_t>(number) * m_pictureBytes + index * m_bandBytes;
            const std::int64_t byteCount = std::min(m_bandBytes, m_pictureBytes - index * m_bandBytes);
            if (buffer.empty())
                buffer = m_pool.take(byteCount);
            buffer.resize(static_cast<std::size_t>(byteCount));
            const auto got = static_cast<std::int64_t>(readBytes(distance, buffer));
            part.byteCount += got;
            if (got < byteCount)
                return;
            RGBAFrame::Band before;
            if (number > 0)
                before = pictures[number - 1][place];
            else if (m_previous)
                before = m_previous->ownBand(index);
            const bool isSame = before && holds(*before, buffer);
            pictures[number][place] = isSame ? std::move(before) : made(m_offset + distance, std::exchange(buffer, {}));
        }
    }
    if (!buffer.empty())
        m_pool.giveBack(std::move(buffer));
}

RGBAFrame::Band BandReader::made(std::int64_t offset, Bytes pixels) const
{
    RGBAFrame::Band elsewhere;
    if (m_again) {
        elsewhere = std::make_shared<const PixelBand>(
            pixels.size(), std::make_unique<InExtract>(m_again, offset, pixels.size(), m_pool));
    }
    return std::make_shared<const PixelBand>(m_pool.shared(std::move(pixels)), std::move(elsewhere));
}

} // namespace quillbox
