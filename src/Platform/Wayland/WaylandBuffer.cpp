#include "Platform/Wayland/WaylandBuffer.h"

#include "Encoding/Precondition.h"
#include "Platform/CHandle.h"
#include "Platform/FileDescriptor.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>

namespace quillbox {

void WaylandBufferDestroyer::operator()(wl_buffer* buffer) const
{
    wl_buffer_destroy(buffer);
}

WaylandBuffer waylandBuffer(wl_shm* memory, std::span<const std::uint32_t> pixels, PixelSize size)
{
    constexpr std::int64_t pixelBytes = 4;
    precondition(size.width > 0 && size.height > 0, "a picture has pixels");
    const auto bytes = static_cast<std::size_t>(checkedMul(checkedMul(size.width, size.height), pixelBytes));
    precondition(pixels.empty() || pixels.size_bytes() == bytes, "a value for each pixel");
    const FileDescriptor file(::memfd_create("quillbox-picture", MFD_CLOEXEC));
    if (file.number() < 0 || ::ftruncate(file.number(), static_cast<off_t>(bytes)) < 0) // to zeros
        return nullptr;
    if (!pixels.empty()) {
        void* const place = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, file.number(), 0);
        if (place == MAP_FAILED)
            return nullptr;
        std::ranges::copy(pixels, static_cast<std::uint32_t*>(place));
        ::munmap(place, bytes);
    }
    const CHandle<wl_shm_pool, wl_shm_pool_destroy> pool(
        wl_shm_create_pool(memory, file.number(), static_cast<std::int32_t>(bytes)));
    return WaylandBuffer(wl_shm_pool_create_buffer(pool.get(), 0, static_cast<std::int32_t>(size.width),
        static_cast<std::int32_t>(size.height), static_cast<std::int32_t>(size.width * pixelBytes),
        WL_SHM_FORMAT_ARGB8888));
}

} // namespace quillbox
