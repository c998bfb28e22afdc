#include "Encoding/Bytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <new>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

constexpr std::size_t megabyte = 1'000'000;

std::uintptr_t placeInPage(const Bytes& bytes)
{
    return reinterpret_cast<std::uintptr_t>(bytes.data()) % 4096;
}

TEST(Bytes, BeginAtAPageWhenTheyAreMany)
{
    const Bytes first(megabyte);
    const Bytes second(megabyte);
    EXPECT_EQ(placeInPage(first), 0U);
    EXPECT_EQ(placeInPage(second), 0U);
}

TEST(Bytes, BeginAtAHugePageWhenTheyFillOne)
{
    const Bytes bytes(3 * megabyte);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(bytes.data()) % (1U << 21U), 0U);
}

TEST(Bytes, TellOfThePartThatHugePagesCanCover)
{
    static std::vector<std::pair<void*, std::size_t>> told;
    adviseLargeBuffer = [](void* begin, std::size_t byteCount) noexcept {
        told.emplace_back(begin, byteCount);
    };
    const Bytes small(megabyte);
    const Bytes large(5 * megabyte);
    adviseLargeBuffer = nullptr;
    EXPECT_THAT(told, testing::ElementsAre(testing::Pair(large.data(), std::size_t{2} << 21U)));
}

TEST(Bytes, KeepTheirContentsWhenTheyGrowFromFewToMany)
{
    Bytes bytes(10, 7);
    bytes.resize(megabyte);
    EXPECT_EQ(Bytes(bytes.begin(), bytes.begin() + 10), Bytes(10, 7));
    EXPECT_EQ(placeInPage(bytes), 0U);
    bytes.resize(10);
    bytes.shrink_to_fit();
    EXPECT_EQ(bytes, Bytes(10, 7));
}

TEST(Bytes, RefuseASizeThatNoMemoryHas)
{
    const auto tooMany = std::size_t{std::numeric_limits<std::ptrdiff_t>::max()} / sizeof(std::uint64_t) + 1;
    EXPECT_THROW((void)UninitializedAllocator<std::uint64_t>().allocate(tooMany), std::bad_array_new_length);
}

} // namespace
} // namespace quillbox
