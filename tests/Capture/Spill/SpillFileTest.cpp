#include "Capture/Spill/SpillFile.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <string>

namespace quillbox {
namespace {

/// A folder of the test's own.
class SpillFileTest : public testing::Test {
protected:
    SpillFileTest()
    {
        std::string name = testing::TempDir() + "spill-XXXXXX";
        if (::mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("no folder for the test");
        m_folder = name;
    }
    ~SpillFileTest() override { std::filesystem::remove_all(m_folder); }

    std::filesystem::path m_folder;
};

TEST_F(SpillFileTest, GivesBackWhatWasWritten)
{
    SpillFile file(m_folder, 0);
    EXPECT_EQ(file.append(Bytes{1, 2, 3}), 0);
    EXPECT_EQ(file.append(Bytes{4, 5}), 3);
    EXPECT_EQ(file.size(), 5);
    Bytes bytes(3);
    file.read(2, bytes);
    EXPECT_EQ(bytes, (Bytes{3, 4, 5}));
}

TEST_F(SpillFileTest, HasNoName)
{
    SpillFile file(m_folder / "made", 0);
    (void)file.append(Bytes(100, 1));
    EXPECT_TRUE(std::filesystem::is_empty(m_folder / "made"));
}

TEST_F(SpillFileTest, LeavesSpaceForOthers)
{
    SpillFile file(m_folder, std::numeric_limits<std::uint64_t>::max());
    EXPECT_THROW((void)file.append(Bytes(1)), SpillError);
    EXPECT_EQ(file.size(), 0);
}

TEST_F(SpillFileTest, SaysWhenTheDiskTakesNoMore)
{
    const pid_t child = ::fork(); // the limit holds for a whole process
    if (child == 0) {
        (void)std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1000, 1000};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
            std::_Exit(3);
        SpillFile file(m_folder, 0);
        (void)file.append(Bytes(900, 7));
        try {
            (void)file.append(Bytes(900, 8));
        } catch (const SpillError&) {
            Bytes bytes(900);
            file.read(0, bytes);
            std::_Exit(file.size() == 900 && bytes == Bytes(900, 7) ? 0 : 2);
        }
        std::_Exit(1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST_F(SpillFileTest, ReadingBeyondTheEndIsAnError)
{
    SpillFile file(m_folder, 0);
    (void)file.append(Bytes(10));
    Bytes bytes(11);
    EXPECT_THROW(file.read(0, bytes), SpillError);
}

TEST_F(SpillFileTest, AFolderThatCannotBeMadeIsAnError)
{
    EXPECT_THROW(SpillFile("/proc/no-folder", 0), SpillError);
}

} // namespace
} // namespace quillbox
