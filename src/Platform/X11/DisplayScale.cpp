#include "Platform/X11/DisplayScale.h"

#include <charconv>
#include <cmath>
#include <string>

namespace quillbox {

namespace {

constexpr double pointsPerInch = 96;
// Beyond these no display is usable, and the arithmetic stays far from its limits.
constexpr double smallestScale = 0.05;
constexpr double maxScale = 20;

bool isUsable(double scale)
{
    return scale >= smallestScale && scale <= maxScale; // false for a NaN, too
}

double resolutionScale(std::string_view resources)
{
    constexpr std::string_view key = "Xft.dpi:\t";
    while (!resources.empty()) {
        const std::string_view line = resources.substr(0, resources.find('\n'));
        resources.remove_prefix(std::min(line.size() + 1, resources.size()));
        if (!line.starts_with(key))
            continue;
        const std::string_view value = line.substr(key.size());
        int dotsPerInch = 0;
        const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), dotsPerInch);
        const double scale = dotsPerInch / pointsPerInch;
        if (error == std::errc{} && end == value.data() + value.size() && isUsable(scale))
            return scale;
    }
    return 1;
}

double environmentScale(const char* scaleFactor)
{
    if (scaleFactor == nullptr)
        return 1;
    const std::string_view text(scaleFactor);
    double scale = 0;
    // Unlike strtod it reads a decimal point whatever the locale.
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), scale);
    return error == std::errc{} && end == text.data() + text.size() && isUsable(scale) ? scale : 1;
}

} // namespace

double displayScale(std::string_view resources, const char* scaleFactor)
{
    const double scale = resolutionScale(resources) * environmentScale(scaleFactor);
    return isUsable(scale) ? scale : 1;
}

} // namespace quillbox
