#pragma once

#include "App/CommandLine/Options.h"

namespace quillbox {

/// `quillbox record`: a region of the screen in, one GIF out.
namespace RecordCommand {

/// Records until the duration is over or a signal asks to stop, then encodes and saves. Reports its own errors.
/// @return the process's exit code: success only if a clip was saved.
/// @throws UsageError, OutputFileError  before anything is recorded.
[[nodiscard]] int run(const RecordOptions& options);

} // namespace RecordCommand
} // namespace quillbox
