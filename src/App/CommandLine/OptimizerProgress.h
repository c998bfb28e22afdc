#pragma once

#include "Encoding/GIFOptimizer.h"

#include <functional>
#include <string>

namespace quillbox {

class ProgressLine;

/// "attempt 2: 48 colours, 37 %".
[[nodiscard]] std::string progressText(const GIFOptimizer::Progress& progress);

/// Shows the optimizer's progress on `line`, which outlives the function; none where nobody sees it.
[[nodiscard]] std::function<void(const GIFOptimizer::Progress&)> progressOn(ProgressLine& line);

} // namespace quillbox
