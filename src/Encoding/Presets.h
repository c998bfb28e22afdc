#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string_view>

namespace quillbox {

/// Where a GIF is meant for, and the limits that follow. A value, compared and hashed by its raw value.
class ExportPreset {
public:
    enum Case : std::uint8_t { slack, github, docs };

    constexpr ExportPreset(Case value) // NOLINT(google-explicit-constructor): a case is a preset
        : m_case(value)
    {
    }

    /// In the order of the picker.
    static constexpr std::array<Case, 3> allCases{slack, github, docs};

    /// The preset of a raw value ("slack", "github", "docs"; lower case only), or none.
    [[nodiscard]] static std::optional<ExportPreset> fromRawValue(std::string_view rawValue);

    [[nodiscard]] constexpr operator Case() const { return m_case; } // NOLINT(google-explicit-constructor): for switch
    [[nodiscard]] std::string_view rawValue() const;
    [[nodiscard]] std::string_view id() const { return rawValue(); }
    [[nodiscard]] std::string_view title() const;
    [[nodiscard]] std::string_view subtitle() const;
    [[nodiscard]] std::int64_t targetBytes() const;             ///< largest acceptable file, bytes (1 MB = 1,000,000)
    [[nodiscard]] std::optional<std::int64_t> maxWidth() const; ///< width cap, pixels
    [[nodiscard]] std::int64_t maxFPS() const;                  ///< frames per second
    [[nodiscard]] std::int64_t maxColors() const;               ///< the first rung of `colorLadder`
    [[nodiscard]] std::span<const std::int64_t> colorLadder() const; ///< palette sizes to try, strictly descending

private:
    Case m_case;
};

namespace PresetMath {

/// The rung below the first one that is at most `colors`; none after the last; the top rung when `colors` is
/// below all of them.
[[nodiscard]] std::optional<std::int64_t> nextColorStep(std::int64_t colors, ExportPreset preset);

} // namespace PresetMath
} // namespace quillbox

template <> struct std::hash<quillbox::ExportPreset> {
    std::size_t operator()(quillbox::ExportPreset preset) const noexcept
    {
        return std::hash<std::string_view>{}(preset.rawValue());
    }
};
