#pragma once

#include "Encoding/GIFOptimizer.h"
#include "Encoding/Precise/DistinctFrames.h"
#include "Encoding/Precise/ShownError.h"

#include <cstdint>
#include <optional>

namespace quillbox {

/// Turns what changed in a recording into a GIF that shows each change at its time, as exactly as a byte budget allows.
/// Over the budget it gives up what is least visible: first colours, then pictures, then size.
/// Pure: the same frames and configuration give the same bytes on any machine with any number of threads.
namespace PreciseOptimizer {

/// What a clip is made within.
struct Config {
    std::int64_t targetBytes = 2'000'000;   ///< the largest acceptable file
    std::optional<std::int64_t> maxWidth{}; ///< pixels, at least 1
    std::int64_t maxFPS = defaultMaxFPS;    ///< pictures a second, 1…`highestMaxFPS`
    std::int64_t maxColors = 256;           ///< of one picture's table, 2…256

    static constexpr std::int64_t defaultMaxFPS = 30; ///< as many as a recording has
    static constexpr std::int64_t highestMaxFPS = 50; ///< browsers show no more

    /// A preset's budget and width; its rate and colours are means to meet the budget, of which there are others here.
    [[nodiscard]] static Config of(ExportPreset preset);

    friend bool operator==(const Config&, const Config&) = default;
};

/// Frames that `optimize` may be given, to be taken at `sourceFPS`.
[[nodiscard]] DistinctFrames framesFor(
    const Config& config, std::int64_t sourceFPS, DistinctFrames::OnKept onKept = nullptr);

/// A clip and what was given up for the budget.
struct Result {
    GIFOptimizer::Result clip;      ///< `colorCount` is that of the largest table
    double qualityDecibels = 0;     ///< PSNR over every moment of the recording, at the GIF's size; 99 at most
    double lossDecibels = 0;        ///< how far that lies below what the same tables give without a budget; 0: no loss
    std::int64_t thinnedFrames = 0; ///< pictures that differ from the one before and were left out
    double scale = 1;               ///< the GIF's width ÷ the width that the frames were taken at

    friend bool operator==(const Result&, const Result&) = default;
};

/// How well a clip shows that lacks nothing that an eye could see.
inline constexpr double perfectDecibels = ShownError::perfectDecibels;

/// @param frames     Made by `framesFor` the configuration, with all of the recording appended.
/// @param execution  `finishNow` ends the search: the result is the best attempt finished so far, at least the first.
/// @return A clip within the budget or, where nothing helps, the smallest one that was made.
/// @throws GIFEncodingError  a side of a frame exceeds 65535 pixels; found before any other work.
/// @pre at least one frame was taken, and the first one has pixels; a violation ends the process.
[[nodiscard]] Result optimize(
    const DistinctFrames& frames, const Config& config, const GIFOptimizer::Execution& execution = {});

} // namespace PreciseOptimizer
} // namespace quillbox
