#include "App/CommandLine/Terminal/ErrorReport.h"

#include "App/CommandLine/Terminal/TerminalText.h"
#include "Translation/Translate.h"

#include <cstdio>
#include <new>

namespace quillbox {

std::string ErrorReport::messageFor(const std::exception& error)
{
    if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr)
        return translate("ErrorReport", "there is not enough memory for these frames; use fewer or smaller ones");
    return error.what();
}

std::string ErrorReport::oneLine(std::string_view text)
{
    return TerminalText::escaped(text);
}

void ErrorReport::print(std::string_view message)
{
    const auto line = "quillbox: " + TerminalText::encoded(oneLine(message), TerminalText::localeEncoding()) + '\n';
    (void)std::fwrite(line.data(), 1, line.size(), stderr); // there is nowhere left to complain
}

} // namespace quillbox
