#pragma once

#include "Encoding/Presets.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace quillbox::reference {

/// A preset's limits, written down a second time.
struct PresetLimits {
    std::int64_t targetBytes = 0;
    std::optional<std::int64_t> maxWidth;
    std::int64_t maxFPS = 0;
    std::vector<std::int64_t> colorLadder;
};

[[nodiscard]] PresetLimits limitsOf(ExportPreset preset);

/// The ladder walked from its top.
[[nodiscard]] std::optional<std::int64_t> nextColorStep(std::int64_t colors, ExportPreset preset);

} // namespace quillbox::reference
