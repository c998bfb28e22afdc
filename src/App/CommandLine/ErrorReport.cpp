#include "App/CommandLine/ErrorReport.h"

#include "Translation/Translate.h"

#include <algorithm>
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
    std::string line(text);
    const auto isControl = [](char c) {
        return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
    };
    std::replace_if(line.begin(), line.end(), isControl, '?');
    return line;
}

void ErrorReport::print(std::string_view message)
{
    const auto line = "quillbox: " + oneLine(message) + '\n';
    (void)std::fwrite(line.data(), 1, line.size(), stderr); // there is nowhere left to complain
}

} // namespace quillbox
