#pragma once

#include "App/CommandLine/Arguments/Options.h"

#include <variant>

namespace quillbox {

/// What a command line asks for.
namespace CommandLine {

/// Everything has been said already (a help text, the version): leave with this code.
struct Finished {
    int exitCode = ExitCode::success;
};

using Request = std::variant<Finished, EncodeOptions, RecordOptions, ControlOptions, HistoryOptions, RecoverOptions,
    DoctorOptions, DesktopOptions>;

/// Reads the arguments of `main`; prints help and version texts on standard output. Looks at no file.
/// @throws UsageError
[[nodiscard]] Request parse(int argc, const char* const* argv);

/// The whole program: parses, carries out, reports errors.
/// @param desktop  Carries out what has no subcommand: the application on the desktop. @return its exit code.
/// @return the process's exit code.
[[nodiscard]] int run(int argc, const char* const* argv, int (*desktop)());

} // namespace CommandLine
} // namespace quillbox
