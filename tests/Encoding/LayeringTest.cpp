#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

namespace quillbox {
namespace {

struct Include {
    std::string file;
    std::string target; ///< with its quotes or angle brackets
};

std::vector<Include> includesOf(const std::filesystem::path& folder)
{
    const std::regex directive(R"re(^\s*#\s*include\s*(<[^>]*>|"[^"]*"|\S+).*)re");
    std::vector<Include> includes;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const std::string extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp")
            continue;
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            if (std::smatch match; std::regex_match(line, match, directive))
                includes.push_back({entry.path().filename(), match[1]});
        }
    }
    return includes;
}

// The standard library's headers have no dot and no slash; those of C that C++ kept are spelt <cstdint>, not
// <stdint.h>.
TEST(Layering, EncodingIncludesTheStandardLibraryAndItselfOnly)
{
    const std::vector<Include> includes = includesOf(QUILLBOX_ENCODING_SOURCES);
    ASSERT_GT(includes.size(), 20U) << "the sources were not found";
    const std::regex allowed(R"re(<[a-z_]+>|"Encoding/[A-Za-z0-9]+\.h")re");
    for (const auto& [file, target] : includes)
        EXPECT_TRUE(std::regex_match(target, allowed)) << file << " includes " << target;
}

} // namespace
} // namespace quillbox
