// Preloaded into the program by tests: its clock is wrong by as many seconds as are in the file that CLOCK_ERROR names, as
// eight bytes of this machine; they may be changed while it runs. The monotonic clock is right.
#include <fcntl.h>
#include <stdint.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

static const volatile int64_t* error = NULL;

__attribute__((constructor)) static void readEnvironment(void)
{
    unsetenv("LD_PRELOAD"); // what is started from here has the right time
    const char* const path = getenv("CLOCK_ERROR");
    const int file = path ? open(path, O_RDONLY | O_CLOEXEC) : -1;
    void* const bytes = file < 0 ? MAP_FAILED : mmap(NULL, sizeof(*error), PROT_READ, MAP_SHARED, file, 0);
    if (bytes != MAP_FAILED)
        error = bytes;
}

int clock_gettime(clockid_t clock, struct timespec* now)
{
    const long result = syscall(SYS_clock_gettime, clock, now);
    if (result == 0 && error && (clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE))
        now->tv_sec += *error;
    return (int)result;
}

int gettimeofday(struct timeval* restrict now, void* restrict zone)
{
    (void)zone;
    struct timespec exactly;
    const int result = clock_gettime(CLOCK_REALTIME, &exactly);
    now->tv_sec = exactly.tv_sec;
    now->tv_usec = exactly.tv_nsec / 1000;
    return result;
}

time_t time(time_t* also)
{
    struct timespec exactly = {0, 0};
    clock_gettime(CLOCK_REALTIME, &exactly);
    if (also)
        *also = exactly.tv_sec;
    return exactly.tv_sec;
}
