#pragma once

#include "App/CommandLine/Arguments/Arguments.h"

namespace quillbox {

/// The command `encode`, and what its options mean. Thread: main.
namespace EncodeArguments {

/// @param arguments  Outlives `app`. @return The command; `app` owns it.
CLI::App* addCommand(CLI::App& app, Arguments& arguments);

/// @pre the command line has been parsed. @throws UsageError
[[nodiscard]] EncodeOptions options(const CLI::App& command, const Arguments& arguments);

} // namespace EncodeArguments
} // namespace quillbox
