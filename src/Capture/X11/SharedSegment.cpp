#include "Capture/X11/SharedSegment.h"

#include "Platform/FileDescriptor.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <limits>

namespace quillbox {

std::unique_ptr<SharedSegment> SharedSegment::create(const X11Display& display, std::size_t bytes)
{
    // Offsets into a segment are 32-bit numbers in the protocol.
    if (!display.hasSharedMemory() || bytes == 0 || bytes > std::numeric_limits<std::uint32_t>::max())
        return nullptr;
    const FileDescriptor file(::memfd_create("quillbox-capture", MFD_CLOEXEC));
    if (file.number() < 0 || ::ftruncate(file.number(), static_cast<off_t>(bytes)) != 0)
        return nullptr;
    void* const memory = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, file.number(), 0);
    if (memory == MAP_FAILED)
        return nullptr;
    std::unique_ptr<SharedSegment> segment(new SharedSegment(display, static_cast<std::uint8_t*>(memory), bytes));

    const int sent = ::fcntl(file.number(), F_DUPFD_CLOEXEC, 0); // xcb closes the one that it sends
    if (sent < 0)
        return nullptr;
    const xcb_shm_seg_t id = xcb_generate_id(display.connection());
    const auto attached = xcb_shm_attach_fd_checked(display.connection(), id, sent, 0);
    const XCBPointer<xcb_generic_error_t> error(xcb_request_check(display.connection(), attached));
    if (error)
        return nullptr;
    segment->m_id = id;
    return segment;
}

SharedSegment::SharedSegment(const X11Display& display, std::uint8_t* data, std::size_t bytes)
    : m_display(display)
    , m_data(data)
    , m_bytes(bytes)
{
}

SharedSegment::~SharedSegment()
{
    if (m_id != XCB_NONE)
        xcb_shm_detach(m_display.connection(), m_id);
    (void)::munmap(m_data, m_bytes); // cannot fail for what mmap returned
}

} // namespace quillbox
