#include "App/CommandLine/ResultReport.h"

#include <nlohmann/json.hpp>

namespace quillbox {
namespace {

/// GIF89a, section 18: the logical screen's width and height follow the six bytes of the signature, low byte first.
std::int64_t screenField(const Bytes& gif, std::size_t offset)
{
    return gif.at(offset) | gif.at(offset + 1) << 8;
}

} // namespace

std::string ResultReport::jsonLine(const Clip& clip)
{
    const auto& result = clip.result;
    const nlohmann::ordered_json object{
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
    // A path need not be UTF-8, JSON must be.
    return object.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

} // namespace quillbox
