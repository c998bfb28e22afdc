#pragma once

#include "Encoding/GIFOptimizer.h"
#include "Encoding/Presets.h"

#include <functional>
#include <optional>
#include <string>

namespace quillbox {

class ProgressLine;

/// "palette 2 of 5: 48 colours, 37 %" for a palette that is the second on the preset's ladder. An attempt at a file
/// ends at 100 %, or before, once it is known to exceed the budget. Without a
/// preset, whose ladder tells how many there are: "attempt 2: 48 colours, 37 %".
[[nodiscard]] std::string progressText(const GIFOptimizer::Progress& progress, std::optional<ExportPreset> preset);

/// Shows the optimizer's progress on `line`, which outlives the function; none where nobody sees it.
[[nodiscard]] std::function<void(const GIFOptimizer::Progress&)> progressOn(
    ProgressLine& line, std::optional<ExportPreset> preset);

} // namespace quillbox
