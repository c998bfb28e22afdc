#include "App/CommandLine/CommandLine.h"
#include "Translation/Catalogues.h"
#include "Translation/Translate.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

namespace quillbox {
namespace {

/// Every text that goes through translate() in brackets.
class Brackets : public testing::Test {
protected:
    Brackets()
    {
        setTranslator([](const char*, const char* text, const char*, int) { return std::string("⟦") + text + "⟧"; });
    }
    ~Brackets() override { Catalogues::use(QStringLiteral("en")); }
};

std::string helpOf(const char* command)
{
    std::vector<const char*> arguments{"quillbox"};
    if (*command != '\0')
        arguments.push_back(command);
    arguments.push_back("--help");
    testing::internal::CaptureStdout();
    (void)CommandLine::parse(static_cast<int>(arguments.size()), arguments.data());
    return testing::internal::GetCapturedStdout();
}

/// `text` without what is in brackets, which may hold others.
std::string outside(const std::string& text)
{
    const std::string open = "⟦";
    const std::string close = "⟧";
    std::string rest;
    int depth = 0;
    for (std::size_t at = 0; at < text.size();) {
        if (text.compare(at, open.size(), open) == 0) {
            ++depth;
            at += open.size();
        } else if (text.compare(at, close.size(), close) == 0) {
            --depth;
            at += close.size();
        } else {
            if (depth == 0)
                rest += text[at];
            ++at;
        }
    }
    return rest;
}

TEST_F(Brackets, HoldEverySentenceOfTheHelp)
{
    for (const char* const command : {"", "encode", "record", "begin", "stop", "toggle", "again", "show", "status",
             "quit", "history", "recover", "doctor", "help"}) {
        const auto rest
            = std::regex_replace(outside(helpOf(command)), std::regex("(quillbox|--[a-z-]+) [a-z0-9|=]*"), "");
        EXPECT_FALSE(std::regex_search(rest, std::regex("[a-z]{2,} [a-z]{2,}|[A-Z][a-z]{2,}")))
            << command << ": " << rest;
    }
}

} // namespace
} // namespace quillbox
