#include "Platform/RegularFile.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>

namespace quillbox {
namespace {

class RegularFileTest : public testing::Test {
protected:
    [[nodiscard]] QString path(const char* name) const
    {
        return QString::fromStdString((m_folder.path() / name).string());
    }
    void put(const char* name, const char* text) const { std::ofstream(m_folder.path() / name) << text; }

private:
    support::TemporaryFolder m_folder;
};

TEST_F(RegularFileTest, IsReadUpToTheLimit)
{
    put("file", "12345");
    EXPECT_EQ(RegularFile::read(path("file"), 5), QByteArray("12345"));
    EXPECT_EQ(RegularFile::read(path("file"), 4), std::nullopt);
    put("empty", "");
    EXPECT_EQ(RegularFile::read(path("empty"), 0), QByteArray(""));
}

TEST_F(RegularFileTest, APipeThatNobodyWritesToIsNotWaitedFor)
{
    ASSERT_EQ(::mkfifo(path("pipe").toStdString().c_str(), 0600), 0);
    EXPECT_EQ(RegularFile::read(path("pipe"), 100), std::nullopt);
}

TEST_F(RegularFileTest, WhatIsNoFileIsNotRead)
{
    EXPECT_EQ(RegularFile::read(path(""), 100), std::nullopt) << "a folder";
    EXPECT_EQ(RegularFile::read(path("none"), 100), std::nullopt);
    EXPECT_EQ(RegularFile::read("/dev/zero", 100), std::nullopt);
    EXPECT_EQ(RegularFile::read("/proc/self/status", 100), std::nullopt) << "it says that it is empty, and is not";
}

} // namespace
} // namespace quillbox
