#pragma once

#include "Encoding/GIFOptimizer.h"
#include "Encoding/Presets.h"

#include <cstdint>
#include <string>

namespace quillbox {

/// Describes a finished clip to the user and to programs.
namespace ResultReport {

struct Clip {
    const GIFOptimizer::Result& result;
    ExportPreset preset;
    std::string output; ///< where it was written
};

/// "demo.gif: 1.2 MB, 40 frames, 64 colours, 12 fps, 5.3 s, dithered" and a newline; a clip over its preset's
/// budget says so at the end.
[[nodiscard]] std::string humanLine(const Clip& clip);

/// One JSON object on one line, and a newline: the fields of `GIFOptimizer::Result` but the data, in their order,
/// then "output", "width" and "height" of the GIF in pixels, "overBudget".
[[nodiscard]] std::string jsonLine(const Clip& clip);

/// Whether the file is larger than its preset wants it.
[[nodiscard]] bool isOverBudget(const Clip& clip);

} // namespace ResultReport
} // namespace quillbox
