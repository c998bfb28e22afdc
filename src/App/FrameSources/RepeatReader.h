#pragma once

#include "App/FrameSources/ByteSource.h"
#include "Encoding/SideThread.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace quillbox {

/// Reads one picture after another and tells which ones repeat the one before, by comparing each piece while it is
/// still in the processor's cache. Large pictures are read by two threads where the source can be read anywhere.
/// Used by one thread at a time.
class RepeatReader {
public:
    /// @param source  Outlives the reader; used by nobody else during `read`.
    explicit RepeatReader(ByteSource& source);

    struct Outcome {
        std::size_t byteCount = 0; ///< read; fewer than asked for only where the input ends
        bool isRepeat = false;     ///< all bytes were there and equal the previous ones
    };

    /// @param previous  To compare with: as many bytes as `into` has; or none, which nothing repeats.
    /// @throws FrameReadError  as `ByteSource::read`.
    [[nodiscard]] Outcome read(std::span<std::uint8_t> into, std::span<const std::uint8_t> previous);

private:
    [[nodiscard]] Outcome readShared(std::span<std::uint8_t> into, std::span<const std::uint8_t> previous);

    ByteSource& m_source;
    bool m_mayShare;                  ///< whether two threads can read the source, and run at once
    std::optional<SideThread> m_side; ///< from the first picture on that is shared
};

} // namespace quillbox
