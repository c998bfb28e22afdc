#include "Encoding/Presets.h"

#include <algorithm>

namespace quillbox {
namespace {

struct Limits {
    std::string_view rawValue;
    std::string_view title;
    std::string_view subtitle;
    std::int64_t targetBytes;
    std::optional<std::int64_t> maxWidth;
    std::int64_t maxFPS;
    std::array<std::int64_t, 5> colorLadder;
};

/// By `ExportPreset::Case`.
constexpr std::array<Limits, ExportPreset::allCases.size()> limits{{
    {"slack", "Slack", "Tiny GIF under 2 MB", 2'000'000, 960, 12, {64, 48, 32, 24, 16}},
    {"github", "GitHub", "GIF under 10 MB", 10'000'000, std::nullopt, 20, {128, 96, 64, 48, 32}},
    {"docs", "Docs", "Crisp, balanced quality", 5'000'000, std::nullopt, 24, {256, 192, 128, 96, 64}},
}};

constexpr const Limits& limitsOf(ExportPreset::Case preset)
{
    return limits.at(preset);
}

} // namespace

std::optional<ExportPreset> ExportPreset::fromRawValue(std::string_view rawValue)
{
    for (const Case preset : allCases) {
        if (limitsOf(preset).rawValue == rawValue)
            return preset;
    }
    return std::nullopt;
}

std::string_view ExportPreset::rawValue() const
{
    return limitsOf(m_case).rawValue;
}
std::string_view ExportPreset::title() const
{
    return limitsOf(m_case).title;
}
std::string_view ExportPreset::subtitle() const
{
    return limitsOf(m_case).subtitle;
}
std::int64_t ExportPreset::targetBytes() const
{
    return limitsOf(m_case).targetBytes;
}
std::optional<std::int64_t> ExportPreset::maxWidth() const
{
    return limitsOf(m_case).maxWidth;
}
std::int64_t ExportPreset::maxFPS() const
{
    return limitsOf(m_case).maxFPS;
}
std::int64_t ExportPreset::maxColors() const
{
    return colorLadder().front();
}
std::span<const std::int64_t> ExportPreset::colorLadder() const
{
    return limitsOf(m_case).colorLadder;
}

std::optional<std::int64_t> PresetMath::nextColorStep(std::int64_t colors, ExportPreset preset)
{
    const auto ladder = preset.colorLadder();
    const auto reached = std::ranges::find_if(ladder, [colors](std::int64_t rung) { return colors >= rung; });
    if (reached == ladder.end())
        return ladder.front(); // below every rung: start again from the top
    const auto next = std::next(reached);
    return next == ladder.end() ? std::nullopt : std::optional(*next);
}

} // namespace quillbox
