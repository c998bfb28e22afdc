#include "App/CommandLine/InputFiles.h"

#include "App/FrameSources/FrameReadError.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace quillbox {
namespace {

class InputFilesTest : public testing::Test {
protected:
    void put(const std::vector<std::string>& names) const
    {
        for (const auto& name : names)
            std::ofstream((m_folder.path() / name).string()) << "x";
    }
    [[nodiscard]] std::string path(const std::string& name) const { return (m_folder.path() / name).string(); }
    [[nodiscard]] std::vector<std::string> expanded(const std::string& input) const
    {
        auto files = InputFiles::expanded({path(input)});
        for (auto& file : files)
            file = std::filesystem::path(file).filename().string();
        return files;
    }

private:
    support::TemporaryFolder m_folder;
};

TEST_F(InputFilesTest, OfAFolderAreItsImagesInNaturalOrder)
{
    put({"frame10.png", "frame2.png", "frame1.PNG", "a.jpg", "notes.txt", ".hidden.png", "Makefile"});
    std::filesystem::create_directory(path("folder.png"));
    EXPECT_EQ(expanded("."), (std::vector<std::string>{"a.jpg", "frame1.PNG", "frame2.png", "frame10.png"}));
}

TEST_F(InputFilesTest, OfAPatternAreTheNumberedOnes)
{
    put({"f001.png", "f002.png", "f010.png", "f1000.png", "f0999.png", "f3.png", "fab.png", "f004.jpg", "xf005.png"});
    EXPECT_EQ(expanded("f%03d.png"), (std::vector<std::string>{"f001.png", "f002.png", "f010.png", "f1000.png"}));
    EXPECT_EQ(expanded("f%d.png"), (std::vector<std::string>{"f3.png", "f1000.png"})) << "no leading zeros";
}

TEST_F(InputFilesTest, WithAPlaceForANumberInTheirNameStayThemselves)
{
    put({"100%d.png"});
    EXPECT_EQ(expanded("100%d.png"), (std::vector<std::string>{"100%d.png"}));
    EXPECT_EQ(expanded("100%.png"), (std::vector<std::string>{"100%.png"})) << "opened, and found missing, later";
}

TEST_F(InputFilesTest, ThatAreNotThereAreAnError)
{
    EXPECT_THROW((void)expanded("."), FrameReadError);
    EXPECT_THROW((void)expanded("f%03d.png"), FrameReadError);
    EXPECT_THROW((void)expanded("nowhere/f%03d.png"), FrameReadError);
}

TEST_F(InputFilesTest, GiveTheGIFItsName)
{
    put({"a.png"});
    EXPECT_EQ(InputFiles::outputNameFor(path("a.png")), path("a.gif"));
    EXPECT_EQ(InputFiles::outputNameFor(path("f%03d.png")), path("f.gif"));
    EXPECT_EQ(InputFiles::outputNameFor(path("%03d.png")), "") << "nothing is left of it";
    std::filesystem::create_directory(path("take-1.2"));
    EXPECT_EQ(InputFiles::outputNameFor(path("take-1.2")), path("take-1.2.gif"));
    EXPECT_EQ(InputFiles::outputNameFor(path("take-1.2/")), path("take-1.2.gif"));
    EXPECT_EQ(InputFiles::outputNameFor(path(".")), "");
    EXPECT_EQ(InputFiles::outputNameFor("-"), "");
    EXPECT_EQ(InputFiles::outputNameFor("/dev/null"), "");
}

TEST(NaturalOrder, CountsNumbersByTheirValue)
{
    std::vector<std::string> names{"b", "a10", "a9", "a09", "a1b2", "a1b10", "a", "", "a99999999999999999999999"};
    std::sort(names.begin(), names.end(), InputFiles::comesBefore);
    EXPECT_EQ(names,
        (std::vector<std::string>{"", "a", "a1b2", "a1b10", "a09", "a9", "a10", "a99999999999999999999999", "b"}));
}

} // namespace
} // namespace quillbox
