#pragma once

#include "Capture/FrameTimeline.h"
#include "Capture/Journal/JournalFormat.h"
#include "Capture/Spill/SpillFile.h"
#include "Encoding/Pixels/PixelTypes.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace quillbox {

/// Reads a journal, written to its end or not, damaged or not: what it gives is what lies before the first damage.
/// Whatever the bytes are, it needs little more memory than the file's length. Stateless; thread: any.
namespace JournalReader {

struct Summary {
    JournalFormat::WallClock::time_point began;
    std::int64_t frameCount = 0; ///< 0: there is no picture
};

/// What the headers of the records say; the pixels are not looked at, so there may be fewer frames.
/// @return none if that is no journal. @throws SpillError  it can't be read.
[[nodiscard]] std::optional<Summary> summary(const SpillFile& file);

struct Contents {
    JournalFormat::WallClock::time_point began;
    std::vector<RGBAFrame> frames; ///< oldest first, 30 a second; their pixels are in the file until they are looked at
    std::vector<FrameRange> held;  ///< those that do not tell what the screen showed, in order
    bool isWhole = false;          ///< the recording ended as it should
};

/// @return none if that is no journal. @throws SpillError  it can't be read.
[[nodiscard]] std::optional<Contents> read(const std::shared_ptr<const SpillFile>& file);

} // namespace JournalReader
} // namespace quillbox
