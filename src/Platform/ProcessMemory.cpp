#include "Platform/ProcessMemory.h"

#include "Encoding/Bytes.h"

#include <malloc.h>
#include <sys/mman.h>

namespace quillbox {

void preferHugePages() noexcept
{
    adviseLargeBuffer = [](void* begin, std::size_t byteCount) noexcept {
        (void)::madvise(begin, byteCount, MADV_HUGEPAGE);
    };
}

void shareOneArena() noexcept
{
#ifdef __GLIBC__
    (void)::mallopt(M_ARENA_MAX, 1); // where it is refused all works as well
#endif
}

void returnFreeMemory() noexcept
{
#ifdef __GLIBC__
    (void)::malloc_trim(0);
#endif
}

} // namespace quillbox
