#include "App/CommandLine/ResultReport.h"

#include "App/CommandLine/ErrorReport.h"
#include "Translation/Translate.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace quillbox {
namespace {

/// A number with so many decimals, written the same in every language.
std::string decimal(double value, int decimals)
{
    std::array<char, 64> text{};
    const auto [end, error]
        = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    return error == std::errc{} ? std::string(text.data(), end) : std::string("?");
}

std::string size(std::int64_t byteCount)
{
    if (byteCount < 1000)
        return std::to_string(byteCount) + " B";
    if (byteCount < 1'000'000)
        return decimal(static_cast<double>(byteCount) / 1000, 0) + " KB";
    return decimal(static_cast<double>(byteCount) / 1'000'000, 1) + " MB";
}

/// For plurals: exact as far as an int goes, which is farther than a clip.
int count(std::int64_t number)
{
    return static_cast<int>(std::min<std::int64_t>(number, std::numeric_limits<int>::max()));
}

} // namespace

bool ResultReport::isOverBudget(const Clip& clip)
{
    return clip.result.byteCount > clip.preset.targetBytes();
}

std::string ResultReport::humanLine(const Clip& clip)
{
    const auto& result = clip.result;
    auto line = withArguments(translate("ResultReport", "%1: %2, %3, %4, %5 fps, %6 s, %7"),
        {ErrorReport::oneLine(clip.output), size(result.byteCount),
            translate("ResultReport", "%n frame(s)", nullptr, count(result.frameCount)),
            translate("ResultReport", "%n colour(s)", nullptr, count(result.colorCount)),
            std::to_string(result.effectiveFPS), decimal(result.durationSeconds, 1),
            result.usedDithering ? translate("ResultReport", "dithered") : translate("ResultReport", "not dithered")});
    if (isOverBudget(clip)) {
        const auto megabytes = decimal(static_cast<double>(clip.preset.targetBytes()) / 1'000'000, 0);
        line += withArguments(
            translate("ResultReport", "; over the %1 MB budget of %2: record less, or a smaller part of the screen"),
            {megabytes, clip.preset.title()});
    }
    return line + '\n';
}

} // namespace quillbox
