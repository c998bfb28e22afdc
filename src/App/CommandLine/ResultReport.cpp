#include "App/CommandLine/ResultReport.h"

#include "App/CommandLine/Arguments/Options.h"
#include "App/CommandLine/Terminal/ErrorReport.h"
#include "Translation/Translate.h"

#include <QLocale>

#include <algorithm>
#include <limits>
#include <vector>

namespace quillbox {
namespace {

/// A number with so many decimals, as the user's locale writes it.
std::string decimal(double value, int decimals)
{
    QLocale locale = QLocale::system();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(value, 'f', decimals).toStdString();
}

std::string size(std::int64_t byteCount)
{
    if (byteCount < 1000)
        return std::to_string(byteCount) + " B";
    if (byteCount < 1'000'000)
        return decimal(static_cast<double>(byteCount) / 1000, 0) + " KB";
    return decimal(static_cast<double>(byteCount) / 1'000'000, 1) + " MB";
}

/// Where the clip is, for a person.
std::string placeOf(const std::string& output)
{
    return output == standardStreamName ? translate("Streams", "standard output") : ErrorReport::oneLine(output);
}

/// For plurals: exact as far as an int goes, which is farther than a clip.
int count(std::int64_t number)
{
    return static_cast<int>(std::min<std::int64_t>(number, std::numeric_limits<int>::max()));
}

/// What became of the pictures, where more than a tenth of them is not shown.
std::string lossOf(const ResultReport::Clip& clip)
{
    if (clip.precise || clip.result.frameCount * 10 >= clip.pictures * 9)
        return {}; // a precise one says it in its own words
    const auto text = clip.isRateLowered
        ? translate("ResultReport",
            "; %n picture(s), %1 kept: at most %2 a second, and changes of less than 1 % merge (--precise keeps them)",
            nullptr, count(clip.pictures))
        : translate("ResultReport", "; %n picture(s), %1 kept: changes of less than 1 % merge (--precise keeps them)",
            nullptr, count(clip.pictures));
    return withArguments(text, {std::to_string(clip.result.frameCount), std::to_string(clip.result.effectiveFPS)});
}

} // namespace

bool ResultReport::isOverBudget(const Clip& clip)
{
    return clip.result.byteCount > (clip.precise ? clip.precise->config.targetBytes : clip.preset.targetBytes());
}

namespace {

/// What a precise clip lacks of its frames, or that it lacks nothing.
std::string preciseLoss(const ResultReport::Clip& clip)
{
    const PreciseOptimizer::Result& result = clip.precise->result;
    std::vector<std::string> parts;
    if (result.lossDecibels >= 0.05)
        parts.push_back(
            withArguments(translate("ResultReport", "picture %1 dB less exact"), {decimal(result.lossDecibels, 1)}));
    if (result.thinnedFrames > 0)
        parts.push_back(translate("ResultReport", "%n change(s) left out", nullptr, count(result.thinnedFrames)));
    if (result.scale < 1)
        parts.push_back(
            withArguments(translate("ResultReport", "%1 % narrower"), {decimal(100 - 100 * result.scale, 0)}));
    std::string text;
    if (!parts.empty()) {
        std::string list = parts.front();
        for (std::size_t i = 1; i < parts.size(); ++i)
            list = withArguments(translate("ResultReport", "%1, %2"), {list, parts[i]});
        text = withArguments(translate("ResultReport", "; to fit: %1"), {list});
    }
    const std::int64_t kept = clip.result.frameCount + result.thinnedFrames;
    if (clip.isRateLowered && kept < clip.pictures)
        return text
            + withArguments(translate("ResultReport", "; %n picture(s), %1 kept: at most %2 a second (--max-fps)",
                                nullptr, count(clip.pictures)),
                {std::to_string(kept), std::to_string(clip.precise->config.maxFPS)});
    return parts.empty() ? translate("ResultReport", ", every change kept") : text;
}

std::string preciseSummary(const ResultReport::Clip& clip)
{
    const auto& result = clip.result;
    return withArguments(translate("ResultReport", "%1: %2, %3, %4, %5 s"),
               {placeOf(clip.output), size(result.byteCount),
                   translate("ResultReport", "%n frame(s)", nullptr, count(result.frameCount)),
                   translate("ResultReport", "%n colour(s)", nullptr, count(result.colorCount)),
                   decimal(result.durationSeconds, 1)})
        + preciseLoss(clip);
}

std::string summary(const ResultReport::Clip& clip)
{
    const auto& result = clip.result;
    return withArguments(translate("ResultReport", "%1: %2, %3, %4, %5 fps, %6 s, %7"),
        {placeOf(clip.output), size(result.byteCount),
            translate("ResultReport", "%n frame(s)", nullptr, count(result.frameCount)),
            translate("ResultReport", "%n colour(s)", nullptr, count(result.colorCount)),
            std::to_string(result.effectiveFPS), decimal(result.durationSeconds, 1),
            result.usedDithering ? translate("ResultReport", "dithered") : translate("ResultReport", "not dithered")});
}

/// Whether the budget is another than the preset's.
bool hasOwnBudget(const ResultReport::Clip& clip)
{
    return clip.precise && clip.precise->config.targetBytes != clip.preset.targetBytes();
}

} // namespace

std::string ResultReport::humanLine(const Clip& clip)
{
    std::string line = clip.precise ? preciseSummary(clip) : summary(clip);
    if (isOverBudget(clip) && hasOwnBudget(clip)) {
        line += withArguments(clip.isOfFrames
                ? translate("ResultReport", "; over the %1 of --max-size: try --max-width, --crop or fewer frames")
                : translate(
                    "ResultReport", "; over the %1 of --max-size: record less, or a smaller part of the screen"),
            {size(clip.precise->config.targetBytes)});
    } else if (isOverBudget(clip)) {
        const auto megabytes = decimal(static_cast<double>(clip.preset.targetBytes()) / 1'000'000, 0);
        line += withArguments(clip.isOfFrames
                ? translate("ResultReport",
                    "; over the %1 MB budget of %2: try --max-width, --crop, fewer frames or another --preset")
                : translate(
                    "ResultReport", "; over the %1 MB budget of %2: record less, or a smaller part of the screen"),
            {megabytes, clip.preset.title()});
    }
    line += lossOf(clip);
    return line + '\n';
}

} // namespace quillbox
