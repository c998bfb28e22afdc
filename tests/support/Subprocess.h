#pragma once

#include <string>
#include <vector>

namespace quillbox::support {

struct ProcessResult {
    int exitStatus = 0; ///< 128 plus the signal's number if a signal ended it; 127 if it couldn't be started
    std::string output; ///< standard output, binary
    std::string errors; ///< standard error
};

/// Runs `command` (a program looked up in PATH, then its arguments) to its end, with an empty standard input.
[[nodiscard]] ProcessResult runProcess(const std::vector<std::string>& command);

} // namespace quillbox::support
