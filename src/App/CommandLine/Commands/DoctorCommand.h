#pragma once

#include "App/CommandLine/Options.h"

namespace quillbox {

/// Tells what the desktop has for everything that the program wants of it.
namespace DoctorCommand {

/// Asks all of it at once, prints the answers, and returns the exit status: success where the screen can be recorded.
/// Needs neither a display nor a bus.
int run(const DoctorOptions& options);

} // namespace DoctorCommand
} // namespace quillbox
