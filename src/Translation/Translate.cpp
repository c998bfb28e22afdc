#include "Translation/Translate.h"

#include <utility>

namespace quillbox {
namespace {

Translator& currentTranslator()
{
    static Translator translator;
    return translator;
}

} // namespace

void setTranslator(Translator translator)
{
    currentTranslator() = std::move(translator);
}

std::string translate(const char* context, const char* text, const char* comment, int count)
{
    std::string translation;
    if (const auto& translator = currentTranslator())
        translation = translator(context, text, comment, count);
    if (translation.empty())
        translation = text;
    if (count < 0)
        return translation;
    constexpr std::string_view place = "%n";
    const auto number = std::to_string(count);
    for (auto at = translation.find(place); at != std::string::npos; at = translation.find(place, at + number.size()))
        translation.replace(at, place.size(), number);
    return translation;
}

std::string withArguments(std::string_view text, std::initializer_list<std::string_view> arguments)
{
    std::string filled;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto digit = at + 1 < text.size() ? text[at + 1] - '1' : -1;
        if (text[at] == '%' && digit >= 0 && std::cmp_less(digit, arguments.size())) {
            filled += arguments.begin()[digit];
            ++at;
        } else {
            filled += text[at];
        }
    }
    return filled;
}

} // namespace quillbox
