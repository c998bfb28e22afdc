#include "Capture/Journal/JournalReader.h"

#include "Capture/ScreenRecorder.h"
#include "Capture/Spill/CompressedBand.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <utility>

namespace quillbox {
namespace {

using JournalFormat::Kind;
using JournalFormat::RecordHeader;

std::optional<JournalFormat::WallClock::time_point> readHeader(const SpillFile& file)
{
    std::array<std::uint8_t, JournalFormat::headerBytes> bytes{};
    if (file.size() < std::ssize(bytes))
        return std::nullopt;
    file.read(0, bytes);
    return JournalFormat::decodedHeader(bytes);
}

/// A journal's records, one after the other.
class Records {
public:
    explicit Records(const SpillFile& file)
        : m_file(file)
    {
    }

    /// The next one, as far as its header tells; none at the end, or where they are damaged.
    std::optional<RecordHeader> next()
    {
        std::array<std::uint8_t, JournalFormat::recordHeaderBytes> bytes{};
        if (m_file.size() - m_next < std::ssize(bytes))
            return std::nullopt;
        m_file.read(m_next, bytes);
        const auto header = JournalFormat::decodedRecord(bytes);
        m_payload = m_next + std::ssize(bytes);
        if (!header || header->number != m_count || m_file.size() - m_payload < header->payloadBytes)
            return std::nullopt;
        ++m_count;
        m_next = m_payload + header->payloadBytes;
        return header;
    }

    /// Where the payload of the last one lies.
    [[nodiscard]] std::int64_t payloadOffset() const { return m_payload; }

    /// The payload of the last one; none if it is damaged.
    [[nodiscard]] std::optional<Bytes> payload(const RecordHeader& header) const
    {
        Bytes bytes(header.payloadBytes);
        m_file.read(m_payload, bytes);
        return JournalFormat::checksum(bytes) == header.payloadChecksum ? std::optional(std::move(bytes))
                                                                        : std::nullopt;
    }

private:
    const SpillFile& m_file;
    std::int64_t m_next = JournalFormat::headerBytes;
    std::int64_t m_payload = 0;
    std::uint32_t m_count = 0;
};

/// As many frames of a hold are left at the end of a recording that was cut off, as of one that was stopped.
constexpr std::int64_t heldTail
    = ScreenRecorder::heldTail / std::chrono::milliseconds(1) * FrameTimeline::framesPerSecond / 1000;

/// How many frames there are, and which of them are held, as one record after the other tells.
class FrameTally {
public:
    /// @return false if the record can't follow those before it
    bool take(const RecordHeader& header)
    {
        m_endedHold.reset();
        if (header.kind == Kind::Band)
            return true;
        if (header.value < 0 || header.value > JournalFormat::maxFrames)
            return false;
        if (header.kind == Kind::Picture) {
            if (header.value < m_lastBegin || (!m_hasPicture && header.value > 0))
                return false;
            if (m_heldFrom && header.value > *m_heldFrom)
                endHold(header.value);
            m_hasPicture = true;
            m_lastBegin = header.value;
            m_count = std::max(m_count, header.value + 1);
        } else if (header.kind == Kind::Still) {
            m_count = std::max(m_count, header.value);
        } else if (header.kind == Kind::End) {
            if (m_heldFrom)
                endHold(header.value);
            m_count = header.value;
            m_isWhole = true;
        } else if (header.kind == Kind::Held) {
            if (m_heldFrom || header.value < m_heldUntil)
                return false;
            m_heldFrom = header.value;
        } else if (header.kind == Kind::Resumed) {
            if (m_heldFrom)
                endHold(header.value);
        }
        return true;
    }

    [[nodiscard]] std::int64_t value() const
    {
        if (!m_hasPicture)
            return 0;
        return m_heldFrom ? std::min(m_count, std::max(m_lastBegin + 1, *m_heldFrom + heldTail)) : m_count;
    }
    [[nodiscard]] bool isWhole() const { return m_isWhole; }

    /// The frames of the hold that the last record ended, if it did.
    [[nodiscard]] std::optional<FrameRange> endedHold() const { return m_endedHold; }
    /// Those of a hold that has no end; none where there is no such hold.
    [[nodiscard]] std::optional<FrameRange> openHold() const
    {
        return m_heldFrom ? std::optional(FrameRange{*m_heldFrom, value()}) : std::nullopt;
    }

private:
    void endHold(std::int64_t end)
    {
        m_endedHold = FrameRange{*m_heldFrom, end};
        m_heldUntil = std::max(end, *m_heldFrom);
        m_heldFrom.reset();
    }

    std::int64_t m_count = 0;
    std::int64_t m_lastBegin = 0;
    bool m_hasPicture = false;
    bool m_isWhole = false;
    std::optional<std::int64_t> m_heldFrom; ///< while it lasts
    std::int64_t m_heldUntil = 0;           ///< by the holds that are over
    std::optional<FrameRange> m_endedHold;
};

/// Those of the holds that concern a recording of so many frames.
std::vector<FrameRange> within(std::int64_t frameCount, std::vector<FrameRange> holds)
{
    for (FrameRange& hold : holds)
        hold.end = std::min(hold.end, frameCount);
    std::erase_if(holds, [](const FrameRange& hold) { return hold.begin >= hold.end; });
    return holds;
}

/// The pictures, put together from their bands.
class Pictures {
public:
    explicit Pictures(std::shared_ptr<const SpillFile> file)
        : m_file(std::move(file))
    {
    }

