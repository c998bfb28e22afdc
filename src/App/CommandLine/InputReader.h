#pragma once

#include "App/CommandLine/Arguments/Options.h"
#include "App/FrameSources/FrameConsumer.h"

#include <optional>
#include <string>

namespace quillbox {

/// Reads whatever `quillbox encode` is given, telling its kind by its first bytes.
namespace InputReader {

/// Hands over at least one frame, all of one size.
/// @return a sentence about what was left out, where `options.keepGoing` let something be.
/// @throws UsageError  the inputs don't go together.  @throws FrameReadError
[[nodiscard]] std::optional<std::string> read(const EncodeOptions& options, FrameConsumer& receiver);

} // namespace InputReader
} // namespace quillbox
