#include "Platform/StateFile.h"

#include "Platform/FileWorker.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QtGlobal>

#include <chrono>
#include <sys/stat.h>

namespace quillbox {
namespace {

class StateFileTest : public testing::Test {
protected:
    void SetUp() override { qputenv("XDG_STATE_HOME", QByteArray::fromStdString(m_folder.path().string())); }
    void TearDown() override { qunsetenv("XDG_STATE_HOME"); }

    /// However long the disk takes.
    static void replace(const QString& name, const QString& text)
    {
        StateFile::replace(name, text);
        ASSERT_TRUE(FileWorker::finish(std::chrono::minutes(1)));
    }

    support::TemporaryFolder m_folder;
};

TEST_F(StateFileTest, HoldsNothingAtFirst)
{
    EXPECT_EQ(StateFile::read("answer"), "");
}

TEST_F(StateFileTest, HoldsTheLastTextForItsUserOnly)
{
    replace("answer", "yes");
    replace("answer", "nö");
    EXPECT_EQ(StateFile::read("answer"), "nö");
    EXPECT_EQ(StateFile::path("answer"), QString::fromStdString((m_folder.path() / "quillbox/answer").string()));
    struct stat facts { };
    ASSERT_EQ(::stat(StateFile::path("answer").toUtf8().constData(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777U, 0600U);
}

TEST_F(StateFileTest, VanishesWithItsText)
{
    replace("answer", "yes");
    replace("answer", "");
    EXPECT_FALSE(QFileInfo::exists(StateFile::path("answer")));
    EXPECT_EQ(StateFile::read("answer"), "");
}

TEST_F(StateFileTest, IsForgottenWhereThereIsNoFolder)
{
    qputenv("XDG_STATE_HOME", "/proc");
    replace("answer", "yes");
    EXPECT_EQ(StateFile::read("answer"), "");
}

TEST_F(StateFileTest, IsInTheHomeFolderWhereTheEnvironmentNamesNoWholePath)
{
    qputenv("XDG_STATE_HOME", "relative");
    EXPECT_TRUE(StateFile::path("answer").endsWith("/.local/state/quillbox/answer"));
    EXPECT_TRUE(StateFile::path("answer").startsWith('/'));
}

} // namespace
} // namespace quillbox
