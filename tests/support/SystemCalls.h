#pragma once

#include <cstddef>
#include <ctime>
#include <functional>
#include <sys/types.h>

namespace quillbox::support {

/// What a test has the system's calls do, in a program that is linked with `system_calls`: the code that is tested gets
/// there by the linker's --wrap. A call without a function does what it always does. Set and reset while no other
/// thread makes such calls.
struct SystemCalls {
    std::function<int(const char* path, int flags, mode_t mode)> open;
    std::function<ssize_t(int descriptor, const void* bytes, std::size_t count)> write;
    std::function<int(int descriptor)> fdatasync;
    std::function<int(int descriptor, int operation)> flock;
    std::function<int(int folder, const char* path, int newFolder, const char* newPath, int flags)> linkat;
    std::function<uid_t()> geteuid;
    std::function<int(clockid_t clock, timespec* time)> clock_gettime;
};

/// The ones in force.
SystemCalls& systemCalls();

/// The system's own, whatever is in force.
const SystemCalls& realSystemCalls();

} // namespace quillbox::support
