#pragma once

#include "App/CommandLine/Arguments/Arguments.h"

#include <string>

namespace quillbox {

/// The options of the commands that make a clip, and what they mean. Thread: main.
namespace OutputArguments {

/// @param defaultOutput  Where the clip goes without -o, in the user's language.
/// @param arguments      Outlives `command`.
void addOptions(CLI::App& command, Arguments& arguments, const std::string& defaultOutput);
/// Those of the precise encoder.
void addPreciseOptions(CLI::App& command, Arguments& arguments);

/// @pre the command line has been parsed. @throws UsageError
[[nodiscard]] OutputOptions options(const CLI::App& command, const Arguments& arguments);
/// @param name  In letters of any case. @throws UsageError  there is none of that name.
[[nodiscard]] ExportPreset presetNamed(const std::string& name);

} // namespace OutputArguments
} // namespace quillbox
