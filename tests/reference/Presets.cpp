#include "reference/Presets.h"

namespace quillbox::reference {

PresetLimits limitsOf(ExportPreset preset)
{
    switch (preset) {
    case ExportPreset::slack:
        return {2'000'000, 960, 12, {64, 48, 32, 24, 16}};
    case ExportPreset::github:
        return {10'000'000, std::nullopt, 20, {128, 96, 64, 48, 32}};
    case ExportPreset::docs:
        return {5'000'000, std::nullopt, 24, {256, 192, 128, 96, 64}};
    }
    return {};
}

std::optional<std::int64_t> nextColorStep(std::int64_t colors, ExportPreset preset)
{
    const std::vector<std::int64_t> ladder = limitsOf(preset).colorLadder;
    for (std::size_t i = 0; i < ladder.size(); ++i) {
        if (colors < ladder[i])
            continue;
        if (i + 1 == ladder.size())
            return std::nullopt;
        return ladder[i + 1];
    }
    return ladder.front();
}

} // namespace quillbox::reference
