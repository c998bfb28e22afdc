#include "Platform/ProcessMemory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace quillbox {
namespace {

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#if !defined(__has_feature)
#define HAS_USUAL_ALLOCATOR
#elif !__has_feature(address_sanitizer) && !__has_feature(thread_sanitizer)
#define HAS_USUAL_ALLOCATOR
#endif
#endif

#ifdef HAS_USUAL_ALLOCATOR

constexpr std::int64_t megabyte = 1'000'000;

/// What this process has written and not given back.
std::int64_t writtenBytes()
{
    std::ifstream file("/proc/self/smaps_rollup");
    std::string name;
    while (file >> name) {
        std::int64_t kilobytes = 0;
        if (name == "Private_Dirty:" && file >> kilobytes)
            return kilobytes * 1024;
    }
    return 0;
}

/// As the encoder does: buffers too small for mappings of their own, from a thread that outlives them.
void allocateAndFree()
{
    std::vector<std::unique_ptr<std::vector<char>>> buffers;
    for (int i = 0; i < 200; ++i)
        buffers.push_back(std::make_unique<std::vector<char>>(200'000, 'x'));
}

/// Exits with success if what threads have freed was given back.
[[noreturn]] void allocateInThreads()
{
    shareOneArena();
    { // from now on the allocator takes what is smaller from arenas, and keeps their ends
        const std::vector<char> large(30 * megabyte, 'x');
    }
    returnFreeMemory();
    const std::int64_t before = writtenBytes();
    std::thread([] {
        allocateAndFree();
        std::thread(allocateAndFree).join();
        returnFreeMemory();
    }).join();
    std::_Exit(before > 0 && writtenBytes() - before < 5 * megabyte ? EXIT_SUCCESS : EXIT_FAILURE);
}

TEST(ProcessMemoryTest, GivesBackWhatAllThreadsHaveFreed)
{
    EXPECT_EXIT(allocateInThreads(), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

#endif

} // namespace
} // namespace quillbox
