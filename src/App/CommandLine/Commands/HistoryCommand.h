#pragma once

#include "App/CommandLine/Options.h"

namespace quillbox {

/// `quillbox history`: the clips made lately, newest first. Works whether the application runs or not.
namespace HistoryCommand {

/// Prints the list and returns the exit status.
int run(const HistoryOptions& options);

} // namespace HistoryCommand
} // namespace quillbox
