#include "support/FileCalls.h"

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

int __wrap_open(const char* path, int flags, ...);
ssize_t __wrap_write(int descriptor, const void* bytes, size_t count);
int __wrap_fdatasync(int descriptor);
int __wrap_flock(int descriptor, int operation);
int __wrap_linkat(int folder, const char* path, int newFolder, const char* newPath, int flags);
uid_t __wrap_geteuid();
}

namespace quillbox {

support::FileCalls& support::fileCalls()
{
    static FileCalls& calls = *new FileCalls; // never destroyed: there are calls until the very end
    return calls;
}

const support::FileCalls& support::realFileCalls()
{
    static const FileCalls& calls = *new FileCalls{
        .open = [](const char* path, int flags, mode_t mode) { return __real_open(path, flags, mode); },
        .write = __real_write,
        .fdatasync = __real_fdatasync,
        .flock = __real_flock,
        .linkat = __real_linkat,
        .geteuid = __real_geteuid,
    };
    return calls;
}

} // namespace quillbox

using quillbox::support::fileCalls;

int __wrap_open(const char* path, int flags, ...)
{
    mode_t mode = 0;
    if ((flags & (O_CREAT | O_TMPFILE)) != 0) {
        std::va_list rest;
        va_start(rest, flags);
        mode = va_arg(rest, mode_t);
        va_end(rest);
    }
    return fileCalls().open ? fileCalls().open(path, flags, mode) : __real_open(path, flags, mode);
}

ssize_t __wrap_write(int descriptor, const void* bytes, size_t count)
{
    return fileCalls().write ? fileCalls().write(descriptor, bytes, count) : __real_write(descriptor, bytes, count);
}

int __wrap_fdatasync(int descriptor)
{
    return fileCalls().fdatasync ? fileCalls().fdatasync(descriptor) : __real_fdatasync(descriptor);
}

int __wrap_flock(int descriptor, int operation)
{
    return fileCalls().flock ? fileCalls().flock(descriptor, operation) : __real_flock(descriptor, operation);
}

int __wrap_linkat(int folder, const char* path, int newFolder, const char* newPath, int flags)
{
    return fileCalls().linkat ? fileCalls().linkat(folder, path, newFolder, newPath, flags)
                              : __real_linkat(folder, path, newFolder, newPath, flags);
}

uid_t __wrap_geteuid()
{
    return fileCalls().geteuid ? fileCalls().geteuid() : __real_geteuid();
}
