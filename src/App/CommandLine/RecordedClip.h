#pragma once

#include "App/CommandLine/Arguments/Options.h"
#include "Capture/Recording.h"
#include "Encoding/GIFOptimizer.h"
#include "Encoding/Precise/PreciseOptimizer.h"

#include <QDateTime>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace quillbox {

class ProgressLine;

/// From a recording to a file, as the command line's options have it. Stateless.
namespace RecordedClip {

/// A finished clip, and what was given up for it if it was made precisely.
struct Encoded {
    GIFOptimizer::Result result;
    std::optional<PreciseOptimizer::Result> precise; ///< without the clip
    std::int64_t pictures = 0; ///< recorded ones that differ from the one before; 0 where nobody counted
};

/// Thread: any. @pre the recording has a frame. @throws what `ClipExport::encode` and `encodePrecisely` throw
[[nodiscard]] Encoded encode(const Recording& recording, const OutputOptions& options,
    const std::function<void(const GIFOptimizer::Progress&)>& progress);

/// Saves the clip and reports it; a recording that can be brought back need not be from then on.
/// @param date  What the file is named after, unless the options name it.
/// @return where it was saved @throws what `ClipExport::save` throws
std::string save(const Encoded& encoded, const Recording& recording, const OutputOptions& options,
    const QDateTime& date, ProgressLine& line);

} // namespace RecordedClip
} // namespace quillbox
