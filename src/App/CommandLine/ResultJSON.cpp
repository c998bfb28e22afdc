#include "App/CommandLine/CutOffReport.h"
#include "App/CommandLine/DoctorReport.h"
#include "App/CommandLine/ResultReport.h"
#include "App/CommandLine/StatusReport.h"

#include <nlohmann/json.hpp>

#include <cmath>

namespace quillbox {
namespace {

/// GIF89a, section 18: the logical screen's width and height follow the six bytes of the signature, low byte first.
std::int64_t screenField(const Bytes& gif, std::size_t offset)
{
    return gif.at(offset) | gif.at(offset + 1) << 8;
}

std::string lineOf(const nlohmann::ordered_json& object)
{
    // A path need not be UTF-8, JSON must be.
    return object.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

double hundredths(double value)
{
    return std::round(value * 100) / 100;
}

const char* wordFor(ServiceReport::Health health)
{
    switch (health) {
    case ServiceReport::Health::Works:
        return "works";
    case ServiceReport::Health::Limited:
        return "limited";
    case ServiceReport::Health::Missing:
        break;
    }
    return "missing";
}

/// Of recordings that were cut off.
nlohmann::ordered_json jsonOf(const QVariantList& cutOff)
{
    auto array = nlohmann::ordered_json::array();
    for (const QVariant& each : cutOff) {
        const auto map = each.toMap();
        nlohmann::ordered_json object{{"path", map.value(QStringLiteral("path")).toString().toStdString()}};
        if (map.contains(QStringLiteral("date"))) {
            object["date"] = map.value(QStringLiteral("date")).toString().toStdString();
            object["durationSeconds"] = hundredths(map.value(QStringLiteral("durationSeconds")).toDouble());
        }
        array.push_back(object);
    }
    return array;
}

} // namespace

std::string DoctorReport::json(const Findings& findings)
{
    auto services = nlohmann::ordered_json::array();
    for (const ServiceReport& report : findings.services)
        services.push_back({
            {"service", report.service},
            {"health", wordFor(report.health)},
            {"used", report.used},
            {"found", report.found},
            {"advice", report.advice},
            {"packages", report.packages},
        });
    return lineOf({
        {"canRecord", canRecord(findings)},
        {"windowSystem", findings.windowSystem},
        {"desktop", findings.desktop},
        {"services", services},
    });
}

std::string ResultReport::jsonLine(const Clip& clip)
{
    const auto& result = clip.result;
    nlohmann::ordered_json object{
        {"byteCount", result.byteCount},
        {"frameCount", result.frameCount},
        {"sourceFrameCount", result.sourceFrameCount},
        {"colorCount", result.colorCount},
        {"effectiveFPS", result.effectiveFPS},
        {"usedDithering", result.usedDithering},
        {"durationSeconds", result.durationSeconds},
        {"output", clip.output},
        {"width", screenField(result.data, 6)},
        {"height", screenField(result.data, 8)},
        {"overBudget", isOverBudget(clip)},
    };
    if (clip.precise) {
        const PreciseOptimizer::Result& precise = clip.precise->result;
        object["precise"] = true;
        object["qualityDecibels"] = hundredths(precise.qualityDecibels);
        object["lossDecibels"] = hundredths(precise.lossDecibels);
        object["thinnedFrames"] = precise.thinnedFrames;
        object["scale"] = precise.scale;
    }
    if (clip.pictures > 0)
        object["pictureCount"] = clip.pictures;
    return lineOf(object);
}

std::string StatusReport::jsonLine(const QVariantMap& status)
{
    nlohmann::ordered_json object;
    for (const auto* const key :
        {"phase", "frameCount", "elapsedSeconds", "path", "byteCount", "message", "clipboard"}) {
        const auto value = status.value(QLatin1String(key));
        if (value.typeId() == QMetaType::QString)
            object[key] = value.toString().toStdString();
        else if (value.isValid())
            object[key] = value.toLongLong();
    }
    if (const auto cutOff = status.value(QStringLiteral("cutOff")).toList(); !cutOff.empty())
        object["cutOff"] = jsonOf(cutOff);
    return lineOf(object);
}

std::string CutOffReport::json(const std::vector<CutOffRecordings::Found>& all)
{
    return lineOf(jsonOf(list(all)));
}

} // namespace quillbox
