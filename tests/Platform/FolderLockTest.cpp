#include "Platform/FolderLock.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <optional>

namespace quillbox {
namespace {

TEST(FolderLock, IsHeldByOneAtATime)
{
    const support::TemporaryFolder folder;
    std::optional<FolderLock> first(folder.path());
    EXPECT_TRUE(first->isHeld());
    EXPECT_FALSE(FolderLock(folder.path(), std::chrono::milliseconds(5)).isHeld());
    first.reset();
    EXPECT_TRUE(FolderLock(folder.path()).isHeld());
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(FolderLock, GoesOnWithoutAFolder)
{
    const support::TemporaryFolder folder;
    EXPECT_FALSE(FolderLock(folder.path() / "none").isHeld());
}

} // namespace
} // namespace quillbox
