#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox {
namespace {

struct Include {
    std::string file;   ///< its path in the folder
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
                includes.push_back({entry.path().lexically_relative(folder), target});
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

/// What each module, a header with its source, includes of others.
using Uses = std::map<std::string, std::set<std::string>>;

Uses usesOf(const std::vector<Include>& includes)
{
    const auto stem = [](std::string_view path) {
        return std::string(path.substr(0, path.rfind('.')));
    };
    Uses uses;
    for (const auto& [file, target] : includes) {
        constexpr std::string_view folder = "\"Encoding/";
        if (target.starts_with(folder) && stem(target.substr(folder.size())) != stem(file))
            uses[stem(file)].insert(stem(target.substr(folder.size())));
    }
    return uses;
}

/// The modules that are left when those that use no other are taken away again and again: none without a circle.
std::set<std::string> modulesInCircles(Uses uses)
{
    for (std::size_t before = uses.size() + 1; before != uses.size();) {
        before = uses.size();
        for (auto& [module, used] : uses)
            std::erase_if(used, [&uses](const std::string& other) { return !uses.contains(other); });
        std::erase_if(uses, [](const auto& entry) { return entry.second.empty(); });
    }
    std::set<std::string> left;
    for (const auto& [module, used] : uses)
        left.insert(module);
    return left;
}

TEST(Layering, ModulesOfEncodingUseEachOtherInOneDirection)
{
    const Uses uses = usesOf(includesOf(QUILLBOX_ENCODING_SOURCES));
    ASSERT_TRUE(uses.contains("GIFOptimizer"));
    EXPECT_THAT(modulesInCircles(uses), testing::IsEmpty());
}

TEST(Layering, CirclesWouldBeSeen)
{
    const std::vector<Include> includes{{"A.h", "\"Encoding/B.h\""}, {"A.cpp", "\"Encoding/A.h\""},
        {"B.cpp", "\"Encoding/Precise/C.h\""}, {"C.cpp", "<vector>"}};
    EXPECT_THAT(modulesInCircles(usesOf(includes)), testing::IsEmpty());
    std::vector<Include> circle = includes;
    circle.push_back({"Precise/C.cpp", "\"Encoding/A.h\""});
    EXPECT_THAT(modulesInCircles(usesOf(circle)), testing::ElementsAre("A", "B", "Precise/C"));
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
