#include "App/FrameSources/BandReader.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace quillbox {
namespace {

constexpr std::int64_t smallestSharedBytes = 1 << 20; // below, waking a thread costs more than it saves
constexpr std::int64_t bytesAtOnce = 16 << 20;        // the more, the less do two threads wait for each other

/// Pixels in a file that is read as raw pictures.
class ExtractStore final : public BackingStore {
public:
    ExtractStore(std::shared_ptr<const FileExtract> file, std::int64_t offset, std::size_t byteCount, FramePool pool)
        : m_file(std::move(file))
        , m_offset(offset)
        , m_byteCount(byteCount)
        , m_pool(std::move(pool))
    {
    }
    [[nodiscard]] std::shared_ptr<const Bytes> read() const override
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

} // namespace

BandReader::BandReader(ByteSource& source, PixelSize size, Parallelism parallelism)
    : m_source(source)
    , m_size(size)
    , m_pictureBytes(size.width * size.height * RGBAFrame::bytesPerPixel)
    , m_bandCount((size.height + RGBAFrame::rowsPerBand - 1) / RGBAFrame::rowsPerBand)
    , m_bandBytes(size.width * RGBAFrame::rowsPerBand * RGBAFrame::bytesPerPixel)
    , m_file(source.extract())
{
    if (source.canReadAhead() && ForkJoinThread::isWorthIt(parallelism) && m_bandCount > 1
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
    const std::int64_t wanted = std::ssize(pictures) * m_pictureBytes;
    // A file may become shorter while both parts are read: whatever lies behind the first gap counts for nothing.
    const auto endOf = [&] {
        return std::min(upper.end.value_or(wanted), lower.end.value_or(wanted));
    };
    if (m_side) {
        upper.last = lower.first = m_bandCount / 2;
        const auto readAhead = [this](std::int64_t distance, Bytes& buffer) {
            return m_source.readAhead(distance, buffer);
        };
        m_side->runBoth([&] { readPart(pictures, lower, readAhead); }, [&] { readPart(pictures, upper, readAhead); });
        m_source.skip(endOf());
    } else {
        readPart(pictures, upper, [this](std::int64_t /*distance*/, Bytes& buffer) { return m_source.read(buffer); });
    }

    std::int64_t left = endOf();
    m_offset += left;
    for (Bands& bands : pictures) {
        if (left < m_pictureBytes) {
            m_waiting.push_back({.frame = std::nullopt, .byteCount = left});
            return;
        }
        left -= m_pictureBytes;
        if (!std::ranges::equal(bands, m_pinned, {}, &PinnedBand::band, &PinnedBand::band)) {
            std::vector<RGBAFrame::Band> made(bands.size());
            std::ranges::transform(bands, made.begin(), &PinnedBand::band);
            m_previous = RGBAFrame::ofBands(m_size.width, m_size.height, std::move(made));
            m_pinned = std::move(bands);
        }
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
            if (got < byteCount) {
                part.end = distance + got;
                return;
            }
            PinnedBand before;
            if (number > 0)
                before = pictures[number - 1][place];
            else if (m_previous)
                before = m_pinned[place];
            const bool isSame = before.band && std::memcmp(before.pixels->data(), buffer.data(), buffer.size()) == 0;
            pictures[number][place] = isSame ? std::move(before) : made(m_offset + distance, std::exchange(buffer, {}));
        }
    }
    if (!buffer.empty())
        m_pool.giveBack(std::move(buffer));
}

BandReader::PinnedBand BandReader::made(std::int64_t offset, Bytes pixels) const
{
    std::unique_ptr<const BackingStore> backing;
    if (m_file)
        backing = std::make_unique<ExtractStore>(m_file, offset, pixels.size(), m_pool);
    const auto shared = m_pool.shared(std::move(pixels));
    return {.band = std::make_shared<const PixelBand>(shared, std::move(backing)), .pixels = shared};
}

} // namespace quillbox
