#include "App/CommandLine/Arguments/ParserMessages.h"

#include "Translation/Translate.h"

#include <QtGlobal>

#include <array>
#include <optional>
#include <utility>

namespace quillbox {
namespace {

/// The sentences that our options can draw from it, as CLI11 2 words them.
constexpr std::array sentences{
    QT_TRANSLATE_NOOP("ParserMessages", "%1 is required"),
    QT_TRANSLATE_NOOP("ParserMessages", "The following argument was not expected: %1"),
    QT_TRANSLATE_NOOP("ParserMessages", "The following arguments were not expected: %1"),
    QT_TRANSLATE_NOOP("ParserMessages", "%1: 1 required %2 missing"),
};

using Pair = std::pair<std::string_view, std::string_view>;

/// What stands in `sentence` where `pattern` has %1 and %2, an empty one where it lacks %2; none if they differ.
std::optional<Pair> matched(std::string_view sentence, std::string_view pattern)
{
    const auto first = pattern.find("%1");
    const auto second = pattern.find("%2");
    const auto before = pattern.substr(0, first);
    const auto after = pattern.substr(second == std::string_view::npos ? first + 2 : second + 2);
    if (sentence.size() < before.size() + after.size() || !sentence.starts_with(before) || !sentence.ends_with(after))
        return std::nullopt;
    const auto rest = sentence.substr(before.size(), sentence.size() - before.size() - after.size());
    if (second == std::string_view::npos)
        return Pair(rest, {});
    const auto between = pattern.substr(first + 2, second - first - 2);
    const auto place = rest.find(between);
    if (place == std::string_view::npos)
        return std::nullopt;
    return Pair(rest.substr(0, place), rest.substr(place + between.size()));
}

} // namespace

std::string ParserMessages::translated(std::string_view sentence)
{
    for (const char* const pattern : sentences)
        if (const auto found = matched(sentence, pattern))
            return withArguments(translate("ParserMessages", pattern), {found->first, found->second});
    return std::string(sentence);
}

} // namespace quillbox