    /// @return false if that is no band
    bool takeBand(const RecordHeader& header, std::int64_t offset, const Bytes& payload)
    {
        constexpr std::int64_t largest = JournalFormat::maxSide * RGBAFrame::rowsPerBand * RGBAFrame::bytesPerPixel;
        if (header.value < 1 || header.value > largest || std::ssize(payload) > header.value || payload.empty())
            return false;
        const auto byteCount = static_cast<std::size_t>(header.value);
        try {
            (void)CompressedBand::decompressed(payload, byteCount); // whether it can be
        } catch (const SpillError&) {
            return false;
        }
        m_bands.push_back(std::make_shared<const PixelBand>(
            byteCount, std::make_unique<CompressedInFile>(m_file, offset, payload.size(), byteCount)));
        return true;
    }

    /// @return false if that is no picture
    bool takePicture(std::int64_t begin, const Bytes& payload)
    {
        constexpr std::size_t sizeBytes = 8;
        constexpr std::size_t entryBytes = 8;
        if (payload.size() < sizeBytes || (payload.size() - sizeBytes) % entryBytes != 0)
            return false;
        const std::int64_t width = JournalFormat::number32(payload, 0);
        const std::int64_t height = JournalFormat::number32(payload, 4);
        if (width < 1 || width > JournalFormat::maxSide || height < 1 || height > JournalFormat::maxSide)
            return false;
        const bool isLikeBefore = m_latest && m_latest->width() == width && m_latest->height() == height;
        const std::int64_t count = (height + RGBAFrame::rowsPerBand - 1) / RGBAFrame::rowsPerBand;
        if (!isLikeBefore && payload.size() != sizeBytes + entryBytes * static_cast<std::size_t>(count))
            return false; // the first of its size has all bands
        std::vector<RGBAFrame::Band> bands(static_cast<std::size_t>(count));
        for (std::int64_t index = 0; isLikeBefore && index < count; ++index)
            bands[static_cast<std::size_t>(index)] = m_latest->ownBand(index);
        std::int64_t least = 0;
        for (std::size_t entry = sizeBytes; entry < payload.size(); entry += entryBytes) {
            const std::int64_t index = JournalFormat::number32(payload, entry);
            const std::size_t number = JournalFormat::number32(payload, entry + 4);
            if (index < least || index >= count || number >= m_bands.size())
                return false;
            const std::int64_t rows = std::min(RGBAFrame::rowsPerBand, height - index * RGBAFrame::rowsPerBand);
            if (std::cmp_not_equal(m_bands[number]->byteCount(), width * rows * RGBAFrame::bytesPerPixel))
                return false;
            bands[static_cast<std::size_t>(index)] = m_bands[number];
            least = index + 1;
        }
        fillUpTo(begin);
        m_latest = RGBAFrame::ofBands(width, height, std::move(bands));
        return true;
    }

    /// The latest picture stays until there are so many frames.
    std::vector<RGBAFrame> finished(std::int64_t frameCount)
    {
        fillUpTo(frameCount);
        m_frames.erase(m_frames.begin() + static_cast<std::ptrdiff_t>(frameCount), m_frames.end());
        return std::move(m_frames);
    }

private:
    void fillUpTo(std::int64_t count)
    {
        while (m_latest && std::ssize(m_frames) < count)
            m_frames.push_back(*m_latest);
    }

    std::shared_ptr<const SpillFile> m_file;
    std::vector<RGBAFrame::Band> m_bands;
    std::optional<RGBAFrame> m_latest;
    std::vector<RGBAFrame> m_frames; ///< before the latest
};

} // namespace

std::optional<JournalReader::Summary> JournalReader::summary(const SpillFile& file)
{
    const auto began = readHeader(file);
    if (!began)
        return std::nullopt;
    Records records(file);
    FrameTally count;
    while (const auto header = records.next())
        if (!count.take(*header) || count.isWhole())
            break;
    return Summary{.began = *began, .frameCount = count.value()};
}

std::optional<JournalReader::Contents> JournalReader::read(const std::shared_ptr<const SpillFile>& file)
{
    const auto began = readHeader(*file);
    if (!began)
        return std::nullopt;
    Records records(*file);
    FrameTally count;
    Pictures pictures(file);
    std::vector<FrameRange> holds;
    while (const auto header = records.next()) {
        FrameTally next = count;
        const auto payload = records.payload(*header);
        if (!payload || !next.take(*header)
            || (header->kind == Kind::Band && !pictures.takeBand(*header, records.payloadOffset(), *payload))
            || (header->kind == Kind::Picture && !pictures.takePicture(header->value, *payload)))
            break;
        count = next;
        if (const auto hold = count.endedHold())
            holds.push_back(*hold);
        if (count.isWhole())
            break;
    }
    if (const auto hold = count.openHold())
        holds.push_back(*hold);
    return Contents{.began = *began,
        .frames = pictures.finished(count.value()),
        .held = within(count.value(), std::move(holds)),
        .isWhole = count.isWhole()};
}

} // namespace quillbox
