#include "Capture/Journal/JournalFormat.h"

#include "Capture/FrameTimeline.h"

#include <algorithm>

namespace quillbox {
namespace {

constexpr std::array<std::uint8_t, 8> signature{'Q', 'B', 'r', 'e', 'c', '\r', '\n', 0x1A};
constexpr std::size_t slices = 8; // bytes that one step of the checksum takes in

using ChecksumTables = std::array<std::array<std::uint32_t, 256>, slices>;

constexpr ChecksumTables makeChecksumTables()
{
    constexpr std::uint32_t polynomial = 0xEDB88320; // reflected
    ChecksumTables tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t value = byte;
        for (int bit = 0; bit < 8; ++bit)
            value = value >> 1U ^ ((value & 1U) != 0 ? polynomial : 0U);
        tables[0][byte] = value;
    }
    for (std::size_t slice = 1; slice < slices; ++slice) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint32_t before = tables[slice - 1][byte];
            tables[slice][byte] = before >> 8U ^ tables[0][before & 0xFFU];
        }
    }
    return tables;
}

constexpr ChecksumTables checksumTables = makeChecksumTables();

void append64(Bytes& bytes, std::int64_t number)
{
    const auto bits = static_cast<std::uint64_t>(number);
    JournalFormat::append32(bytes, static_cast<std::uint32_t>(bits));
    JournalFormat::append32(bytes, static_cast<std::uint32_t>(bits >> 32U));
}

std::int64_t number64(std::span<const std::uint8_t> bytes, std::size_t offset)
{
    const std::uint64_t high = JournalFormat::number32(bytes, offset + 4);
    return static_cast<std::int64_t>(high << 32U | JournalFormat::number32(bytes, offset));
}

} // namespace

std::uint32_t JournalFormat::checksum(std::span<const std::uint8_t> bytes)
{
    const auto& tables = checksumTables;
    std::uint32_t value = 0xFFFFFFFF;
    for (; bytes.size() >= slices; bytes = bytes.subspan(slices)) {
        const std::uint32_t low = value ^ number32(bytes, 0);
        const std::uint32_t high = number32(bytes, 4);
        value = tables[7][low & 0xFFU] ^ tables[6][low >> 8U & 0xFFU] ^ tables[5][low >> 16U & 0xFFU]
            ^ tables[4][low >> 24U] ^ tables[3][high & 0xFFU] ^ tables[2][high >> 8U & 0xFFU]
            ^ tables[1][high >> 16U & 0xFFU] ^ tables[0][high >> 24U];
    }
    for (const std::uint8_t byte : bytes)
        value = value >> 8U ^ tables[0][(value ^ byte) & 0xFFU];
    return ~value;
}

void JournalFormat::append32(Bytes& bytes, std::uint32_t number)
{
    for (const unsigned shift : {0U, 8U, 16U, 24U})
        bytes.push_back(static_cast<std::uint8_t>(number >> shift));
}

std::uint32_t JournalFormat::number32(std::span<const std::uint8_t> bytes, std::size_t offset)
{
    const std::span<const std::uint8_t, 4> four = bytes.subspan(offset).first<4>();
    return std::uint32_t{four[0]} | std::uint32_t{four[1]} << 8U | std::uint32_t{four[2]} << 16U
        | std::uint32_t{four[3]} << 24U;
}

std::array<std::uint8_t, JournalFormat::headerBytes> JournalFormat::encodedHeader(WallClock::time_point began)
{
    Bytes bytes(signature.begin(), signature.end());
    append32(bytes, version);
    append32(bytes, FrameTimeline::framesPerSecond);
    append64(bytes, std::chrono::duration_cast<std::chrono::milliseconds>(began.time_since_epoch()).count());
    append32(bytes, 0);
    append32(bytes, checksum(bytes));
    std::array<std::uint8_t, headerBytes> header{};
    std::ranges::copy(bytes, header.begin());
    return header;
}

std::optional<JournalFormat::WallClock::time_point> JournalFormat::decodedHeader(
    std::span<const std::uint8_t, headerBytes> bytes)
{
    constexpr std::int64_t lastMoment = 253'402'300'799'999; // the year 9999
    const std::int64_t began = number64(bytes, 16);
    if (!std::ranges::equal(bytes.first<signature.size()>(), signature) || number32(bytes, 8) < 1
        || number32(bytes, 8) > version || number32(bytes, 12) != FrameTimeline::framesPerSecond || began < 0
        || began > lastMoment || number32(bytes, 28) != checksum(bytes.first<28>()))
        return std::nullopt;
    return WallClock::time_point(std::chrono::milliseconds(began));
}

void JournalFormat::append(Bytes& bytes, const RecordHeader& header)
{
    const std::size_t begin = bytes.size();
    append32(bytes, static_cast<std::uint32_t>(header.kind));
    append32(bytes, header.number);
    append64(bytes, header.value);
    append32(bytes, header.payloadBytes);
    append32(bytes, header.payloadChecksum);
    append32(bytes, checksum(std::span(bytes).subspan(begin)));
}

std::optional<JournalFormat::RecordHeader> JournalFormat::decodedRecord(
    std::span<const std::uint8_t, recordHeaderBytes> bytes)
{
    const RecordHeader header{.kind = static_cast<Kind>(number32(bytes, 0)),
        .number = number32(bytes, 4),
        .value = number64(bytes, 8),
        .payloadBytes = number32(bytes, 16),
        .payloadChecksum = number32(bytes, 20)};
    if (number32(bytes, 24) != checksum(bytes.first<24>()) || header.kind < Kind::Band || header.kind > Kind::Resumed
        || header.payloadBytes > maxPayload)
        return std::nullopt;
    return header;
}

} // namespace quillbox
