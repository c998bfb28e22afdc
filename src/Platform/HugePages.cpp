#include "Platform/HugePages.h"

#include "Encoding/Bytes.h"

#include <sys/mman.h>

namespace quillbox {

void preferHugePages() noexcept
{
    adviseLargeBuffer = [](void* begin, std::size_t byteCount) noexcept {
        (void)::madvise(begin, byteCount, MADV_HUGEPAGE);
    };
}

} // namespace quillbox
