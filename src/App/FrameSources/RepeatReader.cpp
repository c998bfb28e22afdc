#include "App/FrameSources/RepeatReader.h"

#include "Encoding/Precondition.h"

#include <algorithm>
#include <cstring>

namespace quillbox {
namespace {

using Outcome = RepeatReader::Outcome;

constexpr std::size_t pieceBytes = std::size_t{1} << 18U;          // fits the second-level cache
constexpr std::size_t smallestSharedBytes = std::size_t{1} << 20U; // below, waking a thread costs more than it saves

/// Fills `into` piece by piece. @param readPiece  (offset, piece) → bytes read.
template <typename ReadPiece>
Outcome readPieces(std::span<std::uint8_t> into, std::span<const std::uint8_t> previous, ReadPiece readPiece)
{
    bool isRepeat = !previous.empty();
    for (std::size_t done = 0; done < into.size();) {
        const auto piece = into.subspan(done, std::min(pieceBytes, into.size() - done));
        const std::size_t got = readPiece(done, piece);
        if (got < piece.size())
            return {.byteCount = done + got, .isRepeat = false};
        isRepeat = isRepeat && std::memcmp(piece.data(), &previous[done], got) == 0;
        done += got;
    }
    return {.byteCount = into.size(), .isRepeat = isRepeat};
}

} // namespace

RepeatReader::RepeatReader(ByteSource& source)
    : m_source(source)
    , m_mayShare(source.canReadAhead() && SideThread::isWorthIt())
{
}

Outcome RepeatReader::read(std::span<std::uint8_t> into, std::span<const std::uint8_t> previous)
{
    precondition(previous.empty() || previous.size() == into.size(), "pictures of one size are compared");
    if (m_mayShare && into.size() >= smallestSharedBytes)
        return readShared(into, previous);
    return readPieces(
        into, previous, [this](std::size_t /*offset*/, std::span<std::uint8_t> piece) { return m_source.read(piece); });
}

Outcome RepeatReader::readShared(std::span<std::uint8_t> into, std::span<const std::uint8_t> previous)
{
    const std::size_t half = into.size() / 2 / pieceBytes * pieceBytes;
    const auto readPart
        = [this](std::span<std::uint8_t> part, std::span<const std::uint8_t> before, std::size_t begin) {
              return readPieces(part, before, [this, begin](std::size_t offset, std::span<std::uint8_t> piece) {
                  return m_source.readAhead(static_cast<std::int64_t>(begin + offset), piece);
              });
          };
    if (!m_side)
        m_side.emplace();
    Outcome first;
    Outcome second;
    m_side->runBoth(
        [&] { second = readPart(into.subspan(half), previous.empty() ? previous : previous.subspan(half), half); },
        [&] { first = readPart(into.first(half), previous.empty() ? previous : previous.first(half), 0); });
    const std::size_t byteCount = first.byteCount < half ? first.byteCount : half + second.byteCount;
    m_source.skip(static_cast<std::int64_t>(byteCount));
    return {.byteCount = byteCount, .isRepeat = first.isRepeat && second.isRepeat};
}

} // namespace quillbox
