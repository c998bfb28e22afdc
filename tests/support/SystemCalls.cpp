#include "support/SystemCalls.h"

#include <cstdarg>
#include <fcntl.h>

// The names are the linker's.
extern "C" {
int __real_open(const char* path, int flags, ...);
ssize_t __real_write(int descriptor, const void* bytes, size_t count);
int __real_fdatasync(int descriptor);
int __real_flock(int descriptor, int operation);
int __real_linkat(int folder, const char* path, int newFolder, const char* newPath, int flags);
uid_t __real_geteuid();
int __real_clock_gettime(clockid_t clock, timespec* time);

int __wrap_open(const char* path, int flags, ...);
ssize_t __wrap_write(int descriptor, const void* bytes, size_t count);
int __wrap_fdatasync(int descriptor);
int __wrap_flock(int descriptor, int operation);
int __wrap_linkat(int folder, const char* path, int newFolder, const char* newPath, int flags);
uid_t __wrap_geteuid();
int __wrap_clock_gettime(clockid_t clock, timespec* time);
}

namespace quillbox {

support::SystemCalls& support::systemCalls()
{
    static SystemCalls& calls = *new SystemCalls; // never destroyed: there are calls until the very end
    return calls;
}

const support::SystemCalls& support::realSystemCalls()
{
    static const SystemCalls& calls = *new SystemCalls{
        .open = [](const char* path, int flags, mode_t mode) { return __real_open(path, flags, mode); },
        .write = __real_write,
        .fdatasync = __real_fdatasync,
        .flock = __real_flock,
        .linkat = __real_linkat,
        .geteuid = __real_geteuid,
        .clock_gettime = __real_clock_gettime,
    };
    return calls;
}

} // namespace quillbox

using quillbox::support::systemCalls;

int __wrap_open(const char* path, int flags, ...)
{
    mode_t mode = 0;
    if ((flags & (O_CREAT | O_TMPFILE)) != 0) {
        std::va_list rest;
        va_start(rest, flags);
        mode = va_arg(rest, mode_t);
        va_end(rest);
    }
    return systemCalls().open ? systemCalls().open(path, flags, mode) : __real_open(path, flags, mode);
}

ssize_t __wrap_write(int descriptor, const void* bytes, size_t count)
{
    return systemCalls().write ? systemCalls().write(descriptor, bytes, count) : __real_write(descriptor, bytes, count);
}

int __wrap_fdatasync(int descriptor)
{
    return systemCalls().fdatasync ? systemCalls().fdatasync(descriptor) : __real_fdatasync(descriptor);
}

int __wrap_flock(int descriptor, int operation)
{
    return systemCalls().flock ? systemCalls().flock(descriptor, operation) : __real_flock(descriptor, operation);
}

int __wrap_linkat(int folder, const char* path, int newFolder, const char* newPath, int flags)
{
    return systemCalls().linkat ? systemCalls().linkat(folder, path, newFolder, newPath, flags)
                                : __real_linkat(folder, path, newFolder, newPath, flags);
}

uid_t __wrap_geteuid()
{
    return systemCalls().geteuid ? systemCalls().geteuid() : __real_geteuid();
}

int __wrap_clock_gettime(clockid_t clock, timespec* time)
{
    return systemCalls().clock_gettime ? systemCalls().clock_gettime(clock, time) : __real_clock_gettime(clock, time);
}
