#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox {
namespace {

struct Include {
    std::string file;
    std::string target; ///< with its quotes or angle brackets
};

/// What a line includes, with its quotes or angle brackets; empty if it is no such directive.
std::string includedBy(const std::string& line)
{
    std::istringstream words(line);
    std::string directive;
    std::string target;
    words >> directive;
    if (directive == "#") { // "# include" is allowed too
        words >> target;
        directive += target;
    }
    if (!directive.starts_with("#include"))
        return {};
    words >> target;
    return directive == "#include" ? target : directive.substr(std::string_view("#include").size());
}

std::vector<Include> includesOf(const std::filesystem::path& folder)
{
    std::vector<Include> includes;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const std::string extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp")
            continue;
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            if (const std::string target = includedBy(line); !target.empty())
                includes.push_back({entry.path().filename(), target});
        }
    }
    return includes;
}

/// <name> of lower case letters and underscores: the standard library's headers have no dot and no slash, and those of
/// C that C++ kept are spelt <cstdint>, not <stdint.h>.
bool isOfTheStandardLibrary(const std::string& target)
{
    return target.size() > 2 && target.front() == '<' && target.back() == '>'
        && std::all_of(target.begin() + 1, target.end() - 1,
            [](char letter) { return (letter >= 'a' && letter <= 'z') || letter == '_'; });
}

/// "Encoding/Name.h" or "Encoding/Precise/Name.h", in no other folder.
bool isOfEncoding(const std::string& target)
{
    const std::string_view folder = target.starts_with("\"Encoding/Precise/") ? "\"Encoding/Precise/" : "\"Encoding/";
    return target.starts_with(folder) && target.ends_with(".h\"")
        && target.find_first_of("/.", folder.size()) == target.size() - 3;
}

TEST(Layering, EncodingIncludesTheStandardLibraryAndItselfOnly)
{
    const std::vector<Include> includes = includesOf(QUILLBOX_ENCODING_SOURCES);
    ASSERT_GT(includes.size(), 20U) << "the sources were not found";
    for (const auto& [file, target] : includes)
        EXPECT_TRUE(isOfTheStandardLibrary(target) || isOfEncoding(target)) << file << " includes " << target;
}

TEST(Layering, ForeignIncludesWouldBeSeen)
{
    EXPECT_EQ(includedBy("#include <QImage>"), "<QImage>");
    EXPECT_EQ(includedBy("  #  include \"Encoding/LZW.h\" // why"), "\"Encoding/LZW.h\"");
    EXPECT_EQ(includedBy("#include<vector>"), "<vector>");
    EXPECT_EQ(includedBy("// #include <vector>"), "");
    EXPECT_TRUE(isOfTheStandardLibrary("<source_location>"));
    for (const char* const target : {"<QImage>", "<gif_lib.h>", "<stdint.h>", "<sys/mman.h>", "<xcb/xcb.h>", "<>"})
        EXPECT_FALSE(isOfTheStandardLibrary(target)) << target;
    EXPECT_TRUE(isOfEncoding("\"Encoding/PixelTypes.h\""));
    EXPECT_TRUE(isOfEncoding("\"Encoding/Precise/ColorCounts.h\""));
    for (const char* const target : {"\"Capture/CaptureRegion.h\"", "\"Encoding/../App/Main.h\"",
             "\"Encoding/Precise/../../App/Main.h\"", "\"LZW.h\""})
        EXPECT_FALSE(isOfEncoding(target)) << target;
}

} // namespace
} // namespace quillbox
