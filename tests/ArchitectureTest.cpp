#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox {
namespace {

namespace fs = std::filesystem;

/// What each folder of src/ includes of others: names such as "App/Workflow".
using Arrows = std::map<std::string, std::set<std::string>>;

/// What a line includes, with its quotes or angle brackets; empty if it is no such directive.
std::string includedBy(const std::string& line)
{
    static const std::regex directive(R"(\s*#\s*include\s*([<"][^>"]*[>"]).*)");
    std::smatch found;
    return std::regex_match(line, found, directive) ? found[1].str() : "";
}

/// Every source file below a folder, and what it includes. What moc makes of a header is part of the header's module.
std::vector<std::pair<fs::path, std::string>> includesBelow(const fs::path& folder)
{
    std::vector<std::pair<fs::path, std::string>> includes;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const std::string extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp")
            continue;
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            if (std::string target = includedBy(line); !target.empty() && !target.starts_with("\"moc_"))
                includes.emplace_back(entry.path(), std::move(target));
        }
    }
    return includes;
}

/// The row of ARCHITECTURE.md for each folder: | `Folder/` | … | … `Other/` … |, the last column being what it knows.
Arrows arrowsOfTheDocument()
{
    static const std::regex row(R"(\| `([A-Za-z/]+)/` \|.*\|([^|]*)\|)");
    static const std::regex name(R"(`([A-Za-z/]+)/`)");
    std::ifstream document(QUILLBOX_ARCHITECTURE);
    Arrows arrows;
    for (std::string line; std::getline(document, line);) {
        std::smatch found;
        if (!std::regex_match(line, found, row))
            continue;
        const std::string known = found[2];
        auto& targets = arrows[found[1]];
        for (std::sregex_iterator i(known.begin(), known.end(), name); i != std::sregex_iterator(); ++i)
            targets.insert((*i)[1]);
    }
    return arrows;
}

/// The folder of the table that a path relative to src/ lies in: the one with the longest name; empty if there is none.
std::string folderOf(const std::string& path, const Arrows& folders)
{
    std::string best;
    for (const auto& [folder, targets] : folders) {
        if (path.starts_with(folder + "/") && folder.size() > best.size())
            best = folder;
    }
    return best;
}

Arrows arrowsOfTheSources(const Arrows& folders)
{
    Arrows arrows;
    for (const auto& [folder, targets] : folders)
        arrows[folder]; // one that includes nothing of ours has a row, too
    for (const auto& [file, target] : includesBelow(QUILLBOX_SOURCES)) {
        const std::string from = folderOf(fs::relative(file, QUILLBOX_SOURCES), folders);
        EXPECT_NE(from, "") << file << " lies in no folder of the table";
        if (target.front() != '"')
            continue;
        const std::string to = folderOf(target.substr(1), folders);
        EXPECT_NE(to, "") << file << " includes " << target << " by no full path";
        if (from != to)
            arrows[from].insert(to);
    }
    return arrows;
}

/// What each module, a header with its source, includes of the others: names such as "Encoding/LZW".
Arrows arrowsOfTheModules()
{
    const fs::path sources(QUILLBOX_SOURCES);
    Arrows arrows;
    for (const auto& [file, target] : includesBelow(sources)) {
        const std::string from = fs::relative(file, sources).replace_extension();
        const std::string to = fs::path(target.substr(1, target.size() - 2)).replace_extension();
        if (target.front() == '"' && from != to)
            arrows[from].insert(to);
    }
    return arrows;
}

/// Whether following the arrows from `folder` leads back to it.
bool isOnACircle(const Arrows& arrows, const std::string& folder)
{
    std::set<std::string> seen;
    std::vector<std::string> next(arrows.at(folder).begin(), arrows.at(folder).end());
    while (!next.empty()) {
        const std::string current = next.back();
        next.pop_back();
        if (current == folder)
            return true;
        if (const auto found = arrows.find(current); found != arrows.end() && seen.insert(current).second)
            next.insert(next.end(), found->second.begin(), found->second.end());
    }
    return false;
}

/// <name> of lower case letters and underscores: the standard library's headers have no dot and no slash, and those of
/// C that C++ kept are spelt <cstdint>, not <stdint.h>.
bool isOfTheStandardLibrary(const std::string& target)
{
    static const std::regex header("<[a-z_]+>");
    return std::regex_match(target, header);
}

TEST(Architecture, FoldersKnowWhatTheTableSaysAndNothingElse)
{
    const Arrows documented = arrowsOfTheDocument();
    ASSERT_GE(documented.size(), 10U) << "the table was not found";
    const Arrows actual = arrowsOfTheSources(documented);
    for (const auto& [folder, targets] : actual)
        EXPECT_EQ(targets, documented.at(folder)) << "what " << folder << " includes, and what the table says of it";
}

TEST(Architecture, NoArrowsLeadInACircle)
{
    const Arrows documented = arrowsOfTheDocument();
    for (const auto& [folder, targets] : documented)
        EXPECT_FALSE(isOnACircle(documented, folder)) << folder;
}

TEST(Architecture, NoModulesIncludeEachOtherInACircle)
{
    const Arrows modules = arrowsOfTheModules();
    ASSERT_TRUE(modules.contains("Encoding/GIFOptimizer"));
    ASSERT_TRUE(modules.contains("App/QuillboxApp"));
    for (const auto& [module, targets] : modules)
        EXPECT_FALSE(isOnACircle(modules, module)) << module;
}

TEST(Architecture, EncodingIncludesTheStandardLibraryAndItselfOnly)
{
    const auto includes = includesBelow(fs::path(QUILLBOX_SOURCES) / "Encoding");
    ASSERT_GT(includes.size(), 20U) << "the sources were not found";
    for (const auto& [file, target] : includes)
        EXPECT_TRUE(isOfTheStandardLibrary(target) || target.starts_with("\"Encoding/"))
            << file << " includes " << target;
}

TEST(Architecture, WhatBreaksTheRulesWouldBeSeen)
{
    EXPECT_EQ(includedBy("#include <QImage>"), "<QImage>");
    EXPECT_EQ(includedBy("  #  include \"Encoding/LZW.h\" // why"), "\"Encoding/LZW.h\"");
    EXPECT_EQ(includedBy("#include<vector>"), "<vector>");
    EXPECT_EQ(includedBy("// #include <vector>"), "");
    EXPECT_TRUE(isOfTheStandardLibrary("<source_location>"));
    for (const char* const target : {"<QImage>", "<gif_lib.h>", "<stdint.h>", "<sys/mman.h>", "<xcb/xcb.h>", "<>"})
        EXPECT_FALSE(isOfTheStandardLibrary(target)) << target;
    const Arrows folders{{"App", {"Views"}}, {"App/Workflow", {}}, {"Views", {"App"}}};
    EXPECT_EQ(folderOf("App/Workflow/ExportJob.h", folders), "App/Workflow");
    EXPECT_EQ(folderOf("App/Workshop.h", folders), "App");
    EXPECT_EQ(folderOf("Capture/X11.h", folders), "");
    EXPECT_TRUE(isOnACircle(folders, "App"));
    EXPECT_FALSE(isOnACircle(folders, "App/Workflow"));
}

} // namespace
} // namespace quillbox
