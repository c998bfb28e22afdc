#pragma once

#include "App/CommandLine/Options.h"

namespace quillbox {

/// `quillbox encode`: files in, one GIF out.
namespace EncodeCommand {

/// @return the process's exit code.
/// @throws UsageError, FrameReadError, OutputFileError, GIFEncodingError, std::bad_alloc; no file is left then.
[[nodiscard]] int run(const EncodeOptions& options);

} // namespace EncodeCommand
} // namespace quillbox
