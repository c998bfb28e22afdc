#include "App/CommandLine/Arguments/Arguments.h"

#include "App/CommandLine/Arguments/ArgumentText.h"
#include "Translation/Translate.h"

namespace quillbox {

UsageError complaint(const char* text, const std::string& argument)
{
    return UsageError(withArguments(translate("Usage", text), {argument}));
}

std::int64_t numberWithin(std::int64_t number, std::int64_t least, std::int64_t most, const char* text)
{
    if (number < least || number > most)
        throw UsageError(withArguments(translate("Usage", text), {std::to_string(least), std::to_string(most)}));
    return number;
}

std::int64_t numberIn(const std::string& argument, std::int64_t least, std::int64_t most, const char* text)
{
    return numberWithin(ArgumentText::number(argument).value_or(least - 1), least, most, text);
}

} // namespace quillbox
