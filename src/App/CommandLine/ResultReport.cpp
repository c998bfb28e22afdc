#include "App/CommandLine/ResultReport.h"

#include "App/CommandLine/ErrorReport.h"

#include <array>
#include <charconv>

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

std::string count(std::int64_t number, const char* thing)
{
    return std::to_string(number) + ' ' + thing + (number == 1 ? "" : "s");
}

} // namespace

bool ResultReport::isOverBudget(const Clip& clip)
{
    return clip.result.byteCount > clip.preset.targetBytes();
}

std::string ResultReport::humanLine(const Clip& clip)
{
    const auto& result = clip.result;
    std::string line = ErrorReport::oneLine(clip.output) + ": " + size(result.byteCount) + ", "
        + count(result.frameCount, "frame") + ", " + count(result.colorCount, "colour") + ", "
        + std::to_string(result.effectiveFPS) + " fps, " + decimal(result.durationSeconds, 1) + " s, "
        + (result.usedDithering ? "dithered" : "not dithered");
    if (isOverBudget(clip)) {
        line += "; over the " + decimal(static_cast<double>(clip.preset.targetBytes()) / 1'000'000, 0)
            + " MB budget of " + std::string(clip.preset.title()) + ": record less, or a smaller part of the screen";
    }
    return line + '\n';
}

} // namespace quillbox
