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

void returnFreeMemory() noexcept
{
#ifdef __GLIBC__
    (void)::malloc_trim(0);
#endif
}

} // namespace quillbox
