#include "Capture/Spill/SpillFile.h"

#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <string>

namespace quillbox {
namespace {

class SpillFileTest : public testing::Test {
protected:
    support::TemporaryFolder m_folder;
};

TEST_F(SpillFileTest, GivesBackWhatWasWritten)
{
    SpillFile file(m_folder.path(), 0);
    EXPECT_EQ(file.append(Bytes{1, 2, 3}), 0);
    EXPECT_EQ(file.append(Bytes{4, 5}), 3);
    EXPECT_EQ(file.size(), 5);
    Bytes bytes(3);
    file.read(2, bytes);
    EXPECT_EQ(bytes, (Bytes{3, 4, 5}));
}

TEST_F(SpillFileTest, HasNoName)
{
    SpillFile file(m_folder.path() / "made", 0);
    (void)file.append(Bytes(100, 1));
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.path() / "made"));
}

TEST_F(SpillFileTest, LeavesSpaceForOthers)
{
    SpillFile file(m_folder.path(), std::numeric_limits<std::uint64_t>::max());
    EXPECT_THROW((void)file.append(Bytes(1)), SpillError);
    EXPECT_EQ(file.size(), 0);
}

TEST_F(SpillFileTest, SaysWhenTheDiskTakesNoMore)
{
    EXPECT_EQ(support::statusInAProcess([this] {
        support::limitFileSize(1000);
        SpillFile file(m_folder.path(), 0);
        (void)file.append(Bytes(900, 7));
        try {
            (void)file.append(Bytes(900, 8));
        } catch (const SpillError&) {
            Bytes bytes(900);
            file.read(0, bytes);
            return file.size() == 900 && bytes == Bytes(900, 7) ? 0 : 2;
        }
        return 1;
    }),
        0);
}

TEST_F(SpillFileTest, ReadingBeyondTheEndIsAnError)
{
    SpillFile file(m_folder.path(), 0);
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
