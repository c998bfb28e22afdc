#pragma once

#include "App/CommandLine/Options.h"
#include "App/FrameSources/FrameConsumer.h"

namespace quillbox {

/// Reads whatever `quillbox encode` is given, telling its kind by its first bytes.
namespace InputReader {

/// Hands over at least one frame.
/// @throws UsageError  the inputs don't go together.  @throws FrameReadError
void read(const EncodeOptions& options, FrameConsumer& receiver);

} // namespace InputReader
} // namespace quillbox
