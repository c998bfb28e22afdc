#pragma once

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillbox::support {

/// Runs `work` in a process of its own, which then ends without a word, as by SIGKILL.
/// @return what `work` does, 0 to 255; -1 if a signal ended it
template <typename Work> int statusInAProcess(const Work& work)
{
    const pid_t child = ::fork();
    if (child == 0)
        std::_Exit(work());
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// From now on no file of this process can become larger, as on a full disk: a write takes a part, the next one none.
/// It can't be undone.
inline void limitFileSize(rlim_t bytes)
{
    (void)std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, bytes};
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
}

} // namespace quillbox::support
