#pragma once

#include "Capture/CaptureRegion.h"
#include "Encoding/PixelSize.h"
#include "Encoding/Precise/PreciseOptimizer.h"
#include "Encoding/Presets.h"

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillbox {

/// Names standard input as INPUT, and standard output as OUT.
inline constexpr const char* standardStreamName = "-";

/// What the process reports to the one that started it.
namespace ExitCode {
inline constexpr int success = 0;
inline constexpr int failure = 1; ///< the work could not be done
inline constexpr int usage = 2;   ///< the command line makes no sense
} // namespace ExitCode

/// A command line that makes no sense; `what()` says what was wrong and what to write instead.
class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What every command that writes a clip is told about it.
struct OutputOptions {
    ExportPreset preset = ExportPreset::slack;
    std::optional<std::string> output; ///< a path, or `standardStreamName`; none for the command's default
    bool json = false;                 ///< report the result as JSON
    bool force = false;                ///< replace an existing file
    std::optional<PreciseOptimizer::Config> precise; ///< show every change; within the preset's limits or those given
};

struct EncodeOptions {
    OutputOptions out;
    std::vector<std::string> inputs;       ///< paths or `standardStreamName`, at least one
    std::optional<std::int64_t> sourceFPS; ///< frames per second, at least 1; none for the input's own
    std::optional<bool> dithering;         ///< always, never, or (none) decided for each palette
    std::optional<PixelSize> raw;          ///< the inputs are raw RGBA frames of this size, not yet checked
};

struct RecordOptions {
    OutputOptions out;
    std::optional<CaptureRegion> region;   ///< width and height at least 1; none to let the user drag it out
    std::optional<double> durationSeconds; ///< above 0, at most a day; none until told to stop
    bool copy = false;                     ///< put the clip on the clipboard too
};

/// What the running application is asked for.
struct ControlOptions {
    enum class Action { Begin, Stop, Toggle, Show, Status, Quit };
    Action action = Action::Status;
    bool json = false; ///< answer as JSON
};

struct HistoryOptions {
    bool json = false; ///< print the list as JSON
};

struct DoctorOptions {
    bool json = false; ///< print the report as JSON
};

/// Nothing asked for: the desktop application.
struct DesktopOptions { };

} // namespace quillbox
