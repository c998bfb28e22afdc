#include "support/Subprocess.h"

#include "support/TemporaryFolder.h"

#include <cerrno>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

extern char** environ; // NOLINT(readability-redundant-declaration): only glibc with extensions declares it

namespace quillbox::support {

ProcessResult runProcess(const std::vector<std::string>& command)
{
    // Files rather than pipes: neither stream can fill up and stop the child.
    const TemporaryFolder folder;
    const std::string outputPath = folder.path() / "output";
    const std::string errorsPath = folder.path() / "errors";

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, outputPath.c_str(), O_WRONLY | O_CREAT, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, errorsPath.c_str(), O_WRONLY | O_CREAT, 0600);
    std::vector<std::string> words = command;
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);

    ProcessResult result;
    pid_t child = 0;
    const int spawnError = posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (spawnError != 0)
        return {127, {}, "cannot start " + command.at(0)};
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) { }
    result.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    result.output = readFile(outputPath);
    result.errors = readFile(errorsPath);
    return result;
}

} // namespace quillbox::support
