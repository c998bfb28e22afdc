#pragma once

#include "App/CommandLine/Arguments/Options.h"

namespace quillbox {

/// What the subcommands do, a function each. Returns the exit status. Thread: main.
namespace Command {

/// `quillbox encode`: files in, one GIF out.
/// @throws UsageError, FrameReadError, OutputFileError, GIFEncodingError, std::bad_alloc; no file is left then.
[[nodiscard]] int run(const EncodeOptions& options);

/// `quillbox record`: a region of the screen in, one GIF out. Records until the duration is over or a signal asks to
/// stop, then encodes and saves. Reports its own errors. @return success only if a clip was saved.
/// @throws UsageError, OutputFileError  before anything is recorded.
[[nodiscard]] int run(const RecordOptions& options);

/// Asks the running application for something, waits for the answer and prints it; reports that nothing runs.
/// @throws InstanceError
[[nodiscard]] int run(const ControlOptions& options);

/// `quillbox history`: prints the clips made lately, newest first. Works whether the application runs or not.
[[nodiscard]] int run(const HistoryOptions& options);

/// `quillbox recover`: makes clips of recordings that were cut off, lists or removes them. Works whether the
/// application runs or not. Reports its own errors.
/// @throws UsageError, OutputFileError  before anything is made.
[[nodiscard]] int run(const RecoverOptions& options);

/// `quillbox doctor`: asks what the desktop has for everything that the program wants of it, all at once, and prints
/// the answers. Needs neither a display nor a bus. @return success where the screen can be recorded.
[[nodiscard]] int run(const DoctorOptions& options);

} // namespace Command
} // namespace quillbox
