#pragma once

#include "Encoding/GIFOptimizer.h"
#include "Encoding/Precise/PreciseOptimizer.h"
#include "Encoding/Presets.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quillbox {

/// Describes a finished clip to the user and to programs.
namespace ResultReport {

struct Clip {
    const GIFOptimizer::Result& result;
    ExportPreset preset;
    std::string output; ///< where it was written

    /// Of a clip that was made precisely.
    struct Precise {
        const PreciseOptimizer::Result& result;
        const PreciseOptimizer::Config& config;
    };
    std::optional<Precise> precise{};
    bool isOfFrames = false;    ///< made of frames that were there already, rather than recorded
    std::int64_t pictures = 0;  ///< handed in that differ from the one before; 0 where nobody counted
    bool isRateLowered = false; ///< whether fewer pictures a second are shown than there were
};

/// "demo.gif: 1.2 MB, 40 frames, 64 colours, 12 fps, 5.3 s, dithered" and a newline, numbers as the user's locale
/// writes them. A clip over its budget says so at the end, and what became of its pictures where fewer than nine in ten
/// are left. A precise one says what was given up for the budget: "demo.gif: 1.9 MB, 80 frames, 256 colours, 5.3 s;
/// to fit: picture 3.1 dB less exact, 12 changes left out", what its rate had no room for, or "every change kept".
[[nodiscard]] std::string humanLine(const Clip& clip);

/// One JSON object on one line, and a newline: the fields of `GIFOptimizer::Result` but the data, in their order,
/// then "output", "width" and "height" of the GIF in pixels, "overBudget"; of a precise one also "precise" (true),
/// "qualityDecibels", "lossDecibels", "thinnedFrames" and "scale", as `PreciseOptimizer::Result`; and, if they were
/// counted, "pictureCount".
[[nodiscard]] std::string jsonLine(const Clip& clip);

/// Whether the file is larger than its preset, or what was given instead, wants it.
[[nodiscard]] bool isOverBudget(const Clip& clip);

} // namespace ResultReport
} // namespace quillbox
