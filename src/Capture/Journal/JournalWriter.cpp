#include "Capture/Journal/JournalWriter.h"

#include "Capture/Spill/CompressedBand.h"

#include <algorithm>
#include <utility>

namespace quillbox {

using JournalFormat::Kind;

JournalWriter::JournalWriter(std::shared_ptr<SpillFile> file, JournalFormat::WallClock::time_point began)
    : m_file(std::move(file))
    , m_remembered(rememberedBands)
{
    (void)m_file->append(JournalFormat::encodedHeader(began)); // at the file's beginning
}

void JournalWriter::addPicture(const RGBAFrame& picture, std::int64_t firstFrame)
{
    if (picture.pixelCount() == 0)
        return;
    const RGBAFrame frame = picture.inBands(m_previous);
    const bool isLikeBefore
        = m_previous && m_previous->width() == frame.width() && m_previous->height() == frame.height();
    m_buffer.clear();
    m_newRecords = 0;
    m_newBands = 0;
    std::vector<Added> added;
    Bytes list;
    JournalFormat::append32(list, static_cast<std::uint32_t>(frame.width()));
    JournalFormat::append32(list, static_cast<std::uint32_t>(frame.height()));
    for (std::int64_t index = 0; index < frame.bandCount(); ++index) {
        if (isLikeBefore && frame.sharesBand(*m_previous, index))
            continue;
        added.push_back(this->added(frame.ownBand(index)));
        JournalFormat::append32(list, static_cast<std::uint32_t>(index));
        JournalFormat::append32(list, added.back().place.band);
    }
    beginRecord();
    m_buffer.insert(m_buffer.end(), list.begin(), list.end());
    finishRecord(Kind::Picture, m_previous ? firstFrame : 0);

    const std::int64_t begin = m_file->append(m_buffer);
    m_records += m_newRecords;
    m_bands += m_newBands;
    m_previous = frame;
    for (Added& each : added) {
        if (each.isNew) {
            each.place.offset += begin;
            m_remembered[each.place.checksum % rememberedBands] = each.place;
        }
        each.band->back(
            std::make_unique<CompressedInFile>(m_file, each.place.offset, each.place.size, each.band->byteCount()));
    }
}

JournalWriter::Added JournalWriter::added(RGBAFrame::Band band)
{
    const PixelView pixels = band->pixels();
    beginRecord();
    const std::size_t offset = m_buffer.size();
    const std::size_t size = CompressedBand::append(m_buffer, {pixels.data(), pixels.size()});
    const std::uint32_t checksum = JournalFormat::checksum(std::span(m_buffer).subspan(offset));
    const Place& known = m_remembered[checksum % rememberedBands];
    if (known.offset > 0 && known.checksum == checksum && known.size == size && known.byteCount == pixels.size()
        && holds(known, offset)) {
        m_buffer.resize(m_recordBegin);
        return {.band = std::move(band), .place = known};
    }
    const Place place{.band = m_bands + m_newBands++,
        .checksum = checksum,
        .offset = static_cast<std::int64_t>(offset),
        .size = size,
        .byteCount = pixels.size()};
    finishRecord(Kind::Band, static_cast<std::int64_t>(pixels.size()));
    return {.band = std::move(band), .place = place, .isNew = true};
}

/// Whether those bytes of the file are the ones from there to the end of the buffer.
bool JournalWriter::holds(const Place& place, std::size_t offsetInBuffer) const
{
    Bytes bytes(place.size);
    m_file->read(place.offset, bytes);
    return std::ranges::equal(bytes, std::span(m_buffer).subspan(offsetInBuffer));
}

void JournalWriter::addStill(std::int64_t frameCount)
{
    addNumber(Kind::Still, frameCount);
}

void JournalWriter::addHeld(std::int64_t firstFrame)
{
    addNumber(Kind::Held, firstFrame);
}

void JournalWriter::addResumed(std::int64_t firstFrame)
{
    addNumber(Kind::Resumed, firstFrame);
}

void JournalWriter::addEnd(std::int64_t frameCount)
{
    addNumber(Kind::End, frameCount);
}

void JournalWriter::addNumber(Kind kind, std::int64_t value)
{
    m_buffer.clear();
    m_newRecords = 0;
    beginRecord();
    finishRecord(kind, value);
    (void)m_file->append(m_buffer); // at the file's end
    m_records += m_newRecords;
}

/// Leaves room for the header.
void JournalWriter::beginRecord()
{
    m_recordBegin = m_buffer.size();
    m_buffer.resize(m_recordBegin + JournalFormat::recordHeaderBytes);
}

/// What the buffer has got since beginRecord() is the payload.
void JournalWriter::finishRecord(Kind kind, std::int64_t value)
{
    const auto payload = std::span(m_buffer).subspan(m_recordBegin + JournalFormat::recordHeaderBytes);
    Bytes header;
    JournalFormat::append(header,
        {.kind = kind,
            .number = m_records + m_newRecords++,
            .value = value,
            .payloadBytes = static_cast<std::uint32_t>(payload.size()),
            .payloadChecksum = JournalFormat::checksum(payload)});
    std::ranges::copy(header, m_buffer.begin() + static_cast<std::ptrdiff_t>(m_recordBegin));
}

} // namespace quillbox
