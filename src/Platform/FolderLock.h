#pragma once

#include "Platform/FileDescriptor.h"

#include <chrono>
#include <filesystem>

namespace quillbox {

/// While it exists, other processes that want the same lock wait: held around reading a file of the folder and
/// replacing it. It leaves nothing behind, whatever ends the process. Thread: any, each for itself.
/// @see flock(2)
class FolderLock {
public:
    /// Whoever holds it for longer hangs, or is stopped.
    static constexpr std::chrono::milliseconds usualPatience{200};

    /// @param patience  How long to wait for it at most. It then goes on without, as where the folder is missing or its
    /// file system has no locks.
    explicit FolderLock(const std::filesystem::path& folder, std::chrono::milliseconds patience = usualPatience);

    [[nodiscard]] bool isHeld() const { return m_isHeld; }

private:
    FileDescriptor m_folder;
    bool m_isHeld = false;
};

} // namespace quillbox
