#pragma once

#include "Encoding/BytesKeeper.h"
#include "Encoding/Parallel.h"
#include "Encoding/Pixels/PixelTypes.h"
#include "Encoding/Presets.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <stop_token>
#include <vector>

namespace quillbox {

class FrameReducer;

/// Turns the frames of a recording into a GIF that fits a preset's byte budget: frame rate from the activity, runs of
/// equal frames merged, width capped, one global palette, and smaller palettes until a file fits.
/// Pure: the same frames and configuration give the same bytes on any machine with any number of threads.
namespace GIFOptimizer {

struct Config {
    ExportPreset preset = ExportPreset::slack;
    std::int64_t sourceFPS = 30;             ///< rate of the frames handed in, frames per second
    std::optional<bool> ditheringOverride{}; ///< always, never, or (none) decided for each palette
};

struct Result {
    Bytes data;                        ///< the complete file
    std::int64_t byteCount = 0;        ///< `data.size()`
    std::int64_t frameCount = 0;       ///< frames in the file
    std::int64_t sourceFrameCount = 0; ///< frames handed in
    std::int64_t colorCount = 0;       ///< entries of the global palette
    std::int64_t effectiveFPS = 0;     ///< the rate chosen, frames per second
    bool usedDithering = false;
    double durationSeconds = 0; ///< sum of all delays

    friend bool operator==(const Result&, const Result&) = default;
};

/// How far `optimize` has come. An attempt is left as soon as it exceeds the budget; where no palette size fits, those
/// that may be the smallest are taken up again, each as an attempt of its own that has some of its frames already.
struct Progress {
    std::int64_t attempt = 0;    ///< from 1, never falls; at most twice the number of palette sizes, less one
    std::int64_t colors = 0;     ///< palette size of this attempt
    std::int64_t framesDone = 0; ///< of this attempt
    std::int64_t frameCount = 0;
};

/// How the work is carried out. Nothing but `finishNow` changes a byte of the result.
struct Execution {
    Parallelism parallelism{};
    std::function<void(const Progress&)> progress{}; ///< called now and then, by one thread at a time
    /// A request ends the search for a palette size: the result is the smallest attempt finished so far. Where none is
    /// finished, because all were left when they exceeded the budget, the latest of them is finished first.
    std::stop_token finishNow{};
    /// Takes bytes out of memory that are wanted again later: frames at their final size, and finished parts of files,
    /// where they are many. Called by any thread, several at once. Without one more stays in memory. What its results
    /// throw when they are read comes out of `optimize`.
    ByteStore store{};
    std::int64_t frameMemory = 512'000'000; ///< bytes of frames at their final size that stay in memory
    std::int64_t partMemory = 8'000'000;    ///< and of finished parts
};

/// @param reducer  The frames, taken at `config.sourceFPS` for `config.preset` (and perhaps others).
/// @pre at least one frame was taken; a violation ends the process.
/// @return The first attempt within the budget, or the smallest one (of equal ones the first) when none is.
/// @throws GIFEncodingError  a side of a frame exceeds 65535 pixels; found before any other work.
[[nodiscard]] Result optimize(const FrameReducer& reducer, const Config& config, const Execution& execution = {});

/// A clip whose file never lies in memory whole.
struct InPieces {
    Result clip;                 ///< without `data`
    std::vector<KeptBytes> file; ///< in order
};

/// The same in pieces, of which `execution.store` has those that memory should not hold.
[[nodiscard]] InPieces optimizeInPieces(
    const FrameReducer& reducer, const Config& config, const Execution& execution = {});

/// The same for frames that are all at hand.
/// @param frames  Oldest first. @pre not empty.
[[nodiscard]] Result optimize(std::span<const RGBAFrame> frames, const Config& config, const Execution& execution = {});

} // namespace GIFOptimizer
} // namespace quillbox
