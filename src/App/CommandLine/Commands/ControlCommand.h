#pragma once

#include "App/CommandLine/Options.h"

namespace quillbox {

/// The commands that ask the running application for something.
namespace ControlCommand {

/// Waits for the answer, prints it and returns the exit status; reports that nothing runs.
/// @throws InstanceError
int run(const ControlOptions& options);

} // namespace ControlCommand
} // namespace quillbox
