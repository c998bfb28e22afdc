#include "Platform/FolderLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

namespace quillbox {

FolderLock::FolderLock(const std::filesystem::path& folder, std::chrono::milliseconds patience)
    : m_folder(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    using namespace std::chrono_literals;
    if (m_folder.number() < 0)
        return;
    for (const auto deadline = std::chrono::steady_clock::now() + patience;;) {
        m_isHeld = ::flock(m_folder.number(), LOCK_EX | LOCK_NB) == 0;
        if (m_isHeld || errno != EWOULDBLOCK || std::chrono::steady_clock::now() >= deadline)
            return;
        std::this_thread::sleep_for(2ms);
    }
}

} // namespace quillbox
