#include "Capture/Spill/ByteSpill.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <memory>
#include <thread>
#include <vector>

namespace quillbox {
namespace {

class ByteSpillTest : public testing::Test {
protected:
    support::TemporaryFolder m_folder;
};

TEST_F(ByteSpillTest, GivesBackWhatItTookAlsoWhenItIsGone)
{
    std::unique_ptr<const BackingStore> first;
    std::unique_ptr<const BackingStore> second;
    {
        ByteSpill spill(0, m_folder.path());
        first = spill.store(Bytes(1000, 7));
        second = spill.store(Bytes{1, 2, 3});
    }
    ASSERT_TRUE(first && second);
    EXPECT_EQ(*first->read(), Bytes(1000, 7));
    EXPECT_EQ(*second->read(), (Bytes{1, 2, 3}));
}

TEST_F(ByteSpillTest, CompressesWhatCanBe)
{
    ByteSpill spill(0, m_folder.path());
    (void)spill.store(Bytes(100'000, 7));
    EXPECT_LT(spill.fileBytes(), 1000);
}

TEST_F(ByteSpillTest, MakesNoFileBeforeThereIsSomethingToStore)
{
    const ByteSpill spill(0, m_folder.path() / "made");
    EXPECT_FALSE(std::filesystem::exists(m_folder.path() / "made"));
    EXPECT_EQ(spill.fileBytes(), 0);
}

TEST_F(ByteSpillTest, RefusesWhereThereIsNoRoom)
{
    ByteSpill spill(std::numeric_limits<std::uint64_t>::max(), m_folder.path());
    EXPECT_EQ(spill.store(Bytes(10, 1)), nullptr);
    EXPECT_EQ(spill.store(Bytes(10, 1)), nullptr);
}

TEST_F(ByteSpillTest, RefusesWhereThereCanBeNoFile)
{
    ByteSpill spill(0, "/proc/no-folder");
    EXPECT_EQ(spill.store(Bytes(10, 1)), nullptr);
}

TEST_F(ByteSpillTest, TakesFromSeveralThreads)
{
    ByteSpill spill(0, m_folder.path());
    constexpr std::size_t count = 4;
    std::vector<std::unique_ptr<const BackingStore>> stored(count);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < count; ++i)
        threads.emplace_back([&, i] { stored[i] = spill.store(Bytes(5000 + i, static_cast<std::uint8_t>(i))); });
    for (std::thread& thread : threads)
        thread.join();
    for (std::size_t i = 0; i < count; ++i)
        EXPECT_EQ(*stored[i]->read(), Bytes(5000 + i, static_cast<std::uint8_t>(i)));
}

} // namespace
} // namespace quillbox
